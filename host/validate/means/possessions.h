// What this process holds of the system: a plug-in that is unloaded leaves none of it behind.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>

struct Possessions {
  int threads;
  int descriptors;
  bool hasChildren;      // running, or ended and not waited for
  int mappings;          // stretches of memory
  std::size_t resident;  // bytes of memory in use
};

// Nothing on a system that does not tell.
std::optional<Possessions> possessions();

std::size_t residentBytes();  // 0 on such a system

// Whether the binary is in this process's memory.
bool isMapped(const std::filesystem::path& binary);
// Whether a binary that is loaded asks never to be unloaded.
bool asksToStay(const std::filesystem::path& binary);
