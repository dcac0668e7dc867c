// The names of the MIDI controllers.
#include "editor/controls/ccnames.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

// By number; every other controller is "control " and its number.
const std::map<int, std::string> kNamed = {
    {0, "bank sel MSB"},  {1, "modulation"},     {2, "breath"},         {4, "foot"},
    {5, "portamento"},    {6, "data ent MSB"},   {7, "main volume"},    {8, "balance"},
    {10, "pan"},          {11, "expression"},    {16, "gen purp 1"},    {17, "gen purp 2"},
    {18, "gen purp 3"},   {19, "gen purp 4"},    {32, "bank sel LSB"},  {33, "modul. LSB"},
    {34, "breath LSB"},   {36, "foot LSB"},      {37, "porta LSB"},     {38, "data ent LSB"},
    {39, "main vol LSB"}, {40, "balance LSB"},   {42, "pan LSB"},       {43, "express. LSB"},
    {64, "sustain"},      {65, "porta on/off"},  {66, "sostenuto"},     {67, "soft pedal"},
    {68, "legato FS"},    {69, "hold 2"},        {70, "sound var"},     {71, "harmonic"},
    {72, "release time"}, {73, "attack time"},   {74, "brightness"},    {80, "gen purp 5"},
    {81, "gen purp 6"},   {82, "gen purp 7"},    {83, "gen purp 8"},    {84, "porta ctrl"},
    {91, "ext FX"},       {92, "tremolo"},       {93, "chorus"},        {94, "detune"},
    {95, "phaser"},       {96, "data incr"},     {97, "data decr"},     {98, "NRPN LSB"},
    {99, "NRPN MSB"},     {100, "RPN LSB"},      {101, "RPN MSB"},      {120, "all snd off"},
    {121, "reset ctrl"},  {122, "local ctrl"},   {123, "all note off"}, {124, "omni off"},
    {125, "omni on"},     {126, "mono mode on"}, {127, "poly mode on"},
};

TEST(CcNames, NamesEveryControllerByItsNameOrItsNumber) {
  for (int number = 0; number < 128; ++number) {
    const auto named = kNamed.find(number);
    EXPECT_EQ(ccnames[number],
              named != kNamed.end() ? named->second : "control " + std::to_string(number))
        << number;
  }
}

TEST(CcNames, EndsWithNotAssignedAndNothing) {
  ASSERT_EQ(kCcNameCount, 130);
  EXPECT_STREQ(ccnames[128], "not assigned");
  EXPECT_STREQ(ccnames[129], "");
}

// 3, 9, 12 to 15, 20 to 31, 35, 41, 44 to 63, 75 to 79, 85 to 90 and 102 to 119 have no name of
// their own.
TEST(CcNames, LeavesSixtyNineControllersUnnamed) {
  constexpr int kUnnamed = 1 + 1 + 4 + 12 + 1 + 1 + 20 + 5 + 6 + 18;
  EXPECT_EQ(128 - static_cast<int>(kNamed.size()), kUnnamed);
}

}  // namespace
