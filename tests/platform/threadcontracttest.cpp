// The checks of threads: what they let pass, what ends the process, and that nothing is left of
// them elsewhere.
#include "platform/threadcontract.h"

#include <gtest/gtest.h>

#include <future>
#include <type_traits>

namespace {

template <typename Work>
void onAnotherThread(Work&& work) {
  std::thread(work).join();
}

using Processing = ProcessingContractOf<true>;
using Window = WindowContractOf<true>;

TEST(ProcessingContract, LetsOneThreadProcessAfterTheOther) {
  Processing contract;
  contract.enter("process");
  contract.leave();
  onAnotherThread([&] {
    contract.enter("process");
    contract.leave();
  });
  contract.enter("suspend");
  contract.leave();
}

TEST(ProcessingContract, LetsAHostCallAgainFromInsideACall) {
  Processing contract;
  contract.enter("process");
  contract.enter("process");
  contract.enter("suspend");
  contract.leave();
  contract.leave();
  EXPECT_DEATH(onAnotherThread([&] { contract.enter("process"); }), "")
      << "the outer call is still there";
  contract.leave();
  onAnotherThread([&] {
    contract.enter("suspend");
    contract.leave();
  });
}

TEST(ProcessingContract, EndsTheProcessForASecondThread) {
  EXPECT_DEATH(
      {
        Processing contract;
        contract.enter("process");
        onAnotherThread([&] { contract.enter("process"); });
      },
      "process: another thread is processing");
}

TEST(ProcessingContract, EndsTheProcessForAResetMeanwhile) {
  EXPECT_DEATH(
      {
        Processing contract;
        contract.enter("process");
        onAnotherThread([&] { contract.enter("suspend"); });
      },
      "suspend: another thread is processing");
}

TEST(ProcessingContract, EndsTheProcessForABlockDuringAReset) {
  EXPECT_DEATH(
      {
        Processing contract;
        contract.enter("resume");
        onAnotherThread([&] { contract.enter("process"); });
      },
      "process: another thread is processing or switching on or off");
}

TEST(WindowContract, BelongsToTheThreadThatOpenedItAndToNobodyAfterwards) {
  Window contract;
  onAnotherThread([&] { contract.ensure("idle"); });
  contract.opened();
  contract.ensure("idle");
  contract.closed();
  onAnotherThread([&] { contract.ensure("idle"); });
}

TEST(WindowContract, EndsTheProcessForAnyOtherThread) {
  EXPECT_DEATH(
      {
        Window contract;
        contract.opened();
        onAnotherThread([&] { contract.ensure("idle"); });
      },
      "idle: the window belongs to another thread");
}

TEST(ThreadContracts, TakeNoRoomWhereTheyAreNotChecked) {
  EXPECT_TRUE(std::is_empty_v<ProcessingContractOf<false>>);
  EXPECT_TRUE(std::is_empty_v<WindowContractOf<false>>);
}

}  // namespace
