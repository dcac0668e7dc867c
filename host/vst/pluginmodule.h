// A loaded plug-in binary: loaded once, shared by all its effects.
#pragma once

#include <filesystem>
#include <mutex>

#include "plugin/vst24.h"

class PluginModule {
 public:
  using EntryPoint = AEffect* (*)(audioMasterCallback);

  // Throws Failure: cannot be loaded, or exports no entry point.
  explicit PluginModule(const std::filesystem::path& binary);
  ~PluginModule();
  PluginModule(const PluginModule&) = delete;
  PluginModule& operator=(const PluginModule&) = delete;

  const std::filesystem::path& path() const { return binaryPath; }
  EntryPoint entryPoint() const { return entry; }

  // Effects are made, set up and ended under it, because plug-ins expect one thread for that;
  // processing goes without.
  std::mutex& lifeLock() { return lock; }

 private:
  std::filesystem::path binaryPath;
  void* library;
  EntryPoint entry = nullptr;
  std::mutex lock;
};
