// Frames that another thread looks at.
#include "host/plot/framesaside.h"

#include <gtest/gtest.h>

#include <new>
#include <thread>
#include <vector>

TEST(FramesAside, AreAllLookedAtInOrderByAnotherThread) {
  constexpr int kFrames = 300001;
  std::vector<float> mids;
  std::vector<float> sides;
  std::thread::id looker;
  FramesAside aside([&](const float* m, const float* s, int frames) {
    looker = std::this_thread::get_id();
    mids.insert(mids.end(), m, m + frames);
    sides.insert(sides.end(), s, s + frames);
  });
  for (int i = 0; i < kFrames; ++i) {
    const double mid = i;
    const double side = -i;
    aside.add(&mid, &side, 1);
  }
  aside.finish();
  ASSERT_EQ(mids.size(), static_cast<std::size_t>(kFrames));
  EXPECT_NE(looker, std::this_thread::get_id());
  for (int i = 0; i < kFrames; ++i) {
    ASSERT_EQ(mids[static_cast<std::size_t>(i)], static_cast<float>(i));
    ASSERT_EQ(sides[static_cast<std::size_t>(i)], static_cast<float>(-i));
  }
  aside.finish();
  EXPECT_EQ(mids.size(), static_cast<std::size_t>(kFrames)) << "none twice";
}

TEST(FramesAside, TellTheCallerWhatTheOtherThreadThrew) {
  FramesAside aside([](const float*, const float*, int) { throw std::bad_alloc(); });
  const double frame = 0.5;
  aside.add(&frame, &frame, 1);
  EXPECT_THROW(aside.finish(), std::bad_alloc);
}
