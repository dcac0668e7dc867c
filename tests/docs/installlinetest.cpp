// The documents' line that puts the plug-in where hosts look, and a newer one in its place.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "tests/support/temporaryfolder.h"

namespace {

std::string replaced(std::string text, const std::string& what, const std::string& with) {
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size())) {
    text.replace(at, what.size(), with);
  }
  return text;
}

// Every command of a document that copies a bundle, "sh -c '...'" over one line or several.
std::vector<std::string> copyingCommands(const std::string& document) {
  std::ifstream text(std::string(TRELVAN_SOURCES) + "/" + document);
  std::vector<std::string> commands;
  bool inside = false;
  for (std::string line; std::getline(text, line);) {
    if (line.find("sh -c '") != std::string::npos) {
      commands.emplace_back();
      inside = true;
    }
    if (inside) commands.back() += line + "\n";
    EXPECT_TRUE(inside || line.find("cp -r") == std::string::npos) << document << ": " << line;
    if (line.ends_with("'")) inside = false;
  }
  return commands;
}

class InstallLine : public testing::TestWithParam<const char*> {
 protected:
  // Where the documents have it: where it was built, or where it was unpacked.
  void build(const std::string& content) {
    for (const char* where : {"from/build/release/", "from/"}) {
      const std::string file = folder / (where + binary);
      std::filesystem::create_directories(std::filesystem::path(file).parent_path());
      writeFile(file, content);
    }
  }
  // Of a run that was broken off.
  void writeLeftover() {
    const std::string halfDone = bundle.substr(0, bundle.find('.')) + ".new";
    std::filesystem::create_directory(inPlace(halfDone));
    writeFile(inPlace(halfDone + "/leftover"), "");
  }
  // As it stands, but for who types it and where the plug-ins are.
  bool type(std::string command) {
    command = replaced(command, "sudo ", "");
    for (const char* place : {"/usr/local/lib/vst", "~/.vst", "~/.lv2"})
      command = replaced(command, place, folder / "place");
    return std::system(("cd '" + folder.path + "/from' && " + command).c_str()) == 0;
  }
  std::string inPlace(const std::string& name) const { return folder / ("place/" + name); }
  std::string installed() const { return contentOf(inPlace(binary)); }

  const std::string bundle =
      GetParam() == std::string("docs/lv2.md") ? "trelvan.lv2" : "Trelvan.vst";
  const std::string binary = bundle + "/Contents/module.so";
  TemporaryFolder folder;
};

TEST_P(InstallLine, PutsThePlugInThereAndLeavesTheFileAloneThatAHostHasOpen) {
  const std::vector<std::string> commands = copyingCommands(GetParam());
  ASSERT_FALSE(commands.empty());
  for (const std::string& command : commands) {
    std::filesystem::remove_all(folder / "place");
    build("the old one");
    ASSERT_TRUE(type(command)) << command;
    EXPECT_EQ(installed(), "the old one") << command;
    std::ifstream openInTheHost(inPlace(binary));
    build("the newer one");
    writeLeftover();
    ASSERT_TRUE(type(command)) << command;
    EXPECT_EQ(installed(), "the newer one") << command;
    std::string seen;
    std::getline(openInTheHost, seen);
    EXPECT_EQ(seen, "the old one") << command;
    using Entries = std::filesystem::directory_iterator;
    EXPECT_EQ(std::distance(Entries(folder / "place"), Entries()), 1)
        << "nothing else is left there";
    EXPECT_EQ(std::distance(Entries(inPlace(bundle)), Entries()), 1) << "nor in it";
  }
}

TEST_P(InstallLine, LeavesTheOldOneWhereThereIsNoNewOne) {
  for (const std::string& command : copyingCommands(GetParam())) {
    build("the old one");
    ASSERT_TRUE(type(command)) << command;
    std::filesystem::remove_all(folder / "from");
    std::filesystem::create_directory(folder / "from");
    EXPECT_FALSE(type("{ " + command + "} 2>/dev/null")) << command;
    EXPECT_EQ(installed(), "the old one") << command;
  }
}

INSTANTIATE_TEST_SUITE_P(Documents, InstallLine,
                         testing::Values("README.md", "docs/hosts.md", "docs/lv2.md",
                                         "docs/manual/manual.rst"));

}  // namespace
