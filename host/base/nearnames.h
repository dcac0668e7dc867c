// Names that come near to what a person typed.
#pragma once

#include <string>
#include <vector>

// Up to three of the names, nearest first, each once; empty where none comes near.
std::vector<std::string> nearNames(const std::vector<std::string>& names,
                                   const std::string& wanted);
// ` (did you mean "a" or "b"?)`, or nothing.
std::string suggestion(const std::vector<std::string>& names, const std::string& wanted);
