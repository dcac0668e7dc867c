// Reading the published settings, whole and damaged, in either byte order.
#include "editor/base/linux/xsettings.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "tests/support/xsettingsbytes.h"

namespace {

class XSettings : public ::testing::TestWithParam<XSettingsBytes::Order> {
 protected:
  // A desktop's settings: of each type some, the ones asked for in between.
  XSettingsBytes desktop() const {
    XSettingsBytes bytes(GetParam());
    bytes.text("Net/ThemeName", "Adwaita");
    bytes.colour("Net/Accent", {0x1234, 0x5678, 0x9ABC, 0xDEF0});
    bytes.number("Xft/DPI", 196608);
    bytes.text("Gtk/FontName", "");
    bytes.number("Net/DoubleClickTime", 400);
    return bytes;
  }
};

// The same bytes at the very end of their memory, so that the sanitizer sees a look past it.
std::optional<std::int32_t> numberOf(std::span<const unsigned char> data, const char* name) {
  const auto copy = std::make_unique<unsigned char[]>(data.size());
  if (!data.empty()) std::memcpy(copy.get(), data.data(), data.size());
  return numberOfXSettings({copy.get(), data.size()}, name);
}

}  // namespace

TEST_P(XSettings, AreFoundByTheirNames) {
  const auto data = desktop().bytes();
  EXPECT_EQ(numberOf(data, "Xft/DPI"), 196608);
  EXPECT_EQ(numberOf(data, "Net/DoubleClickTime"), 400);
  EXPECT_EQ(numberOf(data, "Net/DoubleClickDistance"), std::nullopt);
}

TEST_P(XSettings, OfAnotherTypeAreNoNumbers) {
  const auto data = desktop().bytes();
  EXPECT_EQ(numberOf(data, "Net/ThemeName"), std::nullopt);
  EXPECT_EQ(numberOf(data, "Net/Accent"), std::nullopt);
}

TEST_P(XSettings, MayBeBelowZero) {
  XSettingsBytes bytes(GetParam());
  bytes.number("Xft/DPI", -1);
  EXPECT_EQ(numberOf(bytes.bytes(), "Xft/DPI"), -1);
}

TEST_P(XSettings, CutOffAnywhereHoldThoseBeforeTheCut) {
  const auto whole = desktop().bytes();
  // With everything up to the end of its value, which is 400's four bytes from the end.
  for (std::size_t size = 0; size < whole.size(); ++size) {
    SCOPED_TRACE(size);
    const std::span<const unsigned char> cut(whole.data(), size);
    EXPECT_EQ(numberOf(cut, "Net/DoubleClickTime"), std::nullopt);
    const auto dpi = numberOf(cut, "Xft/DPI");
    EXPECT_TRUE(!dpi || *dpi == 196608);
  }
}

// Names and texts that say they are longer than all there is, counts that never end.
TEST_P(XSettings, WithAnyByteChangedAreHarmless) {
  const auto whole = desktop().bytes();
  for (std::size_t place = 0; place < whole.size(); ++place) {
    for (const unsigned char value : {0x00, 0x01, 0x02, 0x03, 0x7F, 0x80, 0xFF}) {
      auto damaged = whole;
      damaged[place] = value;
      numberOf(damaged, "Xft/DPI");
      numberOf(damaged, "Net/DoubleClickTime");
    }
  }
}

TEST_P(XSettings, OfAnUnknownTypeEndTheReading) {
  XSettingsBytes bytes(GetParam());
  bytes.number("Before", 1);
  bytes.ofType(7, "Unknown", 2);
  bytes.number("After", 3);
  EXPECT_EQ(numberOf(bytes.bytes(), "Before"), 1);
  EXPECT_EQ(numberOf(bytes.bytes(), "Unknown"), std::nullopt);
  EXPECT_EQ(numberOf(bytes.bytes(), "After"), std::nullopt);
}

TEST_P(XSettings, InAnUnknownByteOrderAreNone) {
  auto data = desktop().bytes();
  data[0] = 'B';
  EXPECT_EQ(numberOf(data, "Xft/DPI"), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(BothOrders, XSettings,
                         ::testing::Values(XSettingsBytes::Order::little,
                                           XSettingsBytes::Order::big),
                         [](const auto& order) {
                           return order.param == XSettingsBytes::Order::big ? "Big" : "Little";
                         });
