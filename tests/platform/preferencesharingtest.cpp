// Tests of the preferences under many threads and processes, and under writers that are killed.
#include <algorithm>
#include <atomic>
#include <csignal>
#include <random>
#include <thread>

#include "tests/support/preferencestoretest.h"

namespace {

constexpr int kWriters = 6;
constexpr int kWrites = 20;  // by each

std::string keyOf(int writer, int write) {
  return "W" + std::to_string(writer) + "N" + std::to_string(write);
}

class PreferenceSharing : public Preferences {
 protected:
  static void writeAll(int writer) {
    for (int write = 0; write < kWrites; ++write)
      store(keyOf(writer, write).c_str(), keyOf(writer, write));
  }
  static void expectAll() {
    for (int writer = 0; writer < kWriters; ++writer) {
      for (int write = 0; write < kWrites; ++write)
        EXPECT_EQ(stored(keyOf(writer, write)), keyOf(writer, write));
    }
  }
};

TEST_F(PreferenceSharing, LosesNothingWhenManyThreadsWriteAtOnce) {
  std::vector<std::thread> threads;
  for (int writer = 0; writer < kWriters; ++writer)
    threads.emplace_back([writer] { writeAll(writer); });
  for (std::thread& thread : threads) thread.join();
  expectAll();
}

TEST_F(PreferenceSharing, LosesNothingWhenManyProcessesWriteAtOnce) {
  std::vector<pid_t> processes;
  for (int writer = 0; writer < kWriters; ++writer) {
    processes.push_back(inProcess([writer] { writeAll(writer); }));
  }
  for (const pid_t process : processes) EXPECT_TRUE(succeeded(process));
  expectAll();
}

TEST_F(PreferenceSharing, ShowsReadersWholeFilesWhileOthersWrite) {
  store("First", "0");
  store("Second", "0");
  std::atomic<bool> done{false};
  std::thread writer([&] {
    for (int round = 0; round < 100; ++round) {
      PreferenceStore preferences(kId);
      const std::string value(1 + static_cast<std::size_t>(round) * 100,
                              static_cast<char>('a' + round % 26));
      preferences.setBytes("First", value.data(), value.size());
      preferences.setBytes("Second", value.data(), value.size());
      EXPECT_TRUE(preferences.synchronise());
    }
    done = true;
  });
  int readings = 0;
  while (!done) {
    const PreferenceStore preferences(kId);
    std::vector<unsigned char> first, second;
    EXPECT_TRUE(preferences.getBytes("First", first));
    EXPECT_TRUE(preferences.getBytes("Second", second));
    EXPECT_EQ(first, second);
    ++readings;
  }
  writer.join();
  EXPECT_GT(readings, 0);
}

TEST_F(PreferenceSharing, SurvivesWritersThatAreKilled) {
  constexpr int kRounds = 100;
  std::mt19937 random(1);
  std::uniform_int_distribution<int> microseconds(200, 15000);
  int cutShort = 0;
  for (int round = 0; round < kRounds; ++round) {
    const pid_t writer = inProcess([&] {
      for (int write = 0;; ++write) {
        const std::string value(5000, static_cast<char>('a' + (round + write) % 26));
        PreferenceStore preferences(kId);
        preferences.setBytes("First", value.data(), value.size());
        preferences.setBytes("Second", value.data(), value.size());
        preferences.synchronise();
      }
    });
    std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
    kill(writer, SIGKILL);
    waitpid(writer, nullptr, 0);
    const std::string first = stored("First");
    EXPECT_EQ(first, stored("Second"));
    if (first != "missing") {
      EXPECT_EQ(first, std::string(5000, first[0]));
    }
    if (std::filesystem::exists(file() + ".new")) ++cutShort;
  }
  // The file is whole, nothing piles up, and the next writer goes on.
  EXPECT_GT(cutShort, 0) << "no writer was killed while it wrote: the test has shown nothing";
  store("Third", "value");
  EXPECT_EQ(stored("First"), stored("Second"));
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder()))
    names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (std::vector<std::string>{"product.conf", "product.conf.lock"}));
}

}  // namespace
