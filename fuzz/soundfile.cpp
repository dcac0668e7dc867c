// Fuzz target: sound files of any bytes, read as widen reads them, from a file and through a pipe.
#include <fcntl.h>
#include <unistd.h>

#include <bit>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/inputreader.h"
#include "fuzz/memoryfile.h"
#include "fuzz/oggpages.h"
#include "fuzz/require.h"
#include "host/base/failure.h"
#include "host/sound/completeness.h"
#include "host/sound/soundreader.h"

// The libraries keep what they have made of a header in which they find a fault later.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libvorbis.so\nleak:libsndfile.so\n";
}

namespace {

using Bytes = std::vector<unsigned char>;

constexpr std::size_t kMostFrames = 1 << 16;  // that are read of one input; a few bytes may be many
constexpr std::size_t kPipeHolds = 1 << 16;   // bytes, without anybody who reads

// What came of a file: its sound, or why there is none.
struct Outcome {
  std::string refusal;                 // without the file's name
  std::vector<std::uint64_t> samples;  // bits, for a NaN is not itself
  bool operator==(const Outcome&) const = default;
};

void requireSoundHeader(const SoundReader& reader) {
  require(reader.channels() == 1 || reader.channels() == 2, "it is mono or stereo");
  require(reader.sampleRate() > 0, "it has a rate");
  require(!reader.frames() || *reader.frames() > 0, "it has frames");
  for (const auto& [type, text] : reader.texts()) require(!text.empty(), "a text says something");
}

// block: frames that are asked for at a time.
Outcome readFrom(const std::string& path, int block) {
  Outcome outcome;
  try {
    SoundReader reader(path);
    requireSoundHeader(reader);
    (void)reader.format();
    const auto room = static_cast<std::size_t>(block);
    std::vector<double> left(room), right(room);  // after which memory ends
    int count = block;
    while (count == block && outcome.samples.size() < 2 * kMostFrames) {
      count = reader.read(left.data(), right.data(), block);
      require(count >= 0 && count <= block, "no more frames come than were asked for");
      for (std::size_t frame = 0; frame < static_cast<std::size_t>(count); ++frame) {
        outcome.samples.push_back(std::bit_cast<std::uint64_t>(left[frame]));
        outcome.samples.push_back(std::bit_cast<std::uint64_t>(right[frame]));
      }
    }
    if (count < block) require(reader.read(left.data(), right.data(), 1) == 0, "an end is an end");
  } catch (const Failure& failure) {
    const std::string text = failure.what();
    require(text.starts_with(path + ": ") && failure.status() == ExitStatus::failed,
            "a refusal names the file");
    outcome.refusal = text.substr(path.size());
  }
  if (outcome.samples.size() > 2 * kMostFrames) outcome.samples.resize(2 * kMostFrames);
  return outcome;
}

// A pipe that holds it all already.
Outcome readThroughPipe(const Bytes& content, int block) {
  int ends[2];
  require(pipe2(ends, O_CLOEXEC) == 0, "a pipe can be made");
  const bool written =
      write(ends[1], content.data(), content.size()) == static_cast<ssize_t>(content.size());
  require(written, "the pipe takes it all");
  close(ends[1]);
  const Outcome outcome = readFrom("/proc/self/fd/" + std::to_string(ends[0]), block);
  close(ends[0]);
  return outcome;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::MemoryFile file;
  fuzz::InputReader input(data, size);
  const unsigned way = input.byte();
  const int block = static_cast<int>(input.byte()) + 1;
  Bytes content(input.remaining().begin(), input.remaining().end());
  if ((way & 1U) != 0) fuzz::putPageSumsRight(content);
  file.write(content);

  const std::string damage = damageOf(file.descriptor());
  require(lseek(file.descriptor(), 0, SEEK_CUR) == 0, "looking for damage moves nothing");
  const Outcome outcome = readFrom(file.path(), block);
  require(damage.empty() || outcome.refusal == ": " + damage, "what is damaged is refused");
  require(readFrom(file.path(), 777) == outcome, "the sound does not depend on the blocks");
  if ((way & 6U) == 6U && !content.empty() && content.size() <= kPipeHolds)
    require(readThroughPipe(content, block) == outcome, "a pipe brings the same as a file");
  return 0;
}
