// Breaks a text into lines that fit.
#pragma once

#include <functional>
#include <string>
#include <vector>

// New lines in the text stay; else a line is broken at blanks, and within a word only where the
// word alone is too long. text: UTF-8, never broken within a character. widthOf: of a line, in the
// unit of `width`.
std::vector<std::string> wrappedText(const std::string& text, double width,
                                     const std::function<double(const std::string&)>& widthOf);
