// The command line of the validator.
#include <gtest/gtest.h>

#include "host/options/arguments.h"

namespace {

Arguments parsed(const std::vector<std::string>& words) {
  return parseArguments(words).arguments.value();
}

void expectRefused(const std::vector<std::string>& words, const std::string& because) {
  try {
    parseArguments(words);
    ADD_FAILURE() << "accepted; should be refused with: " << because;
  } catch (const UsageFailure& failure) {
    EXPECT_NE(std::string(failure.what()).find(because), std::string::npos) << failure.what();
  }
}

}  // namespace

TEST(ValidatorArguments, AreNoneUnlessAskedFor) {
  EXPECT_EQ(parsed({"in.wav", "-o", "out.wav"}).validator, std::nullopt);
}

TEST(ValidatorArguments, TakeTheOwnPluginAndTheMiddleStrictnessByThemselves) {
  const Arguments arguments = parsed({"--validate"});
  ASSERT_TRUE(arguments.validator.has_value());
  EXPECT_EQ(arguments.plugin, std::nullopt);
  EXPECT_EQ(arguments.validator->strictness, 5);
  EXPECT_EQ(arguments.validator->seed, std::nullopt);
  EXPECT_EQ(arguments.validator->check, std::nullopt);
}

TEST(ValidatorArguments, NameAPluginEitherWay) {
  EXPECT_EQ(parsed({"--validate", "other.so"}).plugin, "other.so");
  EXPECT_EQ(parsed({"--validate", "--plugin", "other.so"}).plugin, "other.so");
  expectRefused({"--validate", "one.so", "--plugin", "other.so"}, "two plug-ins");
}

TEST(ValidatorArguments, TakeEverySeed) {
  const Arguments arguments = parsed({"--validate", "--seed", "18446744073709551615"});
  EXPECT_EQ(arguments.validator->seed, 18446744073709551615U);
  EXPECT_EQ(parsed({"--validate", "--seed", "0"}).validator->seed, 0U);
  expectRefused({"--validate", "--seed", "18446744073709551616"}, "--seed");
  expectRefused({"--validate", "--seed", "-1"}, "--seed");
}

TEST(ValidatorArguments, HaveAStrictnessFrom1To10) {
  EXPECT_EQ(parsed({"--validate", "--strictness", "1"}).validator->strictness, 1);
  EXPECT_EQ(parsed({"--validate", "--strictness", "10"}).validator->strictness, 10);
  expectRefused({"--validate", "--strictness", "0"}, "--strictness");
  expectRefused({"--validate", "--strictness", "11"}, "--strictness");
}

TEST(ValidatorArguments, BelongToTheValidator) {
  expectRefused({"--strictness", "3", "in.wav", "-o", "out.wav"}, "belongs to --validate");
  expectRefused({"--seed", "3", "in.wav", "-o", "out.wav"}, "belongs to --validate");
  expectRefused({"--check", "a", "in.wav", "-o", "out.wav"}, "belongs to --validate");
  expectRefused({"--validate", "--check", ""}, "nothing named");
}

TEST(ValidatorArguments, AreAloneWithThePlugin) {
  expectRefused({"--validate", "one.so", "in.wav"}, "--validate goes without IN");
  expectRefused({"--validate", "-o", "out.wav"}, "--validate goes without --output");
  expectRefused({"--validate", "--info"}, "--validate goes without --info");
  expectRefused({"--validate", "--save-state", "file"}, "--validate goes without --save-state");
  expectRefused({"--validate", "--preset", "init"}, "--validate goes without --preset");
  expectRefused({"--validate", "--block", "7"}, "--validate goes without --block");
}
