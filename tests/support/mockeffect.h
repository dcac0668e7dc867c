// An effect and an editor whose operations tests expect.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "plugin/aeffeditor.h"
#include "plugin/audioeffect.h"
#include "tests/support/recordinghost.h"

class MockEffect : public AudioEffect {
 public:
  explicit MockEffect(audioMasterCallback host = RecordingHost::callback)
      : AudioEffect(host, 3, 7) {}
  ~MockEffect() override { died(); }

  MOCK_METHOD(void, died, ());
  MOCK_METHOD(void, open, (), (override));
  MOCK_METHOD(void, close, (), (override));
  MOCK_METHOD(void, suspend, (), (override));
  MOCK_METHOD(void, resume, (), (override));
  MOCK_METHOD(void, processReplacing, (float**, float**, VstInt32), (override));
  MOCK_METHOD(void, processDoubleReplacing, (double**, double**, VstInt32), (override));
  MOCK_METHOD(void, setParameter, (VstInt32, float), (override));
  MOCK_METHOD(float, getParameter, (VstInt32), (override));
  MOCK_METHOD(VstInt32, getProgram, (), (override));
  MOCK_METHOD(void, setProgram, (VstInt32), (override));
  MOCK_METHOD(void, setProgramName, (char*), (override));
  MOCK_METHOD(void, getProgramName, (char*), (override));
  MOCK_METHOD(void, getParameterLabel, (VstInt32, char*), (override));
  MOCK_METHOD(void, getParameterDisplay, (VstInt32, char*), (override));
  MOCK_METHOD(void, getParameterName, (VstInt32, char*), (override));
  MOCK_METHOD(VstInt32, getChunk, (void**, bool), (override));
  MOCK_METHOD(VstInt32, setChunk, (void*, VstInt32, bool), (override));

  VstIntPtr send(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                 float opt = 0.0F) {
    return getAeffect()->dispatcher(getAeffect(), opcode, index, value, ptr, opt);
  }
};

class MockEditor : public AEffEditor {
 public:
  using AEffEditor::AEffEditor;
  ~MockEditor() override { died(); }
  MOCK_METHOD(void, died, ());
  MOCK_METHOD(bool, getRect, (ERect**), (override));
  MOCK_METHOD(bool, open, (void*), (override));
  MOCK_METHOD(void, close, (), (override));
  MOCK_METHOD(void, idle, (), (override));
};

// An effect that does nothing but what is expected, and ends once; and its host.
class MockEffectTest : public testing::Test {
 protected:
  MockEffectTest() { EXPECT_CALL(effect, died()).Times(1); }

  RecordingHost host;
  testing::StrictMock<MockEffect> effect;
  char text[64] = "host's text";
};
