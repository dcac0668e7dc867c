// Finds a preset or a parameter by what a person typed: its number or its name.
#pragma once

#include <string>
#include <vector>

// names: by number, from 0. Digits alone are a number, unless a preset bears exactly that name; a
// name counts as written, then without regard to case; of several, the first. Returns the number.
// Throws Failure, suggesting names that come near.
int findPreset(const std::vector<std::string>& names, const std::string& wanted);

// The same for a parameter. names: at least one. Any notation of a whole number is one. option:
// where it was typed, opens the Failure.
int findParameter(const std::vector<std::string>& names, const std::string& wanted,
                  const std::string& option = "--set: ");
