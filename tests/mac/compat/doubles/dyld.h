// What tests ask of the dynamic loader's test double.
#pragma once

#include <string>
#include <vector>

namespace dylddouble {

struct Image {
  const void* header;
  const char* name;  // null: the loader has none
};

// The images that the loader shows from now on; without this, those of the process.
void show(const std::vector<Image>& images);
void showProcess();
// The path that the loader has noted of the program, as it was started.
void showExecutable(const std::string& path);
const void* ownHeader();  // of the image that holds this double and the code under test

}  // namespace dylddouble
