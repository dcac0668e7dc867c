// The checks of states find the faults that were planted for them.
#include "tests/validate/validatetest.h"

namespace {

constexpr const char* kBankBack = "a bank that is loaded gives back what was saved";
constexpr const char* kSavedStays = "saved bytes stay as they are while the host uses them";
constexpr const char* kSavedTwice = "a state saved twice is the same";

INSTANTIATE_TEST_SUITE_P(
    State, PlantedFaults,
    testing::Values(
        PlantedFault{"countsitssaves", kSavedTwice, "saved again at once"},
        PlantedFault{"givesnostate", kSavedTwice, "gives none for a bank"},
        PlantedFault{"forgetsinbanks", kBankBack, "parameter 1 is 0.25 whatever it was"},
        PlantedFault{"forgetsinprograms", "a program that is loaded gives back what was saved",
                     "parameter 1 was"},
        PlantedFault{"keepsoneprogram", "a bank that is loaded gives back every program",
                     "of program "},
        PlantedFault{"forgetscurrent", "a bank that is loaded gives back every program",
                     "was current when the bank was saved"},
        PlantedFault{"forgetsnames", "a state that is loaded gives back the name of its program",
                     "named \"Init\""},
        PlantedFault{"soundsasbefore", "a fresh effect sounds the same once the state is loaded",
                     "its sound differs by"},
        PlantedFault{"reusesitsbytes", kSavedStays, "after it was asked for its parameters"},
        PlantedFault{"saveswhatitworksin", kSavedStays, "after its parameters moved"},
        PlantedFault{"readsfurther", "a state is read no further than its size",
                     "after which nothing can be read"},
        PlantedFault{"clearsbeforereading", "a state loads from the memory it was saved to",
                     "into the same effect from the memory it was saved to: parameter"},
        PlantedFault{"savestooneplace", "a state loads from the memory of another effect",
                     "into another effect from the memory it was saved to: parameter"},
        PlantedFault{"savesalone", "a state is saved while an audio thread plays",
                     "crashes (Aborted) while: saving, time"},
        PlantedFault{"loadsalone", "a state is loaded while an audio thread plays",
                     "crashes (Aborted) while: loading, time"}),
    nameOfFault);

INSTANTIATE_TEST_SUITE_P(
    DamagedState, PlantedFaults,
    testing::Values(PlantedFault{"needsbytes", "a state of no bytes does no harm",
                                 "while: loading a state of 0 bytes"},
                    PlantedFault{"needsitwhole", "a state that is cut short does no harm",
                                 "cut after"},
                    PlantedFault{"needstheend", "a state with more bytes after it does no harm",
                                 "bytes with 1 more"},
                    PlantedFault{"walksfaraway", "a state of random bytes does no harm",
                                 "while: loading 1048576 random bytes"},
                    PlantedFault{"trustseverybody", "the state of another effect does no harm",
                                 "another effect's state"},
                    PlantedFault{"trustsnumbers", "a state with a wrong byte does no harm",
                                 "whose byte 4 is 0xFF"},
                    PlantedFault{"takesnonumbers", "a state with a wrong byte does no harm",
                                 "parameter 0 is nan"},
                    PlantedFault{"sulksafterwards", "a state with a wrong byte does no harm",
                                 "the whole state loads no more"},
                    PlantedFault{"turnsitwrong", "a state in the other byte order does no harm",
                                 "words of 4 bytes turned round"},
                    PlantedFault{"needsapointer", "a state at a null pointer does no harm",
                                 "bytes at a null pointer"}),
    nameOfFault);

}  // namespace

// Hosts that only ask before they read get what was saved.
TEST(SavedBytes, MayBeTheMemoryThatAnEffectWorksIn) {
  const ValidatorRun run =
      validateFile(pluginFile("saveswhatitworksin"),
                   {"--strictness", "5", "--seed", "1", "--check", kSavedStays});
  EXPECT_EQ(run.status, 0) << run.text;
  EXPECT_NE(run.text.find(std::string("pass      ") + kSavedStays), std::string::npos) << run.text;
}
