// The questions about the window that a host without a display can ask, also where memory runs out.
#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/module/instance.h"
#include "tests/support/eachfailure.h"
#include "tests/support/ownprocess.h"
#include "tests/support/silenthost.h"

namespace {

using Fails = FailingMemory::Fails;

// The toolkit is made ready once in a process, by the first question: so each is asked in a process
// of its own.
class EditorOutOfMemory : public ModuleTest {
 protected:
  VstIntPtr ask(ERect** rect) { return instance.send(effEditGetRect, 0, 0, rect); }

  // The window's size is told, whatever came before, and the instance is as it was.
  bool isAsItWas() {
    ERect* rect = nullptr;
    return ask(&rect) == 1 && rect != nullptr && rect->right == 302 && rect->bottom == 251 &&
           instance.chunk() == before;
  }

  // Twice in a row without memory, then with it.
  End endOfSizeQuestion(long succeeding, Fails fails) {
    bool failed = false;
    for (int time = 0; time < 2; ++time) {
      ERect nobodys{};
      ERect* rect = &nobodys;
      VstIntPtr answer = 0;
      {
        const FailingMemory memory(succeeding, fails);
        answer = ask(&rect);
        failed = failed || memory.hasFailed();
      }
      if (answer != (rect != nullptr ? 1 : 0) || rect == &nobodys) return End::wrong;
    }
    if (!isAsItWas()) return End::wrong;
    return failed ? End::refused : End::done;
  }

  End endOfOpening(long succeeding, Fails fails) {
    bool failed = false;
    for (int time = 0; time < 2; ++time) {
      const FailingMemory memory(succeeding, fails);
      const VstIntPtr answer = instance.send(effEditOpen, 0, 0, nowhere);
      failed = failed || memory.hasFailed();
      if (answer != 0) return End::wrong;
    }
    instance.send(effEditIdle);
    instance.send(effEditClose);
    if (!isAsItWas()) return End::wrong;
    return failed ? End::refused : End::done;
  }

  Instance instance{module, silentHost};
  imagebytes::Bytes before = instance.chunk();
  void* nowhere = reinterpret_cast<void*>(std::uintptr_t{1});  // a window of no display
};

TEST_F(EditorOutOfMemory, TheWindowsSizeIsToldByALaterQuestion) {
  const auto with = [this](long succeeding) {
    return endOf([&] { return endOfSizeQuestion(succeeding, Fails::one); });
  };
  EXPECT_EQ(with(0), End::refused) << "before the toolkit is touched";
  EXPECT_EQ(with(1), End::refused) << "the first thing in its set-up";
  for (const Fails fails : kBothWaysToFail) {
    const auto ending = [&](long succeeding) { return endOfSizeQuestion(succeeding, fails); };
    const int refused = failEachOwnProcess(ending);
    EXPECT_GT(refused, fails == Fails::one ? 8 : 0) << "the factory and eight fonts, at the least";
  }
}

TEST_F(EditorOutOfMemory, NoWindowOpensWithoutADisplay) {
  for (const Fails fails : kBothWaysToFail) {
    const auto ending = [&](long succeeding) { return endOfOpening(succeeding, fails); };
    EXPECT_GT(failEachOwnProcess(ending), 0);
  }
}

TEST(LoadingWithoutADisplay, OpensNoEditorAndSaysSo) {
  unsetenv("DISPLAY");
  RecordingHost host;
  LoadedModule module;
  Instance instance(module);
  EXPECT_EQ(instance.send(effEditOpen), 0);
  EXPECT_EQ(instance.send(effEditIdle), 0);
  EXPECT_EQ(instance.send(effEditClose), 0);
}

}  // namespace
