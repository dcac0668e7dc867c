// Folders that a run makes for its results.
#include "host/cli/madefolders.h"

#include <string>
#include <system_error>

#include "host/base/failure.h"

namespace fs = std::filesystem;

MadeFolders::MadeFolders(const std::vector<fs::path>& folders) {
  for (const fs::path& folder : folders) {
    std::error_code error;
    if (!fs::create_directory(folder, error)) {
      removeEmpty();
      throw Failure(folder.string() + ": cannot be made (" +
                    (error ? error.message() : "it is in the way") + ")");
    }
    made.push_back(folder);
  }
}

MadeFolders::~MadeFolders() {
  removeEmpty();
}

// The last first: it may lie in those before it.
void MadeFolders::removeEmpty() {
  std::error_code notEmpty;
  for (auto folder = made.rbegin(); folder != made.rend(); ++folder) fs::remove(*folder, notEmpty);
}
