// The window where memory runs out in the middle of a call.
#include <sys/wait.h>
#include <unistd.h>

#include <exception>

#include "plugin/createeffectinstance.h"
#include "tests/plugin/failingmemory.h"
#include "tests/presetsystem/imagebytes.h"
#include "windowtest.h"

namespace {

using imagebytes::Bytes;

constexpr Area kWindow{20, 40, 340, 320};  // of the host's on the screen

// Of the allocations every one fails once, or of so many one: with the sanitizers a window takes long.
#ifdef TRELVAN_SANITIZED
constexpr long kStep = 17;
#else
constexpr long kStep = 1;
#endif

// How a call ends in which one allocation fails.
enum class End { refused, done, byTheToolkit, wrong };

VstIntPtr silentHost(AEffect*, VstInt32 opcode, VstInt32, VstIntPtr, void*, float) {
  return opcode == audioMasterVersion ? kVstVersion : 0;
}

// One instance in a process of its own, and a window for it.
class Host {
 public:
  VstIntPtr send(VstInt32 opcode, VstIntPtr value = 0, void* ptr = nullptr) {
    return effect->dispatcher(effect, opcode, 0, value, ptr, 0.0F);
  }
  bool open() { return send(effEditOpen, 0, reinterpret_cast<void*>(std::uintptr_t{window})) == 1; }
  bool isEmpty() { return display.childrenOf(window) == 0; }
  bool close() {
    send(effEditClose);
    for (int tries = 0; tries < 1000 && !isEmpty(); ++tries) usleep(1000);
    return isEmpty();
  }
  Bytes chunk() {
    void* data = nullptr;
    const VstIntPtr size = send(effGetChunk, 0, &data);
    const auto* bytes = static_cast<const unsigned char*>(data);
    return {bytes, bytes + size};
  }
  // A click reaches the switch.
  bool isAlive() {
    const float before = effect->getParameter(effect, 4);
    display.moveTo(kWindow.left + places::kPhaseSwitch.centreX(), kWindow.top + places::kPhaseSwitch.centreY());
    for (int pass = 0; pass < 100 && effect->getParameter(effect, 4) == before; ++pass) {
      if (pass % 3 == 2) {
        display.press(1);
        display.release(1);
      }
      send(effEditIdle);
      usleep(2000);
    }
    return effect->getParameter(effect, 4) != before;
  }

 private:
  TestDisplay display;
  xcb_window_t window = display.makeWindow(kWindow);
  AEffect* effect = createEffectRecord(silentHost);
};

// Runs the scenario again and again, each time with another allocation that fails, until none does. The toolkit's
// factory is noexcept, so a single allocation that fails inside it ends the process: that is its own. Returns how often
// the plug-in refused.
int failEach(End (*scenario)(long succeeding)) {
  int refused = 0;
  for (long succeeding = 0;; succeeding += kStep) {
    const pid_t child = fork();
    if (child == 0) {
      std::set_terminate([] { _exit(static_cast<int>(End::byTheToolkit)); });
      _exit(static_cast<int>(scenario(succeeding)));
    }
    int status = 0;
    waitpid(child, &status, 0);
    const auto end = WIFEXITED(status) ? static_cast<End>(WEXITSTATUS(status)) : End::wrong;
    EXPECT_NE(end, End::wrong) << "after " << succeeding << " allocations, status " << status;
    if (end == End::wrong || end == End::done) return refused;
    if (end == End::refused) ++refused;
  }
}

}  // namespace

TEST(WindowOutOfMemory, TheWindowOpensLaterWhicheverAllocationFails) {
  const int refused = failEach([](long succeeding) {
    Host host;
    bool opened = false;
    {
      const FailingMemory memory(succeeding);
      opened = host.open();
    }
    if (opened ? !host.close() : !host.isEmpty()) return End::wrong;
    if (!host.open() || !host.isAlive() || !host.close()) return End::wrong;
    host.send(effClose);
    return opened ? End::done : End::refused;
  });
  EXPECT_GT(refused * kStep, 100) << "each of its controls takes some";
}

// With a window more than the bank changes, and what has been taken stays taken.
TEST(WindowOutOfMemory, AChunkIsTakenWholeOrRefusedWhole) {
  const int refused = failEach([](long succeeding) {
    Host host;
    const Bytes before = host.chunk();
    Bytes given = imagebytes::chunk(imagebytes::distinctBank(), 9);
    if (!host.open()) return End::wrong;
    VstIntPtr answer = 0;
    bool failed = false;
    {
      const FailingMemory memory(succeeding);
      answer = host.send(effSetChunk, static_cast<VstIntPtr>(given.size()), given.data());
      failed = memory.hasFailed();
    }
    const Bytes now = host.chunk();
    const bool refusedIt = answer == -1 && now == before;
    const bool tookIt = answer == 0 && (now == given || (failed && now == before));
    if (!refusedIt && !tookIt) return End::wrong;
    if (!host.isAlive() || !host.close()) return End::wrong;
    host.send(effClose);
    return failed ? End::refused : End::done;
  });
  EXPECT_GT(refused, 0);
}
