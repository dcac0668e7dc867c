// The run loop that idle passes drive: what waits for a pump's end, where memory has run out.
#include "editor/base/linux/idlerunloop.h"

#include <gtest/gtest.h>

#include <new>
#include <vector>

#include "tests/support/failingmemory.h"
#include "vstgui.h"

namespace {

class RunLoop : public testing::Test {
 protected:
  static constexpr int kEnds = 100;  // more than there was ever room kept for

  // Ends of windows, each of which notes its number.
  std::vector<IdleRunLoop::Actions> ends() {
    std::vector<IdleRunLoop::Actions> made(kEnds);
    ended.reserve(kEnds);
    for (int number = 0; number < kEnds; ++number) {
      made[static_cast<std::size_t>(number)].emplace_back(
          [this, number] { ended.push_back(number); });
    }
    return made;
  }

  VSTGUI::SharedPointer<IdleRunLoop> loop = VSTGUI::makeOwned<IdleRunLoop>();
  std::vector<int> ended;
};

TEST_F(RunLoop, TakesEndsFromInsideAPumpWithoutAnyMemory) {
  auto waiting = ends();
  std::size_t early = 0;
  loop->during([&] {
    const FailingMemory memory(0, FailingMemory::Fails::allFromThere);
    for (IdleRunLoop::Actions& end : waiting) loop->runOutsidePump(std::move(end));
    early = ended.size();
  });
  EXPECT_EQ(early, 0U);
  ASSERT_EQ(ended.size(), waiting.size());
  for (int number = 0; number < kEnds; ++number)
    EXPECT_EQ(ended[static_cast<std::size_t>(number)], number);
}

TEST_F(RunLoop, RunsAnEndAtOnceOutsideAPump) {
  auto waiting = ends();
  loop->runOutsidePump(std::move(waiting[7]));
  EXPECT_EQ(ended, std::vector<int>{7});
}

TEST_F(RunLoop, AnEndThatRunsOutOfMemoryKeepsNoOtherFromIt) {
  auto waiting = ends();
  IdleRunLoop::Actions failing;
  failing.emplace_back([] { throw std::bad_alloc(); });
  loop->during([&] {
    loop->runOutsidePump(std::move(failing));
    loop->runOutsidePump(std::move(waiting[3]));
  });
  EXPECT_EQ(ended, std::vector<int>{3});
  IdleRunLoop::Actions failingAtOnce;
  failingAtOnce.emplace_back([] { throw std::bad_alloc(); });
  loop->runOutsidePump(std::move(failingAtOnce));  // from a destructor
}

}  // namespace
