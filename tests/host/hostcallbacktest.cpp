// What an effect may ask of its host: the size of its window, who processes how, and where in time.
#include "host/vst/hostcallback.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

VstIntPtr ask(HostCallback& callback, VstInt32 opcode) {
  AEffect record{};
  record.resvd1 = reinterpret_cast<VstIntPtr>(&callback);
  return HostCallback::entry(&record, opcode, 0, 0, nullptr, 0.0F);
}

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
  EXPECT_EQ(askForSize(callback, 32768, 480), 0) << "a system's sizes have 16 bits, and a sign";
  EXPECT_EQ(askForSize(callback, 640, 32768), 0);
  EXPECT_FALSE(callback.takeWindowSize());
}

// 1: a thread that does not process, 2: the one that does, while it is heard, 4: not in real time.
TEST(HostCallback, TellsTheThreadThatPlaysFromTheOthers) {
  HostCallback callback;
  EXPECT_EQ(ask(callback, audioMasterGetCurrentProcessLevel), 1);
  callback.setProcessing(true);
  EXPECT_EQ(ask(callback, audioMasterGetCurrentProcessLevel), 4) << "on whatever thread";
  callback.setRealTime(true);
  std::thread([&] {
    EXPECT_EQ(ask(callback, audioMasterGetCurrentProcessLevel), 1) << "not known yet";
    callback.processOnThisThread();
    EXPECT_EQ(ask(callback, audioMasterGetCurrentProcessLevel), 2);
  }).join();
  EXPECT_EQ(ask(callback, audioMasterGetCurrentProcessLevel), 1);
  callback.setProcessing(false);
  EXPECT_EQ(ask(callback, audioMasterGetCurrentProcessLevel), 1);
}

// Who asks beside the thread that plays does not get that one's record written over.
TEST(HostCallback, HasARecordOfTheTimeForTheThreadThatPlays) {
  HostCallback callback;
  callback.setSampleRate(44100.0);
  callback.setRealTime(true);
  const auto time = [&] {
    return reinterpret_cast<VstTimeInfo*>(ask(callback, audioMasterGetTime));
  };
  const VstTimeInfo* here = time();
  std::thread([&] {
    callback.processOnThisThread();
    callback.setPosition(512);
    const VstTimeInfo* there = time();
    EXPECT_NE(there, here);
    EXPECT_EQ(there->samplePos, 512.0);
    EXPECT_EQ(there->sampleRate, 44100.0);
  }).join();
  EXPECT_EQ(time(), here);
  EXPECT_EQ(here->samplePos, 512.0);
}
