// What a preset's or bank's file is, by the extension of its name.
#include "host/state/presetfilenames.h"

#include <filesystem>

#include "host/base/text.h"

namespace {

bool hasExtension(const std::string& file, const char* extension) {
  return sameLetters(std::filesystem::path(file).extension().string(), extension);
}

}  // namespace

bool isPresetFile(const std::string& file) {
  return hasExtension(file, ".orv");
}

bool isBankFile(const std::string& file) {
  return hasExtension(file, ".orb");
}

bool isFxPreset(const std::string& file) {
  return hasExtension(file, ".fxp");
}

bool isFxBank(const std::string& file) {
  return hasExtension(file, ".fxb");
}
