// Values as a person types them.
#include "host/state/values.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>

#include "host/base/failure.h"
#include "host/validate/means/decimalcomma.h"
#include "tests/support/temporaryfolder.h"

namespace {

using Parser = float (*)(std::string_view, std::string_view);

std::string refusalOf(Parser parse, std::string_view text) {
  try {
    parse("--option", text);
  } catch (const UsageFailure& failure) {
    return failure.what();
  }
  return "accepted";
}

// The base frequency that a raw value stands for, in Hz.
double hertz(float raw) {
  return 20.0 + 980.0 * static_cast<double>(raw) * static_cast<double>(raw);
}

}  // namespace

TEST(Values, ReadANumberAndTheLettersAfterIt) {
  const auto read = readNumber(" 2.5 kHz ");
  ASSERT_TRUE(read);
  EXPECT_EQ(read->number, 2.5);
  EXPECT_EQ(read->unit, "khz");
  EXPECT_EQ(readNumber("-3dB")->number, -3.0);
  EXPECT_EQ(readNumber("+.5")->number, 0.5);
  EXPECT_EQ(readNumber("5.")->number, 5.0);
  EXPECT_EQ(readNumber("1e3Hz")->number, 1000.0);
  EXPECT_EQ(readNumber("2elephants")->unit, "elephants");
}

// As an effect may set it, once it is loaded.
TEST(Values, HaveAPointWhereTheLocaleHasAComma) {
  const TemporaryFolder home;
  setenv("HOME", home.path.c_str(), 1);
  const DecimalComma comma;
  if (!comma.works()) GTEST_SKIP() << "there is no such locale";
  EXPECT_EQ(readNumber("2.5 kHz")->number, 2.5);
  EXPECT_EQ(readNumber("2.5 kHz")->unit, "khz");
}

TEST(Values, ReadNoNumberWhereThereIsNone) {
  for (const char* text : {"", " ", "x", "-", ".", "+.", "Hz", "inf", "nan", "0x", ",5", "1e999"}) {
    const auto read = readNumber(text);
    EXPECT_TRUE(!read || !read->unit.empty()) << text;
  }
  EXPECT_FALSE(readNumber("nan"));
  EXPECT_FALSE(readNumber("inf"));
  EXPECT_FALSE(readNumber("1e999")) << "beyond every double";
}

TEST(Values, TakePerCentWithASignAndRawWithout) {
  EXPECT_EQ(parsePercent("--width", "75%"), 0.75F);
  EXPECT_EQ(parsePercent("--width", "75 %"), 0.75F);
  EXPECT_EQ(parsePercent("--width", "0.75"), 0.75F);
  EXPECT_EQ(parsePercent("--width", "0%"), 0.0F);
  EXPECT_EQ(parsePercent("--width", "100%"), 1.0F);
  EXPECT_EQ(parsePercent("--width", "1"), 1.0F) << "raw, not one per cent";
  EXPECT_EQ(parsePercent("--width", "1%"), 0.01F);
}

TEST(Values, RefuseAPercentageThatIsOutOfRangeOrAmbiguous) {
  EXPECT_NE(refusalOf(parsePercent, "75").find("75%"), std::string::npos)
      << "says how to write per cent";
  EXPECT_NE(refusalOf(parsePercent, "101%").find("0% to 100%"), std::string::npos);
  for (const char* text : {"-1%", "-0.1", "1.1", "nan", "", "wide", "75Hz", "0,5", "75%%"}) {
    EXPECT_NE(refusalOf(parsePercent, text), "accepted") << text;
  }
}

TEST(Values, TurnHertzIntoTheRawValueThatStandsForThem) {
  EXPECT_EQ(parseBaseFrequency("--base-freq", "265Hz"), 0.5F);
  EXPECT_EQ(parseBaseFrequency("--base-freq", "265 hz"), 0.5F);
  EXPECT_EQ(parseBaseFrequency("--base-freq", "0.265kHz"), 0.5F);
  EXPECT_EQ(parseBaseFrequency("--base-freq", "20Hz"), 0.0F);
  EXPECT_EQ(parseBaseFrequency("--base-freq", "1kHz"), 1.0F);
  for (double wanted = 20.0; wanted <= 1000.0; wanted += 0.7) {
    EXPECT_NEAR(hertz(parseBaseFrequency("", std::to_string(wanted) + "Hz")), wanted, 1e-4);
  }
}

