// What hosts see of an effect that can get no memory in the middle of a call.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <functional>

#include "plugin/createeffectinstance.h"
#include "tests/support/failingmemory.h"
#include "tests/support/imagebytes.h"
#include "tests/support/silenthost.h"

namespace {

using imagebytes::Bytes;

class OutOfMemory : public testing::Test {
 protected:
  ~OutOfMemory() override { send(effClose); }

  VstIntPtr send(VstInt32 opcode, VstIntPtr value = 0, void* ptr = nullptr) {
    return effect->dispatcher(effect, opcode, 0, value, ptr, 0.0F);
  }
  Bytes chunk() {
    void* data = nullptr;
    const VstIntPtr size = send(effGetChunk, 0, &data);
    const auto* bytes = static_cast<const unsigned char*>(data);
    return {bytes, bytes + size};
  }
  VstIntPtr setChunk(Bytes& data) { return send(effSetChunk, static_cast<VstIntPtr>(data.size()), data.data()); }

  // Calls again and again, each time with another allocation that fails, until none does. afterFailure gets what was
  // returned; where nothing is left undone the call has done what it is for.
  void failEach(const std::function<VstIntPtr()>& call, const std::function<void(VstIntPtr)>& afterFailure) {
    for (long succeeding = 0;; ++succeeding) {
      VstIntPtr answer = 0;
      bool failed = false;
      {
        const FailingMemory memory(succeeding);
        answer = call();
        failed = memory.hasFailed();
      }
      if (!failed) {
        EXPECT_GT(succeeding, 0) << "it allocates nothing: nothing was tested";
        return;
      }
      afterFailure(answer);
    }
  }

  AEffect* effect = createEffectRecord(silentHost);
};

TEST_F(OutOfMemory, GetChunkReturnsNothing) {
  const Bytes state = chunk();
  void* data = nullptr;
  failEach([&] { return send(effGetChunk, 0, &data); },
           [&](VstIntPtr size) {
             EXPECT_EQ(size, 0);
             EXPECT_EQ(chunk(), state);
           });
}

// A failing call leaves all as it was and says so, or has taken the chunk all the same. The one answer of "taken" that
// takes nothing is the rule's own: the copy of the bank that is read into cannot be made.
TEST_F(OutOfMemory, SetChunkRefusesAndKeepsTheBank) {
  Bytes before = chunk();
  imagebytes::Bank bank = imagebytes::distinctBank();
  bank[3].values[1] = 7.0F;  // repaired, and told on the standard error stream
  Bytes given = imagebytes::chunk(bank, 9);
  testing::internal::CaptureStderr();
  setChunk(given);
  const Bytes taken = chunk();
  EXPECT_NE(taken, before);
  int refused = 0;
  setChunk(before);
  failEach([&] { return setChunk(given); },
           [&](VstIntPtr answer) {
             const Bytes now = chunk();
             if (answer == -1) {
               ++refused;
               EXPECT_EQ(now, before);
             } else {
               EXPECT_EQ(answer, 0);
               EXPECT_TRUE(now == taken || now == before);
             }
             ASSERT_EQ(setChunk(before), 0);
           });
  testing::internal::GetCapturedStderr();
  EXPECT_GT(refused, 0);
}

// How the question about the window's size ends in a process of its own in which one allocation fails.
enum class End { refused, answered, byTheToolkit, wrong };

// The toolkit's factory is noexcept, so a single allocation that fails inside it ends the process: that is its own.
End endOfSizeQuestion(const std::function<bool(ERect**)>& ask, long succeeding) {
  const pid_t child = fork();
  if (child == 0) {
    std::set_terminate([] { _exit(static_cast<int>(End::byTheToolkit)); });
    ERect* rect = nullptr;
    bool answered = false;
    {
      const FailingMemory memory(succeeding);
      answered = ask(&rect);
    }
    const bool consistent = answered == (rect != nullptr);
    const bool later = ask(&rect) && rect != nullptr && rect->right > 0;
    if (!consistent || !later) _exit(static_cast<int>(End::wrong));
    _exit(static_cast<int>(answered ? End::answered : End::refused));
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? static_cast<End>(WEXITSTATUS(status)) : End::wrong;
}

// The toolkit is set up by the first question about the window, in as many tries as it takes.
TEST_F(OutOfMemory, TheWindowsSizeIsToldByALaterQuestion) {
  const auto ask = [this](ERect** rect) { return send(effEditGetRect, 0, rect) == 1; };
  EXPECT_EQ(endOfSizeQuestion(ask, 0), End::refused) << "before the toolkit is touched";
  EXPECT_EQ(endOfSizeQuestion(ask, 1), End::refused) << "the first thing in its set-up";
  int refused = 0;
  for (long succeeding = 0;; ++succeeding) {
    const End end = endOfSizeQuestion(ask, succeeding);
    ASSERT_NE(end, End::wrong) << succeeding;
    if (end == End::answered) break;
    if (end == End::refused) ++refused;
  }
  EXPECT_GT(refused, 8) << "the factory and eight fonts, at the least";
}

}  // namespace
