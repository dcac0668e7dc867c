// What shells complete of the command line: the scripts, run by the shells that are there.
#include "host/options/completion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>

#include "tests/host/program.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::UnorderedElementsAre;

class Completion : public ProgramTest {
 protected:
  std::string script(const std::string& shell) {
    const Outcome outcome = widen({"--completion", shell});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    writeText(in("script"), outcome.out);
    return outcome.out;
  }

  static bool isThere(const std::string& shell) {
    return std::system(("command -v " + shell + " >/dev/null").c_str()) == 0;
  }

  std::vector<std::string> linesOf(const std::string& command) const {
    const std::string line = "cd '" + folder.string() + "' && HOME=$PWD " + command + " >lines";
    EXPECT_EQ(std::system(line.c_str()), 0) << command;
    std::ifstream file(in("lines"));
    std::vector<std::string> lines;
    for (std::string text; std::getline(file, text);) lines.push_back(text);
    return lines;
  }

  // What bash proposes after these words, the last one being typed.
  std::vector<std::string> bashProposes(const std::vector<std::string>& words) {
    script("bash");
    std::string list;
    for (const std::string& word : words) list += " '" + word + "'";
    writeText(in("ask"), "source ./script\nCOMP_WORDS=('" WIDEN_PROGRAM "'" + list +
                             ")\nCOMP_CWORD=" + std::to_string(words.size()) +
                             "\n_widen\nprintf '%s\\n' \"${COMPREPLY[@]}\"\n");
    return linesOf("bash ask");
  }
};

// Long options as the help shows them.
std::set<std::string> optionsIn(const std::string& help) {
  std::set<std::string> options;
  const std::regex name("(^|\n) +(-[a-z],)?(--[a-z-]+)");
  for (std::sregex_iterator it(help.begin(), help.end(), name), end; it != end; ++it)
    options.insert((*it)[3]);
  return options;
}

}  // namespace

TEST_F(Completion, KnowsEveryOptionInEveryShell) {
  const std::set<std::string> options = optionsIn(widen({"--help"}).out);
  ASSERT_GT(options.size(), 25U);
  const std::string bash = script("bash");
  const std::string zsh = script("zsh");
  const std::string fish = script("fish");
  for (const std::string& option : options) {
    EXPECT_THAT(bash, testing::ContainsRegex(" " + option + "[ )]")) << option;
    EXPECT_THAT(zsh, HasSubstr("'*" + option)) << option;
    EXPECT_THAT(fish, HasSubstr(" -l " + option.substr(2) + " ")) << option;
  }
}

TEST_F(Completion, IsNotMoreThanTheManualTells) {
  std::ifstream file(WIDEN_MANUAL);
  const std::string manual(std::istreambuf_iterator<char>(file), {});
  for (const std::string& option : optionsIn(widen({"--help"}).out)) {
    EXPECT_TRUE(std::regex_search(manual, std::regex("[*, ]" + option + "[* ,]")))
        << "docs/widen.md, which the manual page is made of, has nothing of " << option;
  }
}

TEST_F(Completion, ProposesOptionsAndTheirWords) {
  EXPECT_THAT(bashProposes({"--list-p"}),
              ElementsAre("--list-params", "--list-presets", "--list-plugins"));
  EXPECT_THAT(bashProposes({"--format", "pcm"}), ElementsAre("pcm16", "pcm24", "pcm32"));
  EXPECT_THAT(bashProposes({"--format", "=", "fl"}), ElementsAre("float")) << "--format=fl";
  EXPECT_THAT(bashProposes({"--type", "o"}), ElementsAre("ogg", "opus"));
  EXPECT_THAT(bashProposes({"--gain", ""}), ElementsAre("auto"));
  EXPECT_THAT(bashProposes({"--normalize", ""}), ElementsAre(""));
}

TEST_F(Completion, ProposesOnlyWordsThatTheOptionTakes) {
  for (const char* format : {"pcm16", "pcm24", "pcm32", "float", "double"})
    EXPECT_THAT(widen({"--format", format}).error, HasSubstr("no sound file named")) << format;
  for (const char* type : {"wav", "aiff", "flac", "caf", "w64", "rf64", "ogg", "opus", "mp3"})
    EXPECT_THAT(widen({"--type", type}).error, HasSubstr("no sound file named")) << type;
}

TEST_F(Completion, ProposesPresetsByNameWithBlanks) {
  EXPECT_THAT(bashProposes({"--preset", "gui"}), ElementsAre("guitar 1", "guitar 2", "guitar 3"));
  EXPECT_THAT(bashProposes({"--preset", "guitar\\ 1"}), ElementsAre("guitar 1"));
  EXPECT_THAT(bashProposes({"--plugin", "x.so", "--preset", "gui"}), ElementsAre(""))
      << "another effect's are not these";
}

TEST_F(Completion, ProposesFilesByTheirKind) {
  for (const char* name : {"take.wav", "take two.flac", "text.txt", "my.orv", "my.orb", "p.png"})
    writeText(in(name), "");
  std::filesystem::create_directory(in("takes"));
  EXPECT_THAT(bashProposes({"ta"}), UnorderedElementsAre("takes", "take.wav", "take two.flac"));
  EXPECT_THAT(bashProposes({"-o", "take\\ "}), ElementsAre("take two.flac"));
  EXPECT_THAT(bashProposes({"--bank", "m"}), ElementsAre("my.orb"));
  EXPECT_THAT(bashProposes({"--preset", "m"}), IsSupersetOf({"mix 1", "my.orv"}));
  EXPECT_THAT(bashProposes({"--state", "te"}), ElementsAre("text.txt")) << "of any kind";
}

TEST_F(Completion, IsReadByZsh) {
  if (!isThere("zsh")) GTEST_SKIP() << "zsh is not installed";
  script("zsh");
  EXPECT_THAT(linesOf("zsh -f -c 'autoload -U compinit && compinit -u -D && source ./script && "
                      "print $_comps[widen]'"),
              ElementsAre("_widen"));
}

TEST_F(Completion, WorksInFish) {
  if (!isThere("fish")) GTEST_SKIP() << "fish is not installed";
  script("fish");
  writeText(in("my.orv"), "");
  const std::string beside = std::filesystem::path(WIDEN_PROGRAM).parent_path();
  const auto proposes = [&](const std::string& typed) {
    return linesOf("PATH='" + beside + "':$PATH fish -c 'source ./script; complete -C \"widen " +
                   typed + "\"' | cut -f1");
  };
  EXPECT_THAT(proposes("--format pcm"), ElementsAre("pcm16", "pcm24", "pcm32"));
  EXPECT_THAT(proposes("--preset gui"), ElementsAre("guitar 1", "guitar 2", "guitar 3"));
  EXPECT_THAT(proposes("--preset my"), ElementsAre(HasSubstr("my.orv")));
}

TEST_F(Completion, RefusesAnotherShell) {
  expectRefusal(widen({"--completion", "tcsh"}), 2, "is not bash, zsh or fish");
}
