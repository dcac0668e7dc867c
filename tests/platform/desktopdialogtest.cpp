// The command lines of the dialog programs, and what their exit statuses mean.
#include "platform/linux/desktopdialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <vector>

#include "platform/linux/childprogram.h"
#include "tests/support/fakedesktop.h"

namespace {

using desktopdialog::Answer;
using desktopdialog::Kind;
using testing::ElementsAre;

std::vector<Kind> kindsOf(const std::vector<desktopdialog::Program>& programs) {
  std::vector<Kind> kinds;
  for (const desktopdialog::Program& program : programs) kinds.push_back(program.kind);
  return kinds;
}

TEST(DesktopDialog, TakesTheDesktopsOwnProgramFirst) {
  FakeDesktop desktop;
  EXPECT_TRUE(desktopdialog::filePrograms().empty());
  for (const char* name : {"zenity", "kdialog", "xmessage"}) desktop.install(name, "exit 0");
  for (const char* gtk : {"GNOME", "ubuntu:GNOME", "", "NOTKDE"}) {
    desktop.kind.set(gtk);
    EXPECT_THAT(kindsOf(desktopdialog::filePrograms()), ElementsAre(Kind::zenity, Kind::kdialog))
        << gtk;
  }
  for (const char* qt : {"KDE", "LXQt", "neon:KDE"}) {
    desktop.kind.set(qt);
    EXPECT_THAT(kindsOf(desktopdialog::alertPrograms()),
                ElementsAre(Kind::kdialog, Kind::zenity, Kind::xmessage))
        << qt;
  }
}

TEST(DesktopDialog, NeedsADisplay) {
  FakeDesktop desktop;
  EXPECT_TRUE(desktopdialog::hasDisplay());
  desktop.display.set("");
  EXPECT_FALSE(desktopdialog::hasDisplay());
  desktop.wayland.set("wayland-0");
  EXPECT_TRUE(desktopdialog::hasDisplay());
}

// Kdialog takes escapes, and a text with a tag in it for markup.
TEST(DesktopDialog, ShowsTextsAsTheyStand) {
  const desktopdialog::Program kdialog{Kind::kdialog, "/k"};
  const auto shown = [&](const std::string& text) {
    return desktopdialog::warning(kdialog, "Title", text).back();
  };
  EXPECT_EQ(shown("two\nlines & more"), "two\nlines & more");
  EXPECT_EQ(shown("back\\slash"), "back\\\\slash");
  EXPECT_EQ(shown("a <b> & c\nd"), "<qt>a &lt;b&gt; &amp; c<br/>d</qt>");
  EXPECT_EQ(shown("--version"), " --version") << "no option";
  const desktopdialog::Program zenity{Kind::zenity, "/z"};
  EXPECT_EQ(desktopdialog::question(zenity, "Title", "--a <b>").back(), "--text=--a <b>");
  EXPECT_THAT(desktopdialog::question(zenity, "Title", "x"), testing::Contains("--no-markup"));
}

TEST(DesktopDialog, TellsAnswersFromProgramsThatDoNotWork) {
  EXPECT_EQ(desktopdialog::answerOf(0, ""), Answer::accepted);
  EXPECT_EQ(desktopdialog::answerOf(1, "a path"), Answer::declined);
  EXPECT_EQ(desktopdialog::answerOf(5, ""), Answer::declined) << "its own time limit";
  EXPECT_EQ(desktopdialog::answerOf(127, ""), Answer::unusable);
  EXPECT_EQ(desktopdialog::answerOf(ChildProgram::kSignalBase + SIGTERM, ""), Answer::declined);
  EXPECT_EQ(desktopdialog::answerOf(ChildProgram::kSignalBase + SIGSEGV, ""), Answer::unusable);
  EXPECT_EQ(desktopdialog::answerOf(ChildProgram::kUnknownStatus, "a path"), Answer::accepted);
  EXPECT_EQ(desktopdialog::answerOf(ChildProgram::kUnknownStatus, ""), Answer::declined);
}

}  // namespace
