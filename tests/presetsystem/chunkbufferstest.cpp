// The memory of the host's chunks: a buffer for each thread that asks.
#include "presetsystem/store/chunkbuffers.h"

#include <gtest/gtest.h>

#include <atomic>
#include <vector>

namespace {

ChunkBuffers::Buffer* ofAnotherThread(ChunkBuffers& buffers) {
  ChunkBuffers::Buffer* given = nullptr;
  std::thread([&] { given = &buffers.ofThisThread(); }).join();
  return given;
}

// Threads that are all there at once: an ended one's number may be given to the next.
class Askers {
 public:
  explicit Askers(ChunkBuffers& asked) : buffers(asked) {}
  ~Askers() {
    ended = true;
    ended.notify_all();
    for (std::thread& thread : threads) thread.join();
  }
  Askers(const Askers&) = delete;
  Askers& operator=(const Askers&) = delete;

  ChunkBuffers::Buffer* newOne() {
    std::atomic<ChunkBuffers::Buffer*> given{nullptr};
    threads.emplace_back([this, &given] {
      given = &buffers.ofThisThread();
      given.notify_one();
      ended.wait(false);
    });
    given.wait(nullptr);
    return given;
  }

 private:
  ChunkBuffers& buffers;
  std::atomic<bool> ended{false};
  std::vector<std::thread> threads;
};

TEST(ChunkBuffers, GiveOneThreadTheSameAgain) {
  ChunkBuffers buffers;
  ChunkBuffers::Buffer* mine = &buffers.ofThisThread();
  EXPECT_EQ(&buffers.ofThisThread(), mine);
  EXPECT_NE(ofAnotherThread(buffers), mine);
  EXPECT_EQ(&buffers.ofThisThread(), mine);
}

TEST(ChunkBuffers, GiveFourThreadsOneEachAndAFifthTheOneThatWasAskedForLongestAgo) {
  ChunkBuffers buffers;
  Askers askers(buffers);
  std::vector<ChunkBuffers::Buffer*> given;
  for (int thread = 0; thread < 3; ++thread) given.push_back(askers.newOne());
  ChunkBuffers::Buffer* mine = &buffers.ofThisThread();
  for (std::size_t one = 0; one < given.size(); ++one) {
    EXPECT_NE(given[one], mine);
    EXPECT_NE(given[one], given[(one + 1) % given.size()]);
  }
  EXPECT_EQ(askers.newOne(), given[0]);
  EXPECT_EQ(askers.newOne(), given[1]);
  EXPECT_EQ(&buffers.ofThisThread(), mine);
}

}  // namespace
