// What may stand in a preset's name, how it is edited, and how the field shows it.
#include "nameentry.h"

// The field and the list hold 24 characters; one of the bank's is the end.
TEST_F(Name, OnlyTheFirst24CharactersAreTaken) {
  const auto enter = [this](const std::string& name) {
    startEntry();
    host.type(name);
    host.key(XKB_KEY_Return);
    host.moveAway();
    EXPECT_EQ(host.programName(), name.substr(0, 23));
  };
  const std::string name = "iiiiiiiiiiiiiiiiiiiiiiil";  // 24, narrow enough to be shown whole
  enter(name.substr(0, 23));
  const Picture shorter = host.picture();
  const Picture shorterList = list();
  enter(name);
  const Picture cut = host.picture();
  const Picture cutList = list();
  EXPECT_FALSE(cut == shorter);
  EXPECT_FALSE(cutList == shorterList);
  enter(name + "more");
  EXPECT_EQ(host.picture(), cut);
  EXPECT_EQ(list(), cutList);
}

TEST_F(Name, AnEmptyNameIsAName) {
  startEntry();
  host.key(XKB_KEY_BackSpace);
  host.key(XKB_KEY_Return);
  expectConfirmed("");
}

// While it is edited the field shows the typed text only, whatever the host calls
// the preset meanwhile.
TEST_F(Name, AHostsNameMeanwhileGivesWayToTheConfirmedOne) {
  startEntry();
  host.type("mine");
  host.setProgramName("the host's");
  host.settle();
  host.key(XKB_KEY_Return);
  EXPECT_EQ(host.programName(), "mine");
}

// Characters of two to four bytes each.
TEST_F(Name, InAnyLanguageIsEditedCharacterByCharacter) {
  const std::string umlaut = "\xC3\xA4", kanji = "\xE9\x9F\xB3", note = "\xF0\x9D\x84\x9E";
  host.setProgramName(umlaut + kanji + note + "x");
  startEntry();
  host.moveAway();  // drawn with all of it selected
  host.settle();
  host.click(places::kName.right - 5, places::kName.centreY());  // after the text
  host.key(XKB_KEY_BackSpace);
  host.key(XKB_KEY_BackSpace);
  host.type("y");
  host.key(XKB_KEY_Home);
  host.key(XKB_KEY_Right);
  host.key(XKB_KEY_Delete);
  host.type("z");
  host.click(places::kName.left + 5, places::kName.centreY());  // in front of it
  host.type("a");
  host.key(XKB_KEY_Return);
  expectConfirmed("a" + umlaut + "zy");
}

TEST_F(Name, TypingReplacesASelectionMadeByMouseOrKeys) {
  startEntry();
  host.type("abc");
  host.moveTo(places::kName.right - 5, places::kName.centreY());
  host.press();
  host.moveTo(places::kName.left + 5, places::kName.centreY());
  host.release();
  host.type("defg");
  host.keyDown(XKB_KEY_Shift_L);
  host.key(XKB_KEY_Left);
  host.key(XKB_KEY_Left);
  host.keyUp(XKB_KEY_Shift_L);
  host.type("h");
  host.key(XKB_KEY_Return);
  expectConfirmed("deh");
}

// A name from a file may hold any bytes.
TEST_F(Name, ThatIsNoTextIsShownWithReplacementCharactersAndWithoutAWarning) {
  testing::internal::CaptureStderr();
  host.dispatch(effSetProgramName, 0, 0,
                const_cast<char*>("a\xFF"
                                  "b"));
  host.settle();
  const Picture shown = host.picture();
  startEntry();
  host.key(XKB_KEY_Escape);
  host.settle();
  host.moveAway();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(host.programName(),
            "a\xFF"
            "b");
  host.dispatch(effSetProgramName, 0, 0,
                const_cast<char*>("a\xEF\xBF\xBD"
                                  "b"));
  host.settle();
  EXPECT_EQ(host.picture(), shown);
}

// Too wide for the field in every font: it loses its end, as in the list, and not both ends.
TEST_F(Name, ThatIsTooWideBeginsInTheFieldWithItsFirstLetter) {
  const std::string rest(22, 'W');
  host.setProgramName("i" + rest);
  const Picture first = host.picture();
  host.setProgramName("j" + rest);
  const Picture second = host.picture();
  host.setProgramName("j" + rest.substr(1) + "i");
  const Picture otherEnd = host.picture();
  EXPECT_FALSE(sameIn(places::kName, first, second));
  EXPECT_TRUE(sameIn(places::kName, second, otherEnd));
}

TEST_F(Name, ThatIsALittleTooWideIsSmallerAndWhole) {
  const std::string name = "Wide and much air above";
  host.setProgramName("i" + name.substr(1));
  const Picture first = host.picture();
  host.setProgramName("j" + name.substr(1));
  EXPECT_FALSE(sameIn(places::kName, first, host.picture()));
  host.setProgramName("i" + name.substr(1, 21) + "i");
  EXPECT_FALSE(sameIn(places::kName, first, host.picture()));
}
