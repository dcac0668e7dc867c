// The documents' pictures of before and after are what widen draws, by the commands beside them.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

#include "tests/support/temporaryfolder.h"
#include "tests/window/picture.h"

namespace {

namespace fs = std::filesystem;

const std::string kRecordings = "/usr/share/sonic-pi/samples/";

struct Command {
  std::string recording, options, picture;
};

std::vector<Command> manualsCommands() {
  std::ifstream text(TRELVAN_SOURCES "/docs/manual/manual.rst");
  const std::regex form(R"(   widen (\w+\.flac) (.* --plot (\w+\.png)))");
  std::vector<Command> found;
  std::smatch match;
  for (std::string line; std::getline(text, line);) {
    if (std::regex_match(line, match, form) && fs::exists(kRecordings + match[1].str()))
      found.push_back({match[1], match[2], match[3]});
  }
  return found;
}

// The picture that is kept has fewer colours, and letters may be smoothed otherwise.
double differentShare(const Picture& kept, const Picture& drawn) {
  constexpr int kSlight = 40;  // of 255
  if (kept.width != drawn.width || kept.height != drawn.height) return 1;
  return differingShare(kept, drawn, kept.whole(), kSlight);
}

Picture drawn(const TemporaryFolder& folder, const std::string& recording,
              const std::string& options, const std::string& picture) {
  fs::copy_file(kRecordings + recording, folder / recording, fs::copy_options::skip_existing);
  const std::string command = "cd '" + folder.path + "' && '" WIDEN_PROGRAM "' --quiet " +
                              recording + " " + options + " --force";
  EXPECT_EQ(std::system(command.c_str()), 0) << command;
  return readPicture(folder / picture);
}

TEST(PlotPictures, AreDrawnByTheManualsCommands) {
  const ScopedVariable leaks(
      "LSAN_OPTIONS", "print_suppressions=0:suppressions=" TRELVAN_SOURCES "/tests/host/leaks.txt");
  const auto commands = manualsCommands();
  EXPECT_EQ(commands.size(), 2U);
  for (const auto& [recording, options, picture] : commands) {
    const TemporaryFolder folder;
    const Picture kept = readPicture(TRELVAN_SOURCES "/docs/pictures/" + picture);
    EXPECT_LT(differentShare(kept, drawn(folder, recording, options, picture)), 0.003) << picture;
    const std::string other = options + " --base-freq 300Hz";
    EXPECT_GT(differentShare(kept, drawn(folder, recording, other, picture)), 0.01) << picture;
  }
}

}  // namespace
