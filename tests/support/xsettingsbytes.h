// Builds the property that a desktop's settings manager publishes, in either byte order.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

class XSettingsBytes {
 public:
  enum class Order : unsigned char { little = 0, big = 1 };

  explicit XSettingsBytes(Order wanted = Order::little) : order(wanted) {}

  void number(std::string_view name, std::int32_t value) { ofType(0, name, value); }
  void ofType(unsigned char type, std::string_view name, std::int32_t value) {
    head(type, name);
    word(static_cast<std::uint32_t>(value), 4);
  }
  void text(std::string_view name, std::string_view value) {
    head(1, name);
    word(static_cast<std::uint32_t>(value.size()), 4);
    letters(value);
  }
  void colour(std::string_view name, const std::array<std::uint16_t, 4>& value) {
    head(2, name);
    for (const std::uint16_t part : value) word(part, 2);
  }

  // Order, three unused bytes, a serial number, how many, and they themselves.
  std::vector<unsigned char> bytes() const {
    XSettingsBytes all(order);
    all.word(static_cast<unsigned char>(order), 1);
    all.word(0, 1);
    all.word(0, 2);
    all.word(17, 4);
    all.word(count, 4);
    all.data.insert(all.data.end(), data.begin(), data.end());
    return all.data;
  }

 private:
  void head(unsigned char type, std::string_view name) {
    ++count;
    word(type, 1);
    word(0, 1);
    word(static_cast<std::uint32_t>(name.size()), 2);
    letters(name);
    word(5, 4);  // the serial number of its last change
  }
  void letters(std::string_view text) {
    data.insert(data.end(), text.begin(), text.end());
    while (data.size() % 4 != 0) data.push_back(0);
  }
  void word(std::uint32_t value, unsigned size) {
    for (unsigned n = 0; n < size; ++n) {
      const unsigned place = order == Order::big ? size - 1 - n : n;
      data.push_back(static_cast<unsigned char>(value >> (8 * place)));
    }
  }

  Order order;
  std::uint32_t count = 0;
  std::vector<unsigned char> data;
};
