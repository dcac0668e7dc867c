// The desktop's settings as they are read from the server.
#include "editor/base/linux/desktopsettings.h"

#include <gtest/gtest.h>

#include "settingsmanager.h"

namespace {

class SettingsOfTheDesktop : public ::testing::Test {
 protected:
  ~SettingsOfTheDesktop() override { xcb_disconnect(link); }

  DesktopSettings read() { return desktopSettings(link); }

  SettingsManager desktop;
  xcb_connection_t* link = xcb_connect(nullptr, nullptr);
};

}  // namespace

TEST_F(SettingsOfTheDesktop, AreNoneWhereNobodySetsAny) {
  const DesktopSettings found = read();
  EXPECT_EQ(found.dpi, std::nullopt);
  EXPECT_EQ(found.doubleClickTime, std::nullopt);
}

TEST_F(SettingsOfTheDesktop, ComeFromTheResources) {
  desktop.setResourceDpi(144);
  EXPECT_EQ(read().dpi, 144);
  EXPECT_EQ(read().doubleClickTime, std::nullopt);
}

TEST_F(SettingsOfTheDesktop, ComeFromItsManager) {
  for (const auto order : {XSettingsBytes::Order::little, XSettingsBytes::Order::big}) {
    XSettingsBytes settings(order);
    settings.number("Net/DoubleClickTime", 650);
    settings.number("Xft/DPI", 120 * 1024);
    desktop.publish(settings.bytes());
    EXPECT_EQ(read().dpi, 120);
    EXPECT_EQ(read().doubleClickTime, 650U);
  }
}

TEST_F(SettingsOfTheDesktop, AreItsManagersBeforeTheResources) {
  desktop.setResourceDpi(96);
  desktop.publishDpi(192);
  EXPECT_EQ(read().dpi, 192);
  desktop.resign();
  EXPECT_EQ(read().dpi, 96) << "nobody else sets it any more";
}

TEST_F(SettingsOfTheDesktop, AreTheResourcesWhereTheManagerLeavesItOpen) {
  desktop.setResourceDpi(144);
  desktop.publishDpi(-1);
  EXPECT_EQ(read().dpi, 144) << "-1: as the server says";
  XSettingsBytes settings;
  settings.number("Net/DoubleClickTime", 0);
  desktop.publish(settings.bytes());
  EXPECT_EQ(read().dpi, 144);
  EXPECT_EQ(read().doubleClickTime, std::nullopt) << "no time is none";
}

TEST_F(SettingsOfTheDesktop, AreNoneOfBytesThatAreNoSettings) {
  desktop.publish({});
  EXPECT_EQ(read().dpi, std::nullopt);
  desktop.publish(std::vector<unsigned char>(100000, 0xFF));
  EXPECT_EQ(read().dpi, std::nullopt);
  desktop.setResources(std::string(100000, '\xFF'));
  EXPECT_EQ(read().dpi, std::nullopt);
}
