// macOS: a binary's names are not read.
#include "host/validate/exportedsymbols.h"

std::optional<std::vector<std::string>> exportedSymbols(const std::filesystem::path&) {
  return std::nullopt;
}
