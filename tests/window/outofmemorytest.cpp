// The window where memory runs out in the middle of a call.
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <functional>

#include "plugin/createeffectinstance.h"
#include "tests/support/failingmemory.h"
#include "tests/support/imagebytes.h"
#include "tests/support/silenthost.h"
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

// One instance in a process of its own, and a window for it.
class Host {
 public:
  VstIntPtr send(VstInt32 opcode, VstIntPtr value = 0, void* ptr = nullptr) {
    return effect->dispatcher(effect, opcode, 0, value, ptr, 0.0F);
  }
  bool open() { return send(effEditOpen, 0, reinterpret_cast<void*>(std::uintptr_t{window})) == 1; }
  bool isEmpty() { return display.childrenOf(window) == 0; }
  bool becomesEmpty() {
    for (int tries = 0; tries < 1000 && !isEmpty(); ++tries) usleep(1000);
    return isEmpty();
  }
  bool close() {
    send(effEditClose);
    return becomesEmpty();
  }
  Bytes chunk() {
    void* data = nullptr;
    const VstIntPtr size = send(effGetChunk, 0, &data);
    const auto* bytes = static_cast<const unsigned char*>(data);
    return {bytes, bytes + size};
  }
  void click() {
    display.moveTo(kWindow.left + places::kPhaseSwitch.centreX(), kWindow.top + places::kPhaseSwitch.centreY());
    display.press(1);
    display.release(1);
  }
  // A click reaches the switch.
  bool isAlive() {
    const float before = effect->getParameter(effect, 4);
    for (int pass = 0; pass < 100 && effect->getParameter(effect, 4) == before; ++pass) {
      if (pass % 3 == 2) click();
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

// Runs the scenario in a process of its own. The toolkit's factory is noexcept, so an allocation that fails inside it
// ends the process: that is its own.
End endOf(const std::function<End()>& scenario) {
  const pid_t child = fork();
  if (child == 0) {
    std::set_terminate([] { _exit(static_cast<int>(End::byTheToolkit)); });
    _exit(static_cast<int>(scenario()));
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? static_cast<End>(WEXITSTATUS(status)) : End::wrong;
}

// Again and again, each time with another allocation that fails, until none does. Returns how often the plug-in
// refused.
int failEach(const std::function<End(long succeeding)>& scenario) {
  int refused = 0;
  for (long succeeding = 0;; succeeding += kStep) {
    const End end = endOf([&] { return scenario(succeeding); });
    EXPECT_NE(end, End::wrong) << "after " << succeeding << " allocations";
    if (end == End::wrong || end == End::done) return refused;
    if (end == End::refused) ++refused;
  }
}

}  // namespace

TEST(WindowOutOfMemory, TheWindowOpensLaterWhicheverAllocationFails) {
  for (const auto fails : {FailingMemory::Fails::one, FailingMemory::Fails::allFromThere}) {
    const int refused = failEach([fails](long succeeding) {
      Host host;
      bool opened = false;
      {
        const FailingMemory memory(succeeding, fails);
        opened = host.open();
      }
      if (opened ? !host.close() : !host.isEmpty()) return End::wrong;
      if (!host.open() || !host.isAlive() || !host.close()) return End::wrong;
      host.send(effClose);
      return opened ? End::done : End::refused;
    });
    EXPECT_GT(refused * kStep, 100) << "each of its controls takes some";
  }
}

// An end takes no memory, neither of the window nor of the instance with its window.
TEST(WindowOutOfMemory, TheWindowClosesWithoutAny) {
  for (const VstInt32 opcode : {effEditClose, effClose}) {
    const End end = endOf([opcode] {
      Host host;
      if (!host.open() || !host.isAlive()) return End::wrong;
      {
        const FailingMemory memory(0, FailingMemory::Fails::allFromThere);
        host.send(opcode);
      }
      return host.becomesEmpty() ? End::done : End::wrong;
    });
    EXPECT_EQ(end, End::done) << opcode;
  }
}

// A pass that broke off leaves nothing that keeps the window from its end.
TEST(WindowOutOfMemory, TheWindowClosesAfterAPassWithoutMemory) {
  failEach([](long succeeding) {
    Host host;
    if (!host.open() || !host.isAlive()) return End::wrong;
    host.click();
    bool failed = false;
    {
      const FailingMemory memory(succeeding);
      host.send(effEditIdle);
      failed = memory.hasFailed();
    }
    if (!host.close() || !host.open() || !host.isAlive() || !host.close()) return End::wrong;
    host.send(effClose);
    return failed ? End::refused : End::done;
  });
}

// With a window more than the bank changes, and what has been taken stays taken. The one answer of "taken" that takes
// nothing is the rule's own: the copy of the bank that is read into cannot be made.
TEST(WindowOutOfMemory, AChunkIsTakenWholeOrNotAtAll) {
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
