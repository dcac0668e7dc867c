// Bounded looks into a file, and the numbers that stand in it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct FileBytes {
  // Of a regular file, whose position stays; of anything else none.
  explicit FileBytes(int descriptor);

  // Returns the bytes there, which live in the buffer; none where the file has not so many.
  std::string_view at(std::int64_t offset, std::size_t count, std::vector<char>& buffer) const;

  int descriptor;
  std::int64_t size = 0;  // bytes
};

std::uint64_t numberIn(std::string_view bytes, bool bigEndian);
// The other way: the lowest bytes of a number.
std::string bytesOf(std::uint64_t number, std::size_t count, bool bigEndian);
// The same of an ID3 tag's sizes, which have seven bits a byte.
std::size_t sevenBitsIn(std::string_view bytes);
