// The window where memory runs out in the middle of a call.
#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include <string>

#include "scarcehost.h"
#include "tests/support/eachfailure.h"
#include "tests/support/ownprocess.h"

namespace {

using imagebytes::Bytes;

int failEach(const std::function<End(long succeeding)>& scenario) {
  return failEachOwnProcess(scenario, kStep);
}

}  // namespace

TEST(WindowOutOfMemory, TheWindowOpensLaterWhicheverAllocationFails) {
  for (const auto fails : kBothWaysToFail) {
    const int refused = failEach([fails](long succeeding) {
      ScarceHost host;
      const Bytes before = host.chunk();
      bool failed = false;
      for (int time = 0; time < 2; ++time) {
        bool opened = false;
        {
          const FailingMemory memory(succeeding, fails);
          opened = host.open();
          failed = failed || memory.hasFailed();
        }
        if (opened && !host.close()) return wrong("it does not close");
        if (!host.becomesEmpty()) return wrong("something is left of a window that did not open");
      }
      if (host.chunk() != before) return wrong("opening changed the state");
      if (!host.open()) return wrong("it does not open later");
      if (!host.isAlive()) return wrong("it is dead");
      if (!host.close()) return wrong("it does not close");
      host.send(effClose);
      return failed ? End::refused : End::done;
    });
    EXPECT_GT(refused * kStep, 100) << "each of its controls takes some";
  }
}

