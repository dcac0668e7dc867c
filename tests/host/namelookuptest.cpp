// Finds a preset or a parameter by its number or its name.
#include "host/state/namelookup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/base/failure.h"
#include "host/base/nearnames.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const std::vector<std::string> kNames = {"init", "mix 1", "mix 2", "Techno Space",
                                         "init", "80",    "Init"};

std::string refusalOf(const std::string& wanted) {
  try {
    findPreset(kNames, wanted);
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.status(), ExitStatus::failed);
    return failure.what();
  }
  return {};
}

}  // namespace

TEST(NameLookup, FindsByNumber) {
  EXPECT_EQ(findPreset(kNames, "0"), 0);
  EXPECT_EQ(findPreset(kNames, "6"), 6);
  EXPECT_EQ(findPreset(kNames, "03"), 3);
}

TEST(NameLookup, FindsTheFirstOfANameAndPrefersTheCaseAsWritten) {
  EXPECT_EQ(findPreset(kNames, "init"), 0);
  EXPECT_EQ(findPreset(kNames, "Init"), 6);
  EXPECT_EQ(findPreset(kNames, "INIT"), 0);
  EXPECT_EQ(findPreset(kNames, "techno space"), 3);
}

TEST(NameLookup, TakesANameOfDigitsForTheName) {
  EXPECT_EQ(findPreset(kNames, "80"), 5);
}

TEST(NameLookup, RefusesNumbersThatAreNotThere) {
  EXPECT_THAT(refusalOf("7"), HasSubstr("0 to 6"));
  EXPECT_THAT(refusalOf("99999999999999999999"), HasSubstr("no preset"));
  EXPECT_THAT(refusalOf("-1"), HasSubstr("no preset"));
}

TEST(NameLookup, SuggestsNamesThatComeNear) {
  EXPECT_THAT(refusalOf("mix1"), HasSubstr("did you mean \"mix 1\""));
  EXPECT_THAT(refusalOf("tecno spase"), HasSubstr("\"Techno Space\""));
  EXPECT_THAT(refusalOf("imx 1"), HasSubstr("\"mix 1\"")) << "two letters swapped";
  EXPECT_THAT(refusalOf("mix seventeen"), HasSubstr("\"mix 1\"")) << "the same first word";
  EXPECT_THAT(refusalOf("techno"), HasSubstr("\"Techno Space\"")) << "a part of a name";
}

TEST(NameLookup, SuggestsNothingFarAway) {
  EXPECT_THAT(refusalOf("harpsichord"), Not(HasSubstr("did you mean")));
  EXPECT_THAT(refusalOf("harpsichord"), HasSubstr("--list-presets"));
}

TEST(NameLookup, SuggestsThreeNamesAtMostAndEachOnce) {
  EXPECT_THAT(nearNames({"bas 1", "bas 2", "bas 3", "bas 4", "bas 1"}, "bas"),
              ElementsAre("bas 1", "bas 2", "bas 3"));
  EXPECT_THAT(nearNames({"", "x"}, "quite long"), IsEmpty());
  EXPECT_EQ(suggestion({"bas 1", "bas 2"}, "bass 1"), " (did you mean \"bas 1\" or \"bas 2\"?)");
}

TEST(NameLookup, FindsParametersByNameAndThenByAnyNotationOfTheirNumber) {
  const std::vector<std::string> names = {"Gain", "2", "gain"};
  EXPECT_EQ(findParameter(names, "gain"), 2) << "the case as written comes first";
  EXPECT_EQ(findParameter(names, "GAIN"), 0);
  EXPECT_EQ(findParameter(names, "2"), 1) << "a name of digits is a name";
  EXPECT_EQ(findParameter(names, "2.0"), 2);
  EXPECT_EQ(findParameter(names, "1e0"), 1);
}

TEST(NameLookup, RefusesParametersThatAreNotThere) {
  const auto parameterRefusalOf = [](const std::string& wanted) -> std::string {
    try {
      findParameter({"Gain", "Pan"}, wanted);
    } catch (const Failure& failure) {
      return failure.what();
    }
    return {};
  };
  EXPECT_EQ(parameterRefusalOf("2"), "--set: there is no parameter 2; they are numbered 0 to 1");
  EXPECT_EQ(parameterRefusalOf("-1"), "--set: there is no parameter -1; they are numbered 0 to 1");
  EXPECT_EQ(parameterRefusalOf("0.5"),
            "--set: there is no parameter 0.5; they are numbered 0 to 1");
  EXPECT_EQ(parameterRefusalOf("gian"),
            "--set: there is no parameter \"gian\" (did you mean \"Gain\"?)");
  EXPECT_EQ(parameterRefusalOf("1 dB"),
            "--set: there is no parameter \"1 dB\"; --list-params shows them");
}
