// Where the plug-in's own image and the resources of its bundle are.
#pragma once

#include <string>

// Any thread. Paths are full and without links, folders end in "/"; empty where they
// cannot be found.

// The file of the image that holds this code: the module, or the program that it is linked into.
std::string moduleFile();
// That file's folder.
std::string moduleFolder();
// The bundle's Resources folder beside the image's folder.
std::string resourcesFolder();
