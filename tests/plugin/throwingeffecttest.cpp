// What the host sees of operations that throw.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "tests/support/mockeffect.h"

namespace {

using testing::StrictMock;
using testing::Throw;

using ThrowingEffect = MockEffectTest;

// Hosts are not compiled to be unwound, so nothing that an operation throws may reach them.
TEST_F(ThrowingEffect, AnswersThatItCannot) {
  const auto noMemory = Throw(std::bad_alloc());
  void* data = nullptr;
  ERect* rect = nullptr;
  auto* editor = new StrictMock<MockEditor>(&effect);
  effect.setEditor(editor);
  EXPECT_CALL(effect, open()).WillOnce(noMemory);
  EXPECT_CALL(effect, getProgram()).WillOnce(noMemory);
  EXPECT_CALL(effect, setProgramName(text)).WillOnce(noMemory);
  EXPECT_CALL(effect, getParameterDisplay(1, text)).WillOnce(noMemory);
  EXPECT_CALL(effect, resume()).WillOnce(Throw(std::runtime_error("of another kind")));
  EXPECT_CALL(effect, getChunk(&data, false)).WillOnce(noMemory);
  EXPECT_CALL(effect, setChunk(text, 21, false)).WillOnce(noMemory);
  EXPECT_CALL(*editor, getRect(&rect)).WillOnce(noMemory);
  EXPECT_CALL(*editor, open(text)).WillOnce(Throw(7));
  EXPECT_CALL(*editor, close()).WillOnce(noMemory);
  EXPECT_CALL(*editor, idle()).WillOnce(noMemory);
  EXPECT_CALL(*editor, died());
  EXPECT_EQ(effect.send(effOpen), 0);
  EXPECT_EQ(effect.send(effGetProgram), 0);
  EXPECT_EQ(effect.send(effSetProgramName, 0, 0, text), 0);
  EXPECT_EQ(effect.send(effGetParamDisplay, 1, 0, text), 0);
  EXPECT_EQ(effect.send(effMainsChanged, 0, 1), 0);
  EXPECT_EQ(effect.send(effGetChunk, 0, 0, &data), 0);
  EXPECT_EQ(effect.send(effSetChunk, 0, 21, text), -1);
  EXPECT_EQ(effect.send(effEditGetRect, 0, 0, &rect), 0);
  EXPECT_EQ(effect.send(effEditOpen, 0, 0, text), 0);
  EXPECT_EQ(effect.send(effEditClose), 0);
  EXPECT_EQ(effect.send(effEditIdle), 0);
}

TEST_F(ThrowingEffect, KeepsToItselfWhatIsThrownInTheRecordsOtherEntries) {
  const auto noMemory = Throw(std::bad_alloc());
  EXPECT_CALL(effect, setParameter(2, 0.5F)).WillOnce(noMemory);
  EXPECT_CALL(effect, getParameter(3)).WillOnce(noMemory);
  EXPECT_CALL(effect, processReplacing(nullptr, nullptr, 64)).WillOnce(noMemory);
  EXPECT_CALL(effect, processDoubleReplacing(nullptr, nullptr, 64)).WillOnce(noMemory);
  AEffect* record = effect.getAeffect();
  record->setParameter(record, 2, 0.5F);
  EXPECT_EQ(record->getParameter(record, 3), 0.0F);
  record->processReplacing(record, nullptr, nullptr, 64);
  record->processDoubleReplacing(record, nullptr, nullptr, 64);
}

TEST(ThrowingEffectAtItsEnd, IsDeletedAndAnswers1) {
  RecordingHost host;
  auto* effect = new StrictMock<MockEffect>;
  EXPECT_CALL(*effect, close()).WillOnce(Throw(std::bad_alloc()));
  EXPECT_CALL(*effect, died());
  EXPECT_EQ(effect->send(effClose), 1);
}

}  // namespace
