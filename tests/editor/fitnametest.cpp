// Names that are made to fit.
#include "editor/controls/fitname.h"

#include "controltest.h"
#include "vstgui.h"

namespace {

const std::string kEllipsis = "\xE2\x80\xA6";

class FitName : public controltest::ControlTest {
 protected:
  double widthOf(const std::string& text, VSTGUI::CFontRef font) {
    context->setFont(font);
    return context->getStringWidth(text.c_str());
  }
  FittedName fit(const std::string& bytes, double width) {
    return fitName(context, bytes, width, VSTGUI::kNormalFontSmall);
  }

  VSTGUI::SharedPointer<VSTGUI::COffscreenContext> context =
      VSTGUI::COffscreenContext::create({10, 10});
  const std::string name = "Twenty-four letters long";
};

TEST_F(FitName, ANameThatFitsStaysAsItIs) {
  const FittedName fitted = fit(name, widthOf(name, VSTGUI::kNormalFontSmall));
  EXPECT_EQ(fitted.text.getString(), name);
  EXPECT_EQ(fitted.font, VSTGUI::kNormalFontSmall);
}

TEST_F(FitName, TheLargestFontThatShowsTheWholeNameIsTaken) {
  const double small = widthOf(name, VSTGUI::kNormalFontSmall);
  const double smaller = widthOf(name, VSTGUI::kNormalFontSmaller);
  const double verySmall = widthOf(name, VSTGUI::kNormalFontVerySmall);
  ASSERT_GT(small, smaller);
  ASSERT_GT(smaller, verySmall);
  EXPECT_EQ(fit(name, small - 0.5).font, VSTGUI::kNormalFontSmaller);
  EXPECT_EQ(fit(name, smaller).font, VSTGUI::kNormalFontSmaller);
  EXPECT_EQ(fit(name, smaller - 0.5).font, VSTGUI::kNormalFontVerySmall);
  EXPECT_EQ(fit(name, verySmall).text.getString(), name);
}

TEST_F(FitName, TheLargestFontIsTheCallers) {
  const auto larger = VSTGUI::makeOwned<VSTGUI::CFontDesc>(*VSTGUI::kNormalFont);
  const FittedName fitted = fitName(context, name, widthOf(name, larger), larger);
  EXPECT_EQ(fitted.font, larger.get());
  EXPECT_EQ(fitted.text.getString(), name);
}

TEST_F(FitName, ANameTooLongForAnyFontEndsInAnEllipsisAndLosesNoMoreThanItMust) {
  const std::string wide(24, 'W');
  const double width = 130;
  const FittedName fitted = fit(wide, width);
  EXPECT_EQ(fitted.font, VSTGUI::kNormalFontVerySmall);
  const std::string& text = fitted.text.getString();
  ASSERT_GT(text.size(), kEllipsis.size());
  const std::string head = text.substr(0, text.size() - kEllipsis.size());
  EXPECT_EQ(text, head + kEllipsis);
  EXPECT_EQ(head, std::string(head.size(), 'W'));
  EXPECT_LE(widthOf(text, fitted.font), width);
  EXPECT_GT(widthOf(head + "W" + kEllipsis, fitted.font), width);
}

TEST_F(FitName, CutsBetweenCharactersOfSeveralBytes) {
  const std::string character = "\xE2\x80\x94";  // a long dash
  std::string wide;
  for (int i = 0; i < 40; ++i) wide += character;
  testing::internal::CaptureStderr();
  for (double width = 20; width < 120; width += 3) {
    const std::string text = fit(wide, width).text.getString();
    ASSERT_GE(text.size(), kEllipsis.size());
    EXPECT_EQ(text.substr(text.size() - kEllipsis.size()), kEllipsis);
    EXPECT_EQ((text.size() - kEllipsis.size()) % character.size(), 0U) << width;
  }
  // where a text that is not UTF-8 is complained about
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(FitName, BytesThatAreNoTextAreShownAsSuch) {
  testing::internal::CaptureStderr();
  EXPECT_EQ(fit("f\xFCr alle", 200).text.getString(), "f\xEF\xBF\xBDr alle");
  EXPECT_EQ(fit("cut at the end\xC3", 200).text.getString(), "cut at the end");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(FitName, WithNoRoomAtAllAnEllipsisIsLeft) {
  EXPECT_EQ(fit("name", 0).text.getString(), kEllipsis);
}

TEST_F(FitName, AnEmptyNameStaysEmpty) {
  EXPECT_EQ(fit("", 100).text.getString(), "");
}

}  // namespace
