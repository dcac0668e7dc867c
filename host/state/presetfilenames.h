// What a preset's or bank's file is, by the extension of its name.
#pragma once

#include <string>

bool isPresetFile(const std::string& file);  // .orv, of Trelvan
bool isBankFile(const std::string& file);    // .orb, of Trelvan
bool isFxPreset(const std::string& file);    // .fxp, of any effect
bool isFxBank(const std::string& file);      // .fxb, of any effect
