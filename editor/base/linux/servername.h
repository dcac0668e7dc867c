// The X server that DISPLAY names.
#pragma once

#include <string>

// Host and number, without the screen; empty where it names none. Two spellings of one server are
// two names.
std::string serverName();
