// Goes through the settings one after the other, never past the end.
#include "editor/base/linux/xsettings.h"

#include <bit>

#include "presetsystem/image/bytereader.h"

namespace {

enum Type : std::uint8_t { kInteger = 0, kText = 1, kColour = 2 };
constexpr unsigned char kMostSignificantFirst = 1;  // the property's first byte; else 0

constexpr std::size_t padded(std::size_t count) {
  return (count + 3) / 4 * 4;
}

}  // namespace

std::optional<std::int32_t> numberOfXSettings(std::span<const unsigned char> data,
                                              std::string_view name) {
  if (data.empty() || data[0] > kMostSignificantFirst) return {};
  const bool big = data[0] == kMostSignificantFirst;
  ByteReader reader(data, big != (std::endian::native == std::endian::big));
  reader.skip(8);  // the order and three unused bytes, the manager's serial number
  const auto count = static_cast<std::uint32_t>(reader.int32());
  for (std::uint32_t n = 0; n < count && reader.left() > 0; ++n) {
    const std::uint8_t type = reader.uint8();
    reader.skip(1);
    const std::size_t first = reader.uint8();
    const std::size_t second = reader.uint8();
    const std::size_t nameSize = big ? first << 8U | second : second << 8U | first;
    const auto bytes = reader.remaining();
    if (bytes.size() < padded(nameSize) + 8) return {};  // the name, a serial number, a value
    const bool found =
        std::string_view(reinterpret_cast<const char*>(bytes.data()), nameSize) == name;
    reader.skip(padded(nameSize) + 4);
    if (type == kInteger) {
      const std::int32_t value = reader.int32();
      if (found) return value;
    } else if (type == kText) {
      reader.skip(padded(static_cast<std::uint32_t>(reader.int32())));
    } else if (type == kColour) {
      reader.skip(8);
    } else {
      return {};  // where it ends is not known
    }
  }
  return {};
}
