// The screen's density in a text of X resources.
#include "editor/base/linux/desktopsettings.h"

#include <gtest/gtest.h>

TEST(DpiOfResources, IsTheNumberAfterTheName) {
  EXPECT_EQ(dpiOfResources("Xft.dpi:\t192\n"), 192);
  EXPECT_EQ(dpiOfResources("Xft.dpi: 120.5"), 120.5) << "with a full stop in every language";
  EXPECT_EQ(dpiOfResources("*customization:\t-color\n  Xft.dpi :144 \nXft.antialias:\t1\n"), 144);
}

TEST(DpiOfResources, IsTheLastOfSeveral) {
  EXPECT_EQ(dpiOfResources("Xft.dpi: 96\nXft.dpi: 144\n"), 144);
  EXPECT_EQ(dpiOfResources("Xft.dpi: 96\nXft.dpi: many\n"), 96) << "of those that are numbers";
}

TEST(DpiOfResources, IsNoneWhereNoneIsSet) {
  for (const char* text :
       {"", "\n\n\n", "Xft.dpi", "Xft.dpi:", "Xft.dpi: \n", "Xft.dpi: large", "Xft.dpi: 96dots",
        "Xft.dpi: 0", "Xft.dpi: -1", "Xft.dpi: nan", "Xft.dpi: inf", "Xft.dpi: 1e999",
        "! Xft.dpi: 192", "xft.dpi: 192", "MyXft.dpi: 192", "Xft.dpi.more: 192", ":192"}) {
    EXPECT_EQ(dpiOfResources(text), std::nullopt) << text;
  }
}

// Another program may have left anything there.
TEST(DpiOfResources, IsNotDisturbedByOtherBytes) {
  std::string text("\0\xFF\n:\0:\nXft.dpi: 192\n\0", 22);
  EXPECT_EQ(dpiOfResources(text), 192);
  EXPECT_EQ(dpiOfResources(std::string_view("Xft.dpi: 1\0002", 12)), std::nullopt);
}

// It is asked with a connection that may have been broken since.
TEST(DesktopSettings, AreNoneOnABrokenConnection) {
  xcb_connection_t* broken = xcb_connect(":4294967295", nullptr);
  ASSERT_NE(xcb_connection_has_error(broken), 0);
  const DesktopSettings found = desktopSettings(broken);
  EXPECT_FALSE(found.dpi || found.doubleClickTime);
  xcb_disconnect(broken);
}