TEST(Values, TakeABareFrequencyForWhatItCanOnlyMean) {
  EXPECT_EQ(parseBaseFrequency("", "0.5"), 0.5F) << "raw";
  EXPECT_EQ(parseBaseFrequency("", "1"), 1.0F) << "raw";
  EXPECT_EQ(parseBaseFrequency("", "265"), 0.5F) << "Hz";
  EXPECT_EQ(parseBaseFrequency("", "20"), 0.0F) << "Hz";
  EXPECT_EQ(parseBaseFrequency("", "1000"), 1.0F) << "Hz";
  for (const char* text :
       {"1.01", "19.9", "1000.1", "-1", "10Hz", "0.5Hz", "2kHz", "265m", "", "low"}) {
    EXPECT_NE(refusalOf(parseBaseFrequency, text), "accepted") << text;
  }
}

TEST(Values, TakeSwitchesAsWordsOrRaw) {
  for (const char* text : {"on", "On", "yes", "true", "1"})
    EXPECT_EQ(parseSwitch("", text), 1.0F) << text;
  for (const char* text : {"off", "OFF", "no", "false", "0"})
    EXPECT_EQ(parseSwitch("", text), 0.0F) << text;
  EXPECT_EQ(parseSwitch("", "0.4"), 0.4F);
  for (const char* text : {"maybe", "2", "-1", "50%", ""})
    EXPECT_NE(refusalOf(parseSwitch, text), "accepted") << text;
}

TEST(Values, TakeNormalisedNumbersOnlyWithinTheirRange) {
  EXPECT_EQ(parseNormalised("", "0.3"), 0.3F);
  for (const char* text : {"1.0001", "-0.0001", "30%", "x", ""}) {
    EXPECT_NE(refusalOf(parseNormalised, text), "accepted") << text;
  }
}

TEST(Values, ReadTheNotationsThatFitAnyParameter) {
  EXPECT_EQ(readGenericValue("0.4"), 0.4F);
  EXPECT_EQ(readGenericValue("40%"), 0.4F);
  EXPECT_EQ(readGenericValue("on"), 1.0F);
  EXPECT_EQ(readGenericValue("off"), 0.0F);
  for (const char* text : {"1.5", "440Hz", "sine", "", "150%"})
    EXPECT_EQ(readGenericValue(text), std::nullopt) << text;
}

TEST(Values, TurnDecibelsIntoAFactor) {
  EXPECT_EQ(parseGain("", "0dB"), 1.0);
  EXPECT_NEAR(parseGain("", "-6.0206dB"), 0.5, 1e-6);
  EXPECT_NEAR(parseGain("", "20"), 10.0, 1e-12);
  for (const char* text : {"-61dB", "61", "3%", "loud", ""})
    EXPECT_THROW(parseGain("", text), UsageFailure) << text;
}

TEST(Values, TakeSecondsAndMilliseconds) {
  EXPECT_EQ(parseSeconds("", "2"), 2.0);
  EXPECT_EQ(parseSeconds("", "1.5s"), 1.5);
  EXPECT_EQ(parseSeconds("", "250ms"), 0.25);
  EXPECT_EQ(parseSeconds("", "0"), 0.0);
  for (const char* text : {"-1", "3601", "2min", "long", ""})
    EXPECT_THROW(parseSeconds("", text), UsageFailure) << text;
}

TEST(Values, NameTheOptionAndTheTextThatTheyRefuse) {
  EXPECT_NE(refusalOf(parsePercent, "wide").find("--option: \"wide\""), std::string::npos);
}

TEST(Values, AreReadInTheUnitOfTheParameter) {
  EXPECT_EQ(parseTrelvanValue(0, "--width", "75%"), 0.75F);
  EXPECT_EQ(parseTrelvanValue(1, "--base-freq", "265Hz"), 0.5F);
  EXPECT_EQ(parseTrelvanValue(2, "--emphasis", "30%"), 0.3F);
  EXPECT_EQ(parseTrelvanValue(3, "--process", "on"), 1.0F);
  EXPECT_EQ(parseTrelvanValue(4, "--phase", "off"), 0.0F);
  EXPECT_THROW(parseTrelvanValue(0, "--width", "265Hz"), UsageFailure);
  EXPECT_THROW(parseTrelvanValue(1, "--base-freq", "75%"), UsageFailure);
  EXPECT_THROW(parseTrelvanValue(2, "--emphasis", "on"), UsageFailure);
  EXPECT_THROW(parseTrelvanValue(3, "--process", "75%"), UsageFailure);
  EXPECT_THROW(parseTrelvanValue(4, "--phase", "1Hz"), UsageFailure);
}
