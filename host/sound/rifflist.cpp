// A list in a WAV.
#include "host/sound/rifflist.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "host/sound/filebytes.h"

namespace {

constexpr std::size_t kKind = 4;  // bytes
constexpr std::size_t kHead = 8;  // of a chunk in it: name and size

// Returns where the chunk's bytes end, with the one that makes them even.
std::size_t endOf(const std::string& list, std::size_t begin) {
  const std::uint64_t size = numberIn(std::string_view(list).substr(begin + 4, 4), false);
  return begin + kHead + static_cast<std::size_t>(size + size % 2);
}

}  // namespace

std::vector<std::string> namesInList(const std::string& list) {
  std::vector<std::string> names;
  for (std::size_t at = kKind; at + kHead <= list.size(); at = endOf(list, at))
    names.push_back(list.substr(0, kKind) + list.substr(at, 4));
  return names;
}

bool evenOutList(std::string& list) {
  std::size_t last = 0;
  std::size_t at = kKind;
  for (; at + kHead <= list.size(); at = endOf(list, at)) last = at;
  if (last != 0 && at == list.size() + 1) list += '\0';  // left to the list itself by some
  if (last == 0 || at != list.size()) return false;
  if (at % 4 == 0) return true;
  list.append(4 - at % 4, '\0');
  const std::size_t size = list.size() - last - kHead;
  for (std::size_t byte = 0; byte < 4; ++byte)
    list[last + 4 + byte] = static_cast<char>(size >> 8 * byte);
  return true;
}
