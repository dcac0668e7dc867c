// Pictures at several scales, drawn into a picture.
#include "editor/base/linux/scaledbitmap.h"

#include "controltest.h"
#include "lib/platform/iplatformbitmap.h"
#include "lib/platform/platformfactory.h"

namespace {

using namespace controltest;

// Another colour for each pixel of a picture at 1.5.
CColor colourAt(int x, int y) {
  return CColor(static_cast<std::uint8_t>(40 + 20 * x), static_cast<std::uint8_t>(30 + 6 * y), 90);
}

class Scaled : public ControlTest {
 protected:
  using Colouring = std::function<CColor(int x, int y)>;

  static VSTGUI::PlatformBitmapPtr picture(int width, int height, const Colouring& colouring) {
    const auto made = VSTGUI::getPlatformFactory().createBitmap(CPoint(width, height));
    const auto bitmap = VSTGUI::makeOwned<VSTGUI::CBitmap>(made);
    const auto pixels = VSTGUI::owned(VSTGUI::CBitmapPixelAccess::create(bitmap));
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) {
        pixels->setPosition(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y));
        pixels->setColor(colouring(x, y));
      }
    }
    return made;
  }

  // Three images of 7 x 14, one above the other; at 1.5 they are 10.5 x 21 each.
  VSTGUI::SharedPointer<ScaledBitmap> threeImages(double scale, const Colouring& colouring) {
    const auto bitmap =
        VSTGUI::makeOwned<ScaledBitmap>(picture(7, 42, [](int, int) { return kImage4; }));
    bitmap->add(
        picture(static_cast<int>(std::ceil(7 * scale)), static_cast<int>(42 * scale), colouring),
        scale);
    return bitmap;
  }

  using Look = std::function<CColor(int x, int y)>;  // at the pixels

  // What is painted at the zoom, on a ground of its own colour.
  static void paint(double zoom, const std::function<void(VSTGUI::CDrawContext*)>& painting,
                    const std::function<void(const Look&)>& look) {
    constexpr int kSide = 100;  // pixels
    const auto context = VSTGUI::COffscreenContext::create(CPoint(kSide, kSide));
    context->beginDraw();
    context->setFillColor(kBack);
    context->drawRect(CRect(0, 0, kSide, kSide), VSTGUI::kDrawFilled);
    {
      const VSTGUI::CDrawContext::Transform zoomed(*context,
                                                   VSTGUI::CGraphicsTransform().scale(zoom, zoom));
      painting(context);
    }
    context->endDraw();
    const auto pixels = VSTGUI::owned(VSTGUI::CBitmapPixelAccess::create(context->getBitmap()));
    look([&](int x, int y) {
      pixels->setPosition(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y));
      CColor colour;
      pixels->getColor(colour);
      return colour;
    });
  }

  static void draw(double zoom, ScaledBitmap& bitmap, const CRect& rect, const CPoint& offset,
                   const std::function<void(const Look&)>& look) {
    paint(
        zoom,
        [&](VSTGUI::CDrawContext* context) {
          context->setClipRect(CRect(0, 0, 100, 100));
          bitmap.draw(context, rect, offset, 1.0F);
        },
        look);
  }
};

}  // namespace

TEST_F(Scaled, HaveTheSizeOfThePictureAtOne) {
  const auto bitmap = threeImages(1.5, colourAt);
  EXPECT_EQ(bitmap->getWidth(), 7);
  EXPECT_EQ(bitmap->getHeight(), 42);
  EXPECT_TRUE(bitmap->has(1));
  EXPECT_TRUE(bitmap->has(1.5));
  EXPECT_FALSE(bitmap->has(2));
}

