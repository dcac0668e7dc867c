// Where the user's session bus is.
#pragma once

#include <string>

// Its address; empty where there is none. Starts none either, as the library would.
std::string sessionBusAddress();
