// What tooltips take of the memory while none is shown.
#include "controltest.h"
#include "editor/controls/tooltips.h"
#include "tests/support/failingmemory.h"
#include "vstgui.h"

namespace {

using namespace controltest;

class TooltipsMemory : public ControlTest {};

TEST_F(TooltipsMemory, PassesThatShowNoneTakeNothing) {
  add(new VSTGUI::COnOffButton(CRect(20, 214, 60, 228), nullptr, 1, nullptr));
  std::uint64_t now = 0;  // ms
  Tooltips tips(
      *root->getFrame(), *root, [](std::int32_t) { return std::string(100, 'x'); },
      [] { return true; });
  tips.setClock([&now] { return now; });
  for (const CPoint where : {CPoint(150, 100), CPoint(40, 220)}) {
    move(where);
    const FailingMemory memory(0, FailingMemory::Fails::allFromThere);
    for (; now % 1000 < 690; now += 10) tips.idle();
    EXPECT_FALSE(memory.hasFailed());
    now = 1000;
  }
}

}  // namespace
