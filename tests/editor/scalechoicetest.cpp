// The window's scale of what is set, and the pictures that it takes.
#include "editor/base/linux/scalechoice.h"

#include <gtest/gtest.h>

#include <limits>

#include "editor/base/linux/picturescales.h"
#include "lib/platform/iplatformbitmap.h"
#include "lib/platform/platformfactory.h"
#include "lib/vstguiinit.h"
#include "vstgui.h"

TEST(ScaleChoice, IsTheDensityOverThatOfAPlainScreen) {
  EXPECT_EQ(chosenScale(96, nullptr), 1);
  EXPECT_EQ(chosenScale(120, nullptr), 1.25);
  EXPECT_EQ(chosenScale(144, nullptr), 1.5);
  EXPECT_EQ(chosenScale(192, nullptr), 2);
  EXPECT_EQ(chosenScale(288, nullptr), 3);
}

TEST(ScaleChoice, IsTheNearestQuarterBetweenOneAndFour) {
  EXPECT_EQ(chosenScale(107, nullptr), 1) << "1.115: an eighth less than the next is nearer to 1";
  EXPECT_EQ(chosenScale(109, nullptr), 1.25) << "1.135";
  EXPECT_EQ(chosenScale(163, nullptr), 1.75) << "1.698";
  EXPECT_EQ(chosenScale(72, nullptr), 1) << "never below";
  EXPECT_EQ(chosenScale(1, nullptr), 1);
  EXPECT_EQ(chosenScale(384, nullptr), 4);
  EXPECT_EQ(chosenScale(100000, nullptr), 4) << "never above";
}

TEST(ScaleChoice, IsTheEnvironmentsWhereTheDesktopSaysNothing) {
  EXPECT_EQ(chosenScale({}, "2"), 2);
  EXPECT_EQ(chosenScale({}, "1.5"), 1.5) << "with a full stop in every language";
  EXPECT_EQ(chosenScale(144, "3"), 1.5) << "the desktop's word is the newer one";
  EXPECT_EQ(chosenScale(96, "2"), 1) << "96 is a word too";
}

TEST(ScaleChoice, IsOneWhereNobodySaysAnything) {
  for (const char* factor :
       {static_cast<const char*>(nullptr), "", "large", "2x", "0", "-2", "nan", "inf", "1e999"}) {
    EXPECT_EQ(chosenScale({}, factor), 1) << (factor != nullptr ? factor : "not set");
  }
}

TEST(ScaleChoice, OfTheHostHasTheSameStepsAndBounds) {
  EXPECT_EQ(wantedScale(1), 1);
  EXPECT_EQ(wantedScale(1.1), 1);
  EXPECT_EQ(wantedScale(1.7), 1.75);
  EXPECT_EQ(wantedScale(2), 2);
  EXPECT_EQ(wantedScale(0.5), 1) << "never below";
  EXPECT_EQ(wantedScale(1e30), 4) << "never above";
}

TEST(ScaleChoice, IsNotTheHostsWhereThatIsNone) {
  for (const double nonsense :
       {0., -0., -2., std::numeric_limits<double>::quiet_NaN(),
        std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(wantedScale(nonsense), std::nullopt) << nonsense;
  }
}

// The rule is the toolkit's: it chooses among the pictures that a bitmap has.
TEST(PictureScale, IsThatOfThePictureThatTheToolkitShows) {
  VSTGUI::init(nullptr);
  {
    VSTGUI::CBitmap bitmap(VSTGUI::CPoint(2, 2));
    for (const double scale : {1.5, 2., 3.}) {
      const auto picture =
          VSTGUI::getPlatformFactory().createBitmap(VSTGUI::CPoint(2 * scale, 2 * scale));
      picture->setScaleFactor(scale);
      ASSERT_TRUE(bitmap.addBitmap(picture));
    }
    for (double scale = 1; scale <= 4; scale += 0.25) {
      EXPECT_EQ(pictureScale(scale).scale,
                bitmap.getBestPlatformBitmapForScaleFactor(scale)->getScaleFactor())
          << scale;
    }
  }
  VSTGUI::exit();
}
