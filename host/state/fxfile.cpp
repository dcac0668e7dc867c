// The interface's own preset and bank files, .fxp and .fxb.
#include "host/state/fxfile.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

#include "host/base/failure.h"
#include "plugin/vst24.h"
#include "presetsystem/image/bytereader.h"

namespace {

constexpr std::int32_t kFile = vstFourChars('C', 'c', 'n', 'K');
constexpr std::int32_t kValues = vstFourChars('F', 'x', 'C', 'k');
constexpr std::int32_t kProgramChunk = vstFourChars('F', 'P', 'C', 'h');
constexpr std::int32_t kPrograms = vstFourChars('F', 'x', 'B', 'k');
constexpr std::int32_t kBankChunk = vstFourChars('F', 'B', 'C', 'h');
constexpr std::int32_t kProgramVersion = 1;
constexpr std::int32_t kBankVersion = 2;   // the first that tells the current program
constexpr std::size_t kNameSize = 28;      // bytes, a zero among them
constexpr std::size_t kBankReserve = 124;  // bytes
constexpr std::size_t kCountedFrom = 8;    // bytes that a file's own size leaves out
constexpr bool kSwapped = std::endian::native == std::endian::little;

[[noreturn]] void refuseCut(const std::string& source) {
  throw Failure(source + ": is cut short");
}

class Reader {
 public:
  Reader(std::span<const unsigned char> bytes, const std::string& name)
      : words(bytes, kSwapped), source(name) {}

  std::int32_t word() {
    require(sizeof(std::int32_t));
    return words.int32();
  }
  void skip(std::size_t count) {
    require(count);
    words.skip(count);
  }
  // A count of things that take at least `size` bytes each.
  std::size_t count(std::size_t size) {
    const std::int32_t read = word();
    if (read < 0) throw Failure(source + ": is damaged");
    require(static_cast<std::size_t>(read) * size);
    return static_cast<std::size_t>(read);
  }
  std::string name() {
    require(kNameSize);
    std::array<char, kNameSize + 1> text{};
    words.bytes(text.data(), kNameSize);
    return text.data();
  }
  float value() {
    require(sizeof(float));
    const float read = words.float32();
    if (std::isfinite(read)) return read;
    throw Failure(source + ": holds a value that is not a number");
  }
  FxChunk chunk(int counted) {
    FxChunk read{std::vector<unsigned char>(count(1)), counted};
    words.bytes(read.bytes.data(), read.bytes.size());
    return read;
  }

 private:
  void require(std::size_t bytes) const {
    if (words.left() < bytes) refuseCut(source);
  }

  ByteReader words;
  const std::string& source;
};

struct Head {
  std::int32_t kind, version, effect, effectVersion;
};

Head readHead(Reader& reader, const std::string& source) {
  if (reader.word() != kFile) throw Failure(source + ": is no preset or bank file (.fxp, .fxb)");
  reader.word();  // its size, which some hosts write wrong
  Head head{};
  for (std::int32_t* word : {&head.kind, &head.version, &head.effect, &head.effectVersion})
    *word = reader.word();
  return head;
}

// After the head.
FxProgram readProgram(Reader& reader, const Head& head, const std::string& source) {
  FxProgram program;
  if (head.kind == kProgramChunk) {
    const int parameters = reader.word();
    program.name = reader.name();
    program.chunk = reader.chunk(parameters);
    return program;
  }
  if (head.kind != kValues) throw Failure(source + ": is damaged");
  const std::size_t values = reader.count(sizeof(float));
  program.name = reader.name();
  program.values.reserve(values);
  for (std::size_t index = 0; index < values; ++index) program.values.push_back(reader.value());
  return program;
}

class Writer {
 public:
  void word(std::int32_t value) {
    const auto bits = static_cast<std::uint32_t>(value);
    for (int shift = 24; shift >= 0; shift -= 8)
      out.push_back(static_cast<unsigned char>(bits >> shift));
  }
  void count(std::size_t value) { word(static_cast<std::int32_t>(value)); }
  void zeros(std::size_t count) { out.insert(out.end(), count, 0); }
  void name(const std::string& text) {
    const std::size_t kept = std::min(text.size(), kNameSize - 1);
    out.insert(out.end(), text.begin(), text.begin() + static_cast<std::ptrdiff_t>(kept));
    zeros(kNameSize - kept);
  }
  void chunk(const FxChunk& chunk) {
    count(chunk.bytes.size());
    out.insert(out.end(), chunk.bytes.begin(), chunk.bytes.end());
  }
  // Returns where it begins, for end().
  std::size_t head(std::int32_t kind, std::int32_t version, const FxFile& file) {
    const std::size_t start = out.size();
    for (const std::int32_t value : {kFile, 0, kind, version, file.effect, file.effectVersion})
      word(value);
    return start;
  }
  // Its size is known now.
  void end(std::size_t start) {
    Writer size;
    size.count(out.size() - start - kCountedFrom);
    std::copy(size.out.begin(), size.out.end(),
              out.begin() + static_cast<std::ptrdiff_t>(start + sizeof(std::int32_t)));
  }
  void program(const FxProgram& program, const FxFile& file) {
    const std::size_t start = head(program.chunk ? kProgramChunk : kValues, kProgramVersion, file);
    if (program.chunk) {
      word(program.chunk->count);
    } else {
      count(program.values.size());
    }
    name(program.name);
    if (program.chunk) {
      chunk(*program.chunk);
    } else {
      for (const float value : program.values) word(std::bit_cast<std::int32_t>(value));
    }
    end(start);
  }

  std::vector<unsigned char> out;
};

}  // namespace

FxFile FxFile::read(std::span<const unsigned char> bytes, const std::string& source) {
  Reader reader(bytes, source);
  const Head head = readHead(reader, source);
  FxFile file;
  file.effect = head.effect;
  file.effectVersion = head.effectVersion;
  if (head.kind != kPrograms && head.kind != kBankChunk) {
    file.programs.push_back(readProgram(reader, head, source));
    return file;
  }
  file.kind = Kind::bank;
  const std::int32_t count = reader.word();
  const std::int32_t current = reader.word();
  if (head.version >= kBankVersion) file.current = current;
  reader.skip(kBankReserve);
  if (head.kind == kBankChunk) {
    file.chunk = reader.chunk(count);
    return file;
  }
  if (count < 0 || file.current < 0 || file.current >= std::max(count, 1))
    throw Failure(source + ": is damaged");
  for (std::int32_t program = 0; program < count; ++program) {
    const Head programHead = readHead(reader, source);
    file.programs.push_back(readProgram(reader, programHead, source));
  }
  return file;
}

std::vector<unsigned char> FxFile::bytes() const {
  Writer writer;
  if (kind == Kind::program) {
    writer.program(programs.front(), *this);
    return writer.out;
  }
  const std::size_t start = writer.head(chunk ? kBankChunk : kPrograms, kBankVersion, *this);
  if (chunk) {
    writer.word(chunk->count);
  } else {
    writer.count(programs.size());
  }
  writer.word(current);
  writer.zeros(kBankReserve);
  if (chunk) {
    writer.chunk(*chunk);
  } else {
    for (const FxProgram& program : programs) writer.program(program, *this);
  }
  writer.end(start);
  return writer.out;
}
