// Faults of an effect's life, and the checks that have to find them.
#include "tests/validate/validatetest.h"

namespace {

constexpr const char* kLeavesNothing = "loading and unloading again and again leaves nothing";

INSTANTIATE_TEST_SUITE_P(
    Loading, PlantedFaults,
    testing::Values(PlantedFault{"slowtoscan", "a scan of it is short", "a scan takes 12"},
                    PlantedFault{"missingsymbol", "it is loaded in each way that hosts use",
                                 "cannot be loaded at once"},
                    PlantedFault{"takesfromhost", "it names every library that it needs",
                                 "cairo_version", false},
                    PlantedFault{"exportsmore", "it exports its entry and nothing else",
                                 "another binary's may take its place"}),
    nameOfFault);

INSTANTIATE_TEST_SUITE_P(
    Life, PlantedFaults,
    testing::Values(
        PlantedFault{"crashesonclose", "an effect is made, opened, closed and unloaded", "crashes"},
        PlantedFault{"sharesparameters", "several instances live side by side",
                     "moves another's from 0.25 to 1"},
        PlantedFault{"needsswitchingoff", "it bears being closed while it is on",
                     "while: closing it while it is on"},
        PlantedFault{"needsopening", "it bears never being opened",
                     "parameter 0 of an effect that was never opened"},
        PlantedFault{"needsclosing", "it bears the end of its host", "while: ending the host"},
        PlantedFault{"needsclosingbeforeunloading", "it bears being unloaded with an effect alive",
                     "while: unloading it with an effect alive"}),
    nameOfFault);

INSTANTIATE_TEST_SUITE_P(
    Remains, PlantedFaults,
    testing::Values(
        PlantedFault{"leavesdescriptors", kLeavesNothing, "200 descriptors are left open"},
        PlantedFault{"leavesmappings", kLeavesNothing, "mappings are left after 200 rounds"},
        PlantedFault{"leavesmemory", "loading and unloading again and again takes no memory",
                     "memory grows by 12", false},
        PlantedFault{"leavesprocesses", kLeavesNothing, "a process that it started is left"},
        PlantedFault{"leavesthreads", kLeavesNothing, "200 threads are left"},
        PlantedFault{"staysloaded", "its binary leaves when it is unloaded",
                     "its binary stays in memory"}),
    nameOfFault);

INSTANTIATE_TEST_SUITE_P(
    HostUse, PlantedFaults,
    testing::Values(PlantedFault{"needstime", "it bears a host that knows its version only",
                                 "while: switching it on"},
                    PlantedFault{"needsanswers", "it bears a host that answers nothing",
                                 "a host that answers 0 to everything"},
                    PlantedFault{
                        "asksunready", "it bears a host that calls back while it is asked",
                        "asks its host (opcode 16) with a record that has no dispatcher yet"},
                    PlantedFault{"bearsnocallwhileitasks",
                                 "it bears a host that calls back while it is asked", "crashes"}),
    nameOfFault);

INSTANTIATE_TEST_SUITE_P(
    Memory, PlantedFaults,
    testing::Values(
        PlantedFault{"throwswhenopened",
                     "it bears a lack of memory when it is made, opened and closed",
                     "opening it throws an exception at its host when allocation 1 gets", false},
        PlantedFault{"trustsmemory", "it bears a lack of memory when its state is saved and loaded",
                     "crashes (Segmentation fault) while: loading its state, with allocation 2 "
                     "getting no memory",
                     false}),
    nameOfFault);

}  // namespace

// Nobody has to make as many as a check would need.
TEST(LackOfMemory, IsNotTriedOnAnEffectThatRefusesAnotherInstance) {
  if (VALIDATE_SANITIZED || !VALIDATE_EVERY_CHECK) GTEST_SKIP() << "allocations cannot be let fail";
  const char* check = "it bears a lack of memory when it is made, opened and closed";
  const ValidatorRun run = validateBroken("refusesmore", check);
  EXPECT_EQ(run.status, 0) << run.text;
  EXPECT_NE(run.text.find("it refuses another instance"), std::string::npos) << run.text;
}
