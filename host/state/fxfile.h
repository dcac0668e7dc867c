// The interface's own preset and bank files, .fxp and .fxb: their bytes taken apart and put
// together.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

// What a file holds of an effect that keeps its state as a piece of memory of its own.
struct FxChunk {
  std::vector<unsigned char> bytes;
  int count = 0;  // of a program, its parameters; of a bank, its programs
};

// One program: a name, and the parameters' values or a chunk.
struct FxProgram {
  std::string name;           // up to 27 bytes are written
  std::vector<float> values;  // by index; as the effect gave them, which may be beyond 0 to 1
  std::optional<FxChunk> chunk;
};

// Pure: bytes in, bytes out. All words of a file have their highest byte first.
struct FxFile {
  enum class Kind { program, bank };

  Kind kind = Kind::program;
  std::int32_t effect = 0;          // its unique ID
  std::int32_t effectVersion = 0;   // as its record has it
  std::vector<FxProgram> programs;  // one of a preset; of a bank all, or none where it is a chunk
  std::optional<FxChunk> chunk;     // of a bank
  int current = 0;                  // program, of a bank

  // source: what to name in a Failure. Throws it for what is neither kind, is cut short, or holds
  // a value that is no number; allocates nothing by a length that is not there.
  static FxFile read(std::span<const unsigned char> bytes, const std::string& source);
  std::vector<unsigned char> bytes() const;
};
