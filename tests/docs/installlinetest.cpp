// The documents' line that puts the plug-in where hosts look, and a newer one in its place.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "tests/platform/temporaryfolder.h"

namespace {

const std::string kBinary = "Trelvan.vst/Contents/x86_64-linux/Trelvan.so";

std::string replaced(std::string text, const std::string& what, const std::string& with) {
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size())) {
    text.replace(at, what.size(), with);
  }
  return text;
}

// Every line of the document with which a folder of the plug-in is copied.
std::vector<std::string> copyingLines(const std::string& document) {
  std::ifstream text(std::string(TRELVAN_SOURCES) + "/" + document);
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) {
    if (line.find("cp -r") != std::string::npos) lines.push_back(line);
  }
  return lines;
}

class InstallLine : public testing::TestWithParam<const char*> {
 protected:
  void build(const std::string& content) {
    const std::string file = folder / ("build/release/" + kBinary);
    std::filesystem::create_directories(std::filesystem::path(file).parent_path());
    writeFile(file, content);
  }
  // As it stands, but for who types it and where the plug-ins are.
  bool type(std::string line) {
    line = replaced(line, "sudo ", "");
    line = replaced(replaced(line, "/usr/local/lib/vst", folder / "place"), "~/.vst", folder / "place");
    return std::system(("cd '" + folder.path + "' && " + line).c_str()) == 0;
  }

  TemporaryFolder folder;
};

TEST_P(InstallLine, PutsThePlugInThereAndLeavesTheFileAloneThatAHostHasOpen) {
  const std::vector<std::string> lines = copyingLines(GetParam());
  ASSERT_FALSE(lines.empty());
  for (const std::string& line : lines) {
    std::filesystem::remove_all(folder / "place");
    build("the old one");
    ASSERT_TRUE(type(line)) << line;
    EXPECT_EQ(contentOf(folder / ("place/" + kBinary)), "the old one") << line;
    std::ifstream openInTheHost(folder / ("place/" + kBinary));
    build("the newer one");
    ASSERT_TRUE(type(line)) << line;
    EXPECT_EQ(contentOf(folder / ("place/" + kBinary)), "the newer one") << line;
    std::string seen;
    std::getline(openInTheHost, seen);
    EXPECT_EQ(seen, "the old one") << line;
    using Entries = std::filesystem::directory_iterator;
    EXPECT_EQ(std::distance(Entries(folder / "place"), Entries()), 1) << "nothing else is left there";
  }
}

INSTANTIATE_TEST_SUITE_P(Documents, InstallLine, testing::Values("README.md", "docs/hosts.md"));

}  // namespace
