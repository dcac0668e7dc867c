// What an effect may ask of its host: the size of its window.
#include "host/vst/hostcallback.h"

#include <gtest/gtest.h>

namespace {

// Asks as an effect does whose record knows its host.
VstIntPtr askForSize(HostCallback& callback, VstInt32 width, VstIntPtr height) {
  AEffect record{};
  record.resvd1 = reinterpret_cast<VstIntPtr>(&callback);
  return HostCallback::entry(&record, audioMasterSizeWindow, width, height, nullptr, 0.0F);
}

}  // namespace

TEST(HostCallback, RefusesASizeWhereThereIsNoWindow) {
  HostCallback callback;
  EXPECT_EQ(askForSize(callback, 640, 480), 0);
  EXPECT_FALSE(callback.takeWindowSize());
}

TEST(HostCallback, HandsOutTheLastSizeOnce) {
  HostCallback callback;
  callback.setHasWindow(true);
  EXPECT_FALSE(callback.takeWindowSize()) << "nothing was asked";
  EXPECT_EQ(askForSize(callback, 640, 480), 1);
  EXPECT_EQ(askForSize(callback, 800, 600), 1);
  const auto size = callback.takeWindowSize();
  ASSERT_TRUE(size);
  EXPECT_EQ(size->width, 800);
  EXPECT_EQ(size->height, 600);
  EXPECT_FALSE(callback.takeWindowSize()) << "taken";
}

TEST(HostCallback, RefusesASizeThatNoWindowHas) {
  HostCallback callback;
  callback.setHasWindow(true);
  EXPECT_EQ(askForSize(callback, 0, 480), 0);
  EXPECT_EQ(askForSize(callback, 640, -1), 0);
  EXPECT_FALSE(callback.takeWindowSize());
}