// An end takes no memory, neither of the window nor of the instance with its window.
TEST(WindowOutOfMemory, TheWindowClosesWithoutAny) {
  for (const VstInt32 opcode : {effEditClose, effClose}) {
    const End end = endOf([opcode] {
      ScarceHost host;
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
  for (const auto fails : kBothWaysToFail) {
    failEach([fails](long succeeding) {
      ScarceHost host;
      if (!host.open() || !host.isAlive()) return End::wrong;
      bool failed = false;
      for (int time = 0; time < 2; ++time) {
        host.click();
        const FailingMemory memory(succeeding, fails);
        const VstIntPtr answer = host.send(effEditIdle);
        failed = failed || memory.hasFailed();
        if (answer != 0) return End::wrong;
      }
      if (!host.close() || !host.open() || !host.isAlive() || !host.close()) return End::wrong;
      host.send(effClose);
      return failed ? End::refused : End::done;
    });
  }
}

// With a window more than the bank changes, and what has been taken stays taken. The one answer of
// "taken" that takes nothing is the rule's own: the copy of the bank that is read into
// cannot be made.
TEST(WindowOutOfMemory, AChunkIsTakenWholeOrNotAtAll) {
  for (const auto fails : kBothWaysToFail) {
    const int failures = failEach([fails](long succeeding) {
      ScarceHost host;
      const Bytes before = host.chunk();
      Bytes given = imagebytes::chunk(imagebytes::distinctBank(), 9);
      if (!host.open()) return End::wrong;
      bool everFailed = false;
      for (int time = 0; time < 2; ++time) {
        const Bytes old = host.chunk();
        VstIntPtr answer = 0;
        bool failed = false;
        {
          const FailingMemory memory(succeeding, fails);
          answer = host.send(effSetChunk, static_cast<VstIntPtr>(given.size()), given.data());
          failed = memory.hasFailed();
        }
        everFailed = everFailed || failed;
        const Bytes now = host.chunk();
        const bool refusedIt = answer == -1 && now == old;
        const bool tookIt = answer == 0 && (now == given || (failed && now == old));
        if ((!refusedIt && !tookIt) || (now != given && now != before)) return End::wrong;
      }
      const auto size = static_cast<VstIntPtr>(given.size());
      if (host.send(effSetChunk, size, given.data()) != 0) return wrong("it is refused later");
      if (host.chunk() != given) return wrong("it is not taken later");
      if (!host.isAlive() || !host.close()) return End::wrong;
      host.send(effClose);
      return everFailed ? End::refused : End::done;
    });
    EXPECT_GT(failures, 0);
  }
}

// Keys, names and questions while the window is open.
TEST(WindowOutOfMemory, EveryOtherCallLeavesTheWindowAlive) {
  struct Call {
    VstInt32 opcode;
    VstInt32 index;
    VstIntPtr value;
  };
  constexpr VstIntPtr kReturn = 4;  // the interface's virtual key
  const Call calls[] = {
      {effSetProgramName, 0, 0},  {effSetProgram, 0, 0},      {effEditGetRect, 0, 0},
      {effEditKeyDown, 'a', 0},   {effEditKeyUp, 'a', 0},     {effEditKeyDown, 0, kReturn},
      {effEditKeyUp, 0, kReturn}, {effSetEditKnobMode, 0, 1}, {effGetChunk, 0, 0},
  };
  for (const auto fails : kBothWaysToFail) {
    failEach([&calls, fails](long succeeding) {
      ScarceHost host;
      if (!host.open()) return wrong("it does not open");
      char name[] = "a name of three words";
      bool everFailed = false;
      for (const Call& call : calls) {
        void* reply = nullptr;
        void* ptr = call.opcode == effSetProgramName ? static_cast<void*>(name) : &reply;
        for (int time = 0; time < 2; ++time) {
          const FailingMemory memory(succeeding, fails);
          const VstIntPtr answer = host.send(call.opcode, call.value, ptr, call.index);
          const bool failed = memory.hasFailed();
          everFailed = everFailed || failed;
          if (failed && answer != 0) return wrong("it failed and says otherwise");
        }
      }
      if (!host.isAlive()) return wrong("it is dead");
      if (!host.close()) return wrong("it does not close");
      host.send(effClose);
      return everFailed ? End::refused : End::done;
    });
  }
}

// A label that took itself for being edited swallowed every press until the window was closed.
TEST(WindowOutOfMemory, ANameIsEditedAfterAnEntryThatCouldNotBeginOrEnd) {
  for (const bool atTheEnd : {false, true}) {
    const int failures = failEach([atTheEnd](long succeeding) {
      ScarceHost host;
      if (!host.open() || !host.isAlive()) return wrong("it does not open");
      host.click(places::kName);
      if (atTheEnd) {
        host.send(effEditIdle);
        // a text that lies outside of its string
        for (std::size_t letter = 0; letter <= std::string().capacity(); ++letter)
          host.tap(XKB_KEY_y);
        host.send(effEditIdle);
        host.tap(XKB_KEY_Return);
      }
      bool failed = false;
      {
        const FailingMemory memory(succeeding);
        host.send(effEditIdle);
        failed = memory.hasFailed();
      }
      host.click(places::kName);
      host.send(effEditIdle);
      host.tap(XKB_KEY_x);
      host.tap(XKB_KEY_Return);
      const auto isEdited = [&host] { return host.programName().find('x') != std::string::npos; };
      if (!host.idleUntil(isEdited)) return wrong("the name is not edited");
      if (!host.close()) return wrong("it does not close");
      host.send(effClose);
      return failed ? End::refused : End::done;
    });
    EXPECT_GT(failures, 0) << atTheEnd;
  }
}

// A list that the frame had taken without telling its number could never be left.
TEST(WindowOutOfMemory, ThePresetListIsUsedAfterAPressThatCouldNotOpenIt) {
  const int failures = failEach([](long succeeding) {
    ScarceHost host;
    if (!host.open() || !host.isAlive()) return wrong("it does not open");
    host.click(places::kMenu);
    bool failed = false;
    {
      const FailingMemory memory(succeeding);
      host.send(effEditIdle);
      failed = memory.hasFailed();
    }
    host.send(effEditIdle);  // keys are the host's until the list is open
    host.tap(XKB_KEY_Escape);
    host.send(effEditIdle);
    const std::string before = host.programName();
    for (const Area& place : {places::kMenu, places::listEntry(9)}) {
      host.click(place);
      host.send(effEditIdle);
    }
    const auto isChosen = [&] { return host.programName() != before; };
    if (!host.idleUntil(isChosen)) return wrong("no preset is chosen");
    if (!host.isAlive()) return wrong("the list keeps the mouse");
    if (!host.close()) return wrong("it does not close");
    host.send(effClose);
    return failed ? End::refused : End::done;
  });
  EXPECT_GT(failures, 0);
}

// Hosts set parameters from any thread while the window shows them.
TEST(WindowOutOfMemory, ParametersTakeNone) {
  const End end = endOf([] {
    ScarceHost host;
    if (!host.open()) return End::wrong;
    bool failed = false;
    {
      const FailingMemory memory(0, FailingMemory::Fails::allFromThere);
      for (VstInt32 index = 0; index < 7; ++index) {
        host.setParameter(index, 0.75F);
        if (index != 5 && host.parameter(index) != 0.75F) return End::wrong;
      }
      failed = memory.hasFailed();
    }
    return !failed && host.isAlive() && host.close() ? End::done : End::wrong;
  });
  EXPECT_EQ(end, End::done);
}
