// How hosts load a plug-in's binary.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>

struct LoadingWay {
  const char* text;
  // As dlopen's result; null with dlerror's text.
  void* (*load)(const std::filesystem::path& binary);
};

// Those that this system has and that are possible in this build.
std::span<const LoadingWay> loadingWays();

// What the loader complains of where a binary finds no library but those that it names itself;
// empty where it finds all that it needs. Nothing where this system or this build cannot load it
// so. It stays loaded.
std::optional<std::string> complaintAlone(const std::filesystem::path& binary);
