// macOS: what a process holds is not counted.
#include "host/validate/means/possessions.h"

std::optional<Possessions> possessions() {
  return std::nullopt;
}

std::size_t residentBytes() {
  return 0;
}

bool isMapped(const std::filesystem::path&) {
  return false;
}

bool asksToStay(const std::filesystem::path&) {
  return false;
}
