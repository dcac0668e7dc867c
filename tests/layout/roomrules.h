// Which room of the tree may include which.
#pragma once

#include <string>
#include <vector>

// The rooms whose sources are ours.
const std::vector<std::string>& rooms();

// The room of a path from the tree's root; empty where it is in none.
std::string roomOf(const std::string& path);

// The toolkit's headers are named as its own folder has them.
bool isToolkit(const std::string& include);

// file, target: paths from the root, or the toolkit's name of a header.
bool mayInclude(const std::string& file, const std::string& target);
