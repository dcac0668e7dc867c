// The checks of windows find the faults that were planted for them. Needs a display.
#include <gmock/gmock.h>

#include <cstdlib>
#include <string>

#include "tests/validate/faultcoverage.h"
#include "tests/validate/validatetest.h"

namespace {

constexpr const char* kOpens = "the window opens in its parent and is seen";
constexpr const char* kTellsSize = "the window tells its size";
constexpr const char* kAgain = "the window opens and closes again and again";
constexpr const char* kOutOfTurn = "idling and closing without a window do no harm";

// sound: another effect with a window and no fault.
PlantedFault windowFault(const char* plugin, const char* check, const char* says,
                         const char* sound = "soundwindow") {
  PlantedFault fault{plugin, check, says};
  fault.sound = sound;
  return fault;
}

INSTANTIATE_TEST_SUITE_P(
    Shown, PlantedFaults,
    testing::Values(
        windowFault("nosize", kTellsSize, "tells no size of its window while it is open"),
        windowFault("turnedsize", kTellsSize, "a window of -160 x -90 pixels"),
        windowFault("neveropens", kOpens, "its window does not open"),
        windowFault("opensnothing", kOpens, "has made none in the host's"),
        windowFault("stayshidden", kOpens, "stays hidden"),
        windowFault("keepsitswindow", "nothing is left of a window that is closed",
                    "still in the host's after it was closed"),
        windowFault("asksanothersize", "the window has the size that it asks the host for",
                    "of 200 x 100 pixels and tells 160 x 90", "asksitssize"),
        windowFault("aslargeasitsparent", "the window opens in a parent that is small and hidden",
                    "a window of 1 x 1 pixels"),
        windowFault("needsroom", "the window stands every size of its parent",
                    "crashes (Aborted) while: idling in a host's window of "),
        windowFault("opensfiles", kAgain, "open files or connections more after"),
        windowFault("startsthreads", kAgain, "threads more after"),
        windowFault("startsprocesses", kAgain, "a process is left after")),
    nameOfFault);

INSTANTIATE_TEST_SUITE_P(
    AtWork, PlantedFaults,
    testing::Values(
        windowFault("needslongidles", "the window is idled slowly and quickly",
                    "crashes (Aborted) while: idling the window at 60 Hz"),
        windowFault("needsquiet", "an audio thread plays while the window is open", "crashes"),
        windowFault("needsclosedwindow", "parameters and states change while the window is open",
                    "while: loading a state while the window is open"),
        windowFault("needsquiet", "another thread sets parameters while the window is open",
                    "crashes"),
        windowFault("needsquiet", "another thread loads states while the window is open",
                    "crashes"),
        windowFault("needsquiet", "the window lives on a thread of its own", "crashes")),
    [](const auto& test) { return test.param.plugin + std::to_string(test.index); });

INSTANTIATE_TEST_SUITE_P(
    Ends, PlantedFaults,
    testing::Values(
        windowFault("idlesopenonly", kOutOfTurn, "while: idling before any window was opened"),
        windowFault("closesonce", kOutOfTurn, "while: closing after the window was closed"),
        windowFault("needsitsparent", "the parent of the window may go first", "crashes"),
        windowFault("runson", "a plug-in is unloaded after its window was open", "crashes"),
        windowFault("needsitsclose", "an effect is closed with its window open",
                    "while: closing the effect with its window open"),
        windowFault("missestheend", "the process ends with a window open",
                    "while: ending the process by exit with the window open"),
        windowFault("opensonceatatime", "opening the window twice does no harm", "crashes"),
        windowFault("expectsadisplay", "a display out of reach does no harm",
                    "while: opening the window where DISPLAY is \":4711\""),
        windowFault("waitsforitsdisplay", "the window stands the loss of its connection",
                    "hangs (12 s) while: idling after the connection of its window was cut")),
    nameOfFault);

TEST(WindowChecks, HaveAFaultPlantedForEach) {
  for (const Check& check : allChecks()) {
    if (!isOfWindows(check.name)) continue;
    EXPECT_TRUE(isAFaultPlantedFor(check.name)) << check.name;
  }
}

TEST(WindowChecks, AreLeftOutWithoutADisplay) {
  const std::string display = std::getenv("DISPLAY");
  unsetenv("DISPLAY");
  const ValidatorRun run = validateBroken("soundwindow", kOpens);
  setenv("DISPLAY", display.c_str(), 1);
  EXPECT_EQ(run.status, 0) << run.text;
  EXPECT_THAT(run.text, testing::HasSubstr("left out  " + std::string(kOpens)));
  EXPECT_THAT(run.text, testing::HasSubstr("no display"));
}

}  // namespace
