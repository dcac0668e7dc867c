// Files that the user saves while memory runs out: the old content or the new one, no file left
// beside it and none left open.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <new>
#include <string>

#include "platform/savedfile.h"
#include "tests/support/failingmemory.h"
#include "tests/support/fulldisk.h"
#include "tests/support/ownprocess.h"
#include "tests/support/temporaryfolder.h"

namespace {

namespace fs = std::filesystem;

const std::string kNew(10537, 'n');
const std::string kOld(5004, 'o');
constexpr char kName[] = "a file with a long name.orv";
constexpr std::size_t kRoom = 9000;  // bytes: enough for the old content

// The number that the next file gets which is opened.
int nextDescriptor() {
  const int next = dup(STDIN_FILENO);
  close(next);
  return next;
}

enum class Names { one, two };
enum class Room { enough, notEnough };

// `succeeding` allocations are left.
End save(long succeeding, FailingMemory::Fails fails, Names names, Room room) {
  const TemporaryFolder folder;
  const std::string inFolder = folder.path + "/";
  const std::string file = inFolder + kName;
  const std::size_t entries = names == Names::two ? 2 : 1;
  writeFile(file, kOld);
  if (names == Names::two) fs::create_hard_link(file, inFolder + "second");
  const FullDisk disk(room == Room::enough ? kNew.size() : kRoom);
  const int before = nextDescriptor();
  bool thrown = false, saved = false, failed = false;
  {
    const FailingMemory failing(succeeding, fails);
    try {
      saved = saveFile(kName, inFolder.c_str(), reinterpret_cast<const unsigned char*>(kNew.data()),
                       kNew.size());
    } catch (const std::bad_alloc&) {
      thrown = true;
    }
    failed = failing.hasFailed();
  }
  if (nextDescriptor() != before) return wrong("a file stayed open");
  if (contentOf(file) != (saved ? kNew : kOld)) return wrong("the content is not as it was said");
  std::size_t found = 0;
  for (const auto& entry : fs::directory_iterator(folder.path)) found += entry.exists() ? 1 : 0;
  if (found != entries) return wrong("a file was left beside it");
  if (!failed && saved != (room == Room::enough)) return wrong("it was not saved");
  if (!failed) return End::done;
  return thrown ? End::refused : wrong("nothing was thrown");
}

TEST(SavedFileWithoutMemory, IsTheOldOneWhole) {
  for (const auto fails : {FailingMemory::Fails::one, FailingMemory::Fails::allFromThere}) {
    for (const Names names : {Names::one, Names::two}) {
      for (const Room room : {Room::enough, Room::notEnough}) {
        for (long succeeding = 0;; ++succeeding) {
          const End end = endOf([&] { return save(succeeding, fails, names, room); });
          ASSERT_NE(end, End::wrong) << "after " << succeeding << " allocations";
          ASSERT_NE(end, End::terminated) << "after " << succeeding << " allocations";
          if (end != End::done) continue;
          EXPECT_GT(succeeding, 2) << "allocations that failed";
          break;
        }
      }
    }
  }
}

}  // namespace
