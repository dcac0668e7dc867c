// macOS: a binary's names are not read.
#include "host/validate/means/exportedsymbols.h"

std::optional<std::vector<std::string>> exportedSymbols(const std::filesystem::path&) {
  return std::nullopt;
}
