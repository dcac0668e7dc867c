// Makes any bytes a text that can be shown.
#pragma once

#include <string>
#include <string_view>

// Preset names are 24 bytes of whatever a host or a file put there, and may end inside a character.
// Returns UTF-8: a character that lacks its end is left out, any other byte that does not belong
// becomes U+FFFD. The text libraries print a warning for each text that is not UTF-8. Any thread;
// nothing but the standard library is needed.
std::string validText(std::string_view bytes);
