// Where the running program lies.
#pragma once

#include <filesystem>

// Absolute, links resolved; empty where the system does not say. Any thread.
std::filesystem::path executablePath();
