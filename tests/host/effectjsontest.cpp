// What an effect says of itself, for scripts.
#include "host/cli/effectjson.h"

#include <gtest/gtest.h>

#include "tests/host/program.h"

namespace {

class EffectDocuments : public ProgramTest {
 protected:
  // What the program prints is one document, and nothing else on either stream.
  Json document(std::vector<std::string> words) {
    words.emplace_back("--json");
    const Outcome outcome = widen(words);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.error, "");
    Json parsed = Json::parse(outcome.out, nullptr, false);
    EXPECT_FALSE(parsed.is_discarded()) << outcome.out;
    return parsed;
  }
};

}  // namespace

TEST_F(EffectDocuments, TellOfTrelvanWhatTheWordsTell) {
  const Json effect = document({"--info"}).at("effect");
  EXPECT_EQ(effect.at("name"), "Orv Trelvan");
  EXPECT_EQ(effect.at("unique_id"), "Tlvn");
  EXPECT_EQ(effect.at("unique_id_number"), 0x546C766E);
  EXPECT_EQ(effect.at("category"), "mastering");
  EXPECT_EQ(effect.at("flags").at("can_double_replacing"), true);
  EXPECT_EQ(effect.at("flags").at("is_synth"), false);
  EXPECT_EQ(effect.at("parameters"), 5);
  EXPECT_EQ(effect.at("inputs").size(), 2U);
  EXPECT_EQ(effect.at("outputs").at(1).at("label"), "My 2 Out");
  EXPECT_EQ(effect.at("arrangement"), nullptr);
  EXPECT_EQ(effect.at("latency_frames"), 0);
  EXPECT_EQ(effect.at("tail_frames"), nullptr);
  EXPECT_EQ(effect.at("state_bytes"), 10545);
  EXPECT_EQ(effect.at("editor"), Json({{"width", 302}, {"height", 251}}));
  EXPECT_EQ(effect.at("can"), Json({"offline", "plugAsChannelInsert", "1in2out", "2in2out"}));
}

TEST_F(EffectDocuments, ListParametersWithValuesAndUnits) {
  const Json parameters =
      document({"--list-params", "--base-freq", "0.1", "--phase", "on"}).at("parameters");
  ASSERT_EQ(parameters.size(), 5U);
  EXPECT_EQ(parameters.at(1).at("name"), "baseFreq");
  EXPECT_EQ(parameters.at(1).at("value"), 0.1);
  EXPECT_EQ(parameters.at(1).at("text"), "29.8");  // 20 + 980 x^2 Hz
  EXPECT_EQ(parameters.at(1).at("unit"), "Hz");
  EXPECT_EQ(parameters.at(4).at("switch"), true);
  EXPECT_EQ(parameters.at(4).at("text"), "On");
}

TEST_F(EffectDocuments, ListPresetsWithTheCurrentOne) {
  const Json presets = document({"--list-presets", "--preset", "guitar 1"}).at("presets");
  ASSERT_EQ(presets.size(), 32U);
  for (const Json& preset : presets)
    EXPECT_EQ(preset.at("current"), preset.at("number") == 12) << preset;
  EXPECT_EQ(presets.at(12).at("name"), "guitar 1");
}

TEST_F(EffectDocuments, AreOneForAllQuestions) {
  const Json all = document({"--list-presets", "--info", "-q", "--list-params"});
  EXPECT_EQ(all.size(), 3U);
  EXPECT_TRUE(all.contains("effect") && all.contains("parameters") && all.contains("presets"));
}

TEST_F(EffectDocuments, HoldWhatAnEffectDoesNotSayAsNull) {
  const Json all =
      document({"--info", "--list-params", "--list-presets", "--plugin", plugin("echo")});
  EXPECT_EQ(all.at("effect").at("inputs"), Json({nullptr, nullptr}));
  EXPECT_EQ(all.at("effect").at("state_bytes"), nullptr);
  EXPECT_EQ(all.at("effect").at("editor"), nullptr);
  EXPECT_EQ(all.at("parameters"), Json::array());
  EXPECT_EQ(all.at("presets"), Json::array());
}

TEST_F(EffectDocuments, ListInstalledPlugIns) {
  std::filesystem::create_directory(in("plugins"));
  std::filesystem::copy_file(plugin("echo"), in("plugins/echo.so"));
  Surroundings place;
  place.environment["VST_PATH"] = in("plugins").string();
  const Json plugins = Json::parse(widen({"--list-plugins", "--json"}, place).out).at("plugins");
  EXPECT_EQ(plugins.at(0), Json({{"name", "echo"}, {"file", in("plugins/echo.so").string()}}));
}

TEST_F(EffectDocuments, AreRefusedWhereNothingIsAsked) {
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"--save-state", "s"}, {"--editor"}}) {
    std::vector<std::string> all = words;
    all.emplace_back("--json");
    expectRefusal(widen(all), 2, "--json goes with");
  }
  EXPECT_EQ(names(), std::vector<std::string>());
}