// Its place on the screen is 31.5, 46.5: both go to the next pixel.
TEST_F(Scaled, AreCopiedPixelByPixelWhereTheirPlaceIsHalfAPixel) {
  const auto bitmap = threeImages(1.5, colourAt);
  for (int image = 0; image < 3; ++image) {
    draw(1.5, *bitmap, CRect(21, 31, 28, 45), CPoint(0, 14 * image), [&](const Look& at) {
      for (int y = 0; y < 21; ++y) {
        for (int x = 0; x < 10; ++x) {
          EXPECT_EQ(at(32 + x, 47 + y), colourAt(x, 21 * image + y))
              << image << ": " << x << ", " << y;
        }
      }
      for (int x = 25; x < 50; ++x) {
        EXPECT_EQ(at(x, 46), kBack) << x;
        EXPECT_EQ(at(x, 47 + 21), kBack) << x;
      }
      for (int y = 40; y < 75; ++y) {
        EXPECT_EQ(at(31, y), kBack) << y;
        EXPECT_EQ(at(32 + 10, y), kBack) << y;
      }
    });
  }
}

// A slice of a panel lies where the panel's pixels are.
TEST_F(Scaled, ShowAPartWhereItIsInTheWhole) {
  const auto bitmap = threeImages(1.5, colourAt);
  draw(1.5, *bitmap, CRect(1, 13, 6, 24), CPoint(1, 13), [&](const Look& at) {
    for (int y = 20; y < 36; ++y) {  // 19.5 to 36
      for (int x = 2; x < 9; ++x) EXPECT_EQ(at(x, y), colourAt(x, y)) << x << ", " << y;
    }
  });
}

// 14 high is 24.5 at 1.75, with a picture at 2.
TEST_F(Scaled, ShowNothingOfTheNextImageBetweenTheirScales) {
  const auto bitmap = threeImages(2, [](int, int y) { return y / 28 == 1 ? kImage0 : kImage3; });
  for (const int top : {20, 21, 22, 23}) {
    draw(1.75, *bitmap, CRect(20, top, 27, top + 14), CPoint(0, 14), [&](const Look& at) {
      const int from = static_cast<int>(std::floor(top * 1.75 + 0.5));
      const int to = static_cast<int>(std::floor((top + 14) * 1.75 + 0.5));
      EXPECT_EQ(at(41, from - 1), kBack);
      EXPECT_EQ(at(41, to), kBack);
      for (int y = from; y < to; ++y) {
        EXPECT_NEAR(at(41, y).blue, kImage0.blue, 20) << top << ": " << y;  // 200 the next one's
      }
    });
  }
}

TEST_F(Scaled, AreDrawnAsAnyBitmapAtAScaleOfOne) {
  const auto bitmap = threeImages(1.5, colourAt);
  draw(1, *bitmap, CRect(20, 30, 27, 44), CPoint(0, 14), [&](const Look& at) {
    EXPECT_EQ(at(19, 30), kBack);
    EXPECT_EQ(at(20, 30), kImage4);
    EXPECT_EQ(at(26, 43), kImage4);
    EXPECT_EQ(at(27, 43), kBack);
  });
}

TEST_F(Scaled, StayInsideTheClipAndLeaveItAsItWas) {
  const auto bitmap = threeImages(1.5, colourAt);
  const CRect clip(2, 4, 10, 8);  // pixels 3, 6 to 15, 12; the picture ends at 11
  const auto painting = [&](VSTGUI::CDrawContext* context) {
    context->setClipRect(clip);
    bitmap->draw(context, CRect(0, 0, 7, 14), CPoint(0, 0), 1.0F);
    CRect after;
    context->getClipRect(after);
    EXPECT_NEAR(after.left, clip.left, 1e-9);
    EXPECT_NEAR(after.right, clip.right, 1e-9);
  };
  paint(1.5, painting, [](const Look& at) {
    EXPECT_EQ(at(3, 6), colourAt(3, 6));
    EXPECT_EQ(at(8, 11), colourAt(8, 11));
    EXPECT_EQ(at(2, 7), kBack);
    EXPECT_EQ(at(4, 5), kBack);
    EXPECT_EQ(at(11, 7), kBack);
    EXPECT_EQ(at(4, 12), kBack);
  });
}
