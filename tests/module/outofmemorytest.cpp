// Every call of a host that knows the record, with every one of its allocations failing.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "tests/module/instance.h"
#include "tests/module/request.h"
#include "tests/support/eachfailure.h"
#include "tests/support/silenthost.h"

namespace {

using imagebytes::Bytes;
using Fails = FailingMemory::Fails;

constexpr VstInt32 kOpcodes = 80;

class OutOfMemory : public ModuleTest {
 protected:
  OutOfMemory() { instance.setParameter(0, 0.25F); }

  // Returns how many allocations the request takes.
  long failEachOf(Request request) {
    const State before(instance);
    Request unharmed = request;
    Instance another(module, silentHost);
    EXPECT_EQ(another.setChunk(before.chunk), 0);
    unharmed.prepare();
    unharmed.ask(another);
    const State after(another);

    long most = 0;
    for (const Fails fails : kBothWaysToFail) {
      request.prepare();
      FailingCall asking;
      asking.call = [&] { request.ask(instance); };
      asking.afterFailure = [&] {
        const bool answered = request.isAnsweredAs(unharmed);
        const State now(instance);
        // Some can do without. Only a chunk may be called taken that is not: by the rule, where the
        // copy of the bank that is read into cannot be made.
        const bool done = answered && (now == after || now == before);
        EXPECT_TRUE(done || (request.isRefused() && now == before));
        EXPECT_EQ(instance.setChunk(before.chunk), 0);
        request.prepare();
      };
      asking.callOnceMore = [&] {
        request.ask(instance);
        EXPECT_TRUE(request.isAnsweredAs(unharmed));
        EXPECT_TRUE(State(instance) == after);
        EXPECT_EQ(instance.setChunk(before.chunk), 0);
        EXPECT_TRUE(State(instance) == before);
        request.prepare();
      };
      most = std::max(most, failEach(asking, fails));
      EXPECT_TRUE(request.isAnsweredAs(unharmed));
      EXPECT_TRUE(State(instance) == after);
      EXPECT_EQ(instance.setChunk(before.chunk), 0);
    }
    return most;
  }

  Instance instance{module, silentHost};
};

// Or nothing would be tested.
TEST_F(OutOfMemory, IsTheModulesWhereItIsTheTests) {
  AEffect* effect = nullptr;
  {
    const FailingMemory memory(0);
    effect = module.create(silentHost);
  }
  EXPECT_EQ(effect, nullptr);
}

// effClose and what makes the toolkit ready have tests of their own.
bool isTestedElsewhere(VstInt32 opcode) {
  return opcode == effClose || opcode == effEditGetRect || opcode == effEditOpen;
}

TEST_F(OutOfMemory, EveryOpcodeDoesItsWorkOrNothing) {
  for (VstInt32 opcode = 0; opcode < kOpcodes; ++opcode) {
    if (isTestedElsewhere(opcode)) continue;
    for (const VstInt32 index : {0, 1}) {
      for (const bool withPointer : {true, false}) {
        SCOPED_TRACE(testing::Message() << "opcode " << opcode << ", index " << index
                                        << (withPointer ? "" : ", without a pointer"));
        const long allocations = failEachOf(Request(opcode, index, withPointer));
        const bool isOfChunk = opcode == effGetChunk || opcode == effSetChunk;
        EXPECT_TRUE(allocations == 0 || (isOfChunk && withPointer)) << allocations;
        if (HasFailure()) return;
      }
    }
  }
}

// With a value that is repaired, which is told on the standard error stream.
TEST_F(OutOfMemory, EveryChunkIsTakenWholeOrNotAtAll) {
  imagebytes::Bank bank = imagebytes::distinctBank();
  bank[3].values[1] = 7.0F;
  testing::internal::CaptureStderr();
  for (const bool otherOrder : {false, true}) {
    failEachOf(Request(effSetChunk, 0, true, imagebytes::chunk(bank, 9, otherOrder)));
    failEachOf(Request(effSetChunk, 0, true, imagebytes::oldChunk(bank, 32, 5, 9, otherOrder)));
  }
  testing::internal::GetCapturedStderr();
}

// The audio thread's calls take none at all.
template <typename Sample>
void expectNoneIn(AEffect* effect, void (*process)(AEffect*, Sample**, Sample**, VstInt32)) {
  std::array<Sample, 64> left{};
  std::array<Sample, 64> right{};
  left[0] = 1;
  Sample* ins[] = {left.data(), right.data()};
  Sample* outs[] = {left.data(), right.data()};
  bool failed = false;
  {
    const FailingMemory memory(0, Fails::allFromThere);
    for (const VstInt32 frames : {0, 1, 63}) process(effect, ins, outs, frames);
    failed = memory.hasFailed();
  }
  EXPECT_FALSE(failed);
}

TEST_F(OutOfMemory, ParametersAndProcessingTakeNone) {
  AEffect* effect = instance.effect;
  for (const bool on : {false, true}) {
    instance.mainsChanged(on);
    float sum = 0.0F;
    bool failed = false;
    {
      const FailingMemory memory(0, Fails::allFromThere);
      for (VstInt32 index = -1; index < 9; ++index) {
        effect->setParameter(effect, index, 0.75F);
        sum += effect->getParameter(effect, index);
      }
      failed = memory.hasFailed();
    }
    EXPECT_FALSE(failed);
    EXPECT_EQ(sum, 6 * 0.75F) << "five parameters and the auxiliary one";
    expectNoneIn<float>(effect, effect->processReplacing);
    expectNoneIn<double>(effect, effect->processDoubleReplacing);
  }
}

}  // namespace
