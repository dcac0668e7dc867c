// Anything at all, in any order, on two windows of two instances while other threads set parameters
// and play: nothing breaks.
#include <array>
#include <atomic>
#include <cstdlib>
#include <random>
#include <sstream>
#include <thread>

#include "platform/validtext.h"
#include "randomuser.h"
#include "windowtest.h"

namespace {

std::string told(const char* variable, const char* otherwise) {
  const char* value = std::getenv(variable);
  return value != nullptr ? value : otherwise;
}

// TRELVAN_SEEDS, apart by blanks, and TRELVAN_EVENTS: others than these, or more.
std::vector<std::uint32_t> seeds() {
  std::istringstream text(told("TRELVAN_SEEDS", "1 2 3 4 5 6"));
  std::vector<std::uint32_t> all;
  for (std::uint32_t seed = 0; text >> seed;) all.push_back(seed);
  return all;
}
constexpr int kUsualEvents = 300;
int events() {
  const std::string asked = told("TRELVAN_EVENTS", "");
  return asked.empty() ? kUsualEvents : std::stoi(asked);
}

class RandomEvents : public WindowTest, public ::testing::WithParamInterface<std::uint32_t> {
 protected:
  RandomEvents() { RandomUser::installQuickPrograms(folder.path); }

  // What the host's other threads do for as long as `stop` is not set. The numbers are their own.
  static void automate(WindowHost& host, std::uint32_t seed, const std::atomic<bool>& stop) {
    std::mt19937 random(seed);
    while (!stop) {
      const auto index = static_cast<VstInt32>(random() % 5);
      host.setParameter(index, static_cast<float>(random() % 1001) * 0.001F);
      host.parameter(static_cast<VstInt32>(random() % 5));
      host.play(0.5F, static_cast<float>(random() % 3) * 0.2F, 128);
      std::this_thread::sleep_for(std::chrono::milliseconds(3));
    }
  }
};

bool isOfAGesture(const HostCall& call) {
  return call.opcode == audioMasterAutomate || call.opcode == audioMasterBeginEdit ||
         call.opcode == audioMasterEndEdit;
}
std::string wordOf(VstInt32 opcode) {
  if (opcode == audioMasterAutomate) return "moves";
  return opcode == audioMasterBeginEdit ? "begins" : "ends";
}

// Each gesture begins once, ends once, and has what it says of its parameter in between. A preset's
// change is told by an empty one of the first parameter, also while the wheel's goes on.
void expectWholeGestures(const WindowHost& host) {
  std::array<int, 5> open{};
  for (const HostCall& call : host.gestureCalls()) {
    ASSERT_GE(call.index, 0);
    ASSERT_LT(call.index, 5);
    int& depth = open[static_cast<std::size_t>(call.index)];
    if (call.opcode == audioMasterBeginEdit) {
      EXPECT_LE(++depth, call.index == 0 ? 2 : 1) << "begun twice: " << call.index;
    } else if (call.opcode == audioMasterEndEdit) {
      EXPECT_GE(--depth, 0) << "ended without a beginning: " << call.index;
    } else {
      EXPECT_EQ(depth, 1) << "moved without a beginning, or in an empty one: " << call.index;
      EXPECT_TRUE(call.opt >= 0.0F && call.opt <= 1.0F) << call.opt;
    }
  }
  for (std::size_t index = 0; index < open.size(); ++index)
    EXPECT_EQ(open[index], 0) << "not ended: " << index;
}

// Nobody has given it bytes that are no text; a name that is too long may be cut within a
// character.
void expectWholeState(WindowHost& host) {
  for (VstInt32 index = 0; index < 5; ++index) {
    const float value = host.parameter(index);
    EXPECT_TRUE(value >= 0.0F && value <= 1.0F) << index << ": " << value;
  }
  constexpr std::size_t kLongestName = 23;  // bytes
  for (int preset = 0; preset < 32; ++preset) {
    const std::string name = host.programName(preset);
    EXPECT_LE(name.size(), kLongestName) << preset;
    EXPECT_EQ(validText(name).find("\xEF\xBF\xBD"), std::string::npos) << preset << ": " << name;
  }
  EXPECT_GE(host.currentPreset(), 0);
  EXPECT_LT(host.currentPreset(), 32);
}

// The window still opens, and a click still turns a switch.
void expectWorkingWindow(WindowHost& host) {
  ASSERT_TRUE(host.openEditor());
  const float before = host.parameter(4);
  host.click(places::kPhaseSwitch);
  EXPECT_EQ(host.parameter(4), before < 0.5F ? 1.0F : 0.0F);
  host.closeEditor();
}

}  // namespace

TEST_P(RandomEvents, BreakNothing) {
  std::printf("seed %u, %d events\n", GetParam(), events());
  std::fflush(stdout);
  const bool shown = !told("TRELVAN_SHOW_EVENTS", "").empty();  // as they come, for a crash
  WindowHost first(0);
  WindowHost second(1);
  RandomUser user(GetParam(), folder.path, {&first, &second});
  std::atomic<bool> stop = false;
  std::thread automation([&] { automate(first, GetParam() + 1, stop); });
  std::thread otherAutomation([&] { automate(second, GetParam() + 2, stop); });
  std::string done;
  const auto note = [&](const std::string& what) {
    if (shown) std::fprintf(stderr, "%s", what.c_str());
    done += what;
  };
  for (WindowHost* host : {&first, &second}) {
    const std::string whose = host == &first ? "    1: " : "    2: ";
    host->onCall = [&note, whose, own = std::this_thread::get_id()](const HostCall& call) {
      if (std::this_thread::get_id() == own && isOfAGesture(call))
        note(whose + wordOf(call.opcode) + " " + std::to_string(call.index) + "\n");
    };
  }
  for (int event = 0; event < events(); ++event) {
    note(std::to_string(event) + " " + user.act() + "\n");
  }
  user.end();
  stop = true;
  automation.join();
  otherAutomation.join();
  for (WindowHost* host : {&first, &second}) {
    SCOPED_TRACE(host == &first ? "first" : "second");
    std::printf("%zu calls of gestures\n", host->gestureCalls().size());
    EXPECT_TRUE(events() < kUsualEvents || !host->gestureCalls().empty());
    expectWholeGestures(*host);
    expectWholeState(*host);
    expectWorkingWindow(*host);
  }
  if (HasFailure()) std::printf("%s", done.c_str());
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEvents, ::testing::ValuesIn(seeds()));
