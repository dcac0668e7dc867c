// The checks that an effect's record must pass.
#include "host/vst/effectrecord.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "host/base/failure.h"

namespace {

using testing::HasSubstr;

AEffect sound() {
  AEffect record{};
  record.magic = kEffectMagic;
  record.dispatcher = [](AEffect*, VstInt32, VstInt32, VstIntPtr, void*, float) -> VstIntPtr {
    return 0;
  };
  record.setParameter = [](AEffect*, VstInt32, float) {};
  record.getParameter = [](AEffect*, VstInt32) { return 0.0F; };
  record.numInputs = 2;
  record.numOutputs = 2;
  record.numParams = 5;
  record.numPrograms = 1;
  return record;
}

std::string refusalOf(const std::function<void(AEffect&)>& spoil) {
  AEffect record = sound();
  spoil(record);
  try {
    checkEffectRecord(&record, "x.so");
  } catch (const Failure& failure) {
    EXPECT_THAT(failure.what(), HasSubstr("x.so: "));
    return failure.what();
  }
  return "accepted";
}

}  // namespace

TEST(EffectRecord, PassesWhenItIsSound) {
  EXPECT_EQ(refusalOf([](AEffect&) {}), "accepted");
  EXPECT_EQ(refusalOf([](AEffect& r) { r.numParams = r.numPrograms = 0; }), "accepted");
  EXPECT_EQ(refusalOf([](AEffect& r) { r.initialDelay = 4096; }), "accepted");
}

TEST(EffectRecord, IsRefusedWhenThereIsNone) {
  EXPECT_THROW(checkEffectRecord(nullptr, "x.so"), Failure);
}

TEST(EffectRecord, IsRefusedForNonsense) {
  EXPECT_THAT(refusalOf([](AEffect& r) { r.magic = 0; }), HasSubstr("not a VST effect"));
  EXPECT_THAT(refusalOf([](AEffect& r) { r.dispatcher = nullptr; }), HasSubstr("no dispatcher"));
  EXPECT_THAT(refusalOf([](AEffect& r) { r.numInputs = -1; }), HasSubstr("-1 inputs"));
  EXPECT_THAT(refusalOf([](AEffect& r) { r.numOutputs = 257; }), HasSubstr("257 outputs"));
  EXPECT_THAT(refusalOf([](AEffect& r) { r.numParams = std::numeric_limits<VstInt32>::max(); }),
              HasSubstr("2147483647 parameters"));
  EXPECT_THAT(refusalOf([](AEffect& r) { r.numPrograms = -2; }), HasSubstr("-2 programs"));
  EXPECT_THAT(refusalOf([](AEffect& r) { r.initialDelay = -1; }),
              HasSubstr("-1 frames of latency"));
  EXPECT_THAT(refusalOf([](AEffect& r) { r.getParameter = nullptr; }),
              HasSubstr("no way to reach"));
}
