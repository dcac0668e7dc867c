// The documents of --json.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

// Members stay in the order in which they were added.
using Json = nlohmann::ordered_json;

// One document, with a line for each value. Bytes in names that are no UTF-8 become U+FFFD.
std::string documentText(const Json& document);

// A single's own decimal digits, not those that it has as a double: 0.1 and not 0.10000000149.
Json numberOf(float value);
// Decibels to a thousandth; null for silence. magnitude: a factor.
Json decibelsOf(double magnitude);
