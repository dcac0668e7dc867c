// Whether what is drawn small can be read: the contrast of lettering and marks with their ground,
// from the pixels of the bundle's pictures and of the window.
#include <algorithm>
#include <cmath>
#include <map>

#include "windowtest.h"

namespace {

constexpr double kLettering = 4.5;  // the Web Content Accessibility Guidelines' least for text
constexpr double kMarks = 3.0;      // and for what is no text

// Relative luminance as those guidelines define it, 0..1.
double luminance(std::uint32_t pixel) {
  const auto linear = [pixel](unsigned shift) {
    const double share = static_cast<double>(pixel >> shift & 0xFFU) / 255;
    return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(16) + 0.7152 * linear(8) + 0.0722 * linear(0);
}

double contrast(std::uint32_t one, std::uint32_t other) {
  const double first = luminance(one), second = luminance(other);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

std::uint32_t groundOf(const Picture& picture, const Area& area) {
  std::map<std::uint32_t, int> counts;
  for (int y = area.top; y < area.bottom; ++y) {
    for (int x = area.left; x < area.right; ++x) ++counts[picture.at(x, y)];
  }
  const auto most = [](const auto& one, const auto& other) { return one.second < other.second; };
  return std::max_element(counts.begin(), counts.end(), most)->first;
}

// Of each letter or mark, which are what columns without ink part, its strongest pixel's contrast
// with the ground.
std::vector<double> contrasts(const Picture& picture, const Area& area) {
  constexpr double kInk = 2;  // contrast; less is the smoothing of an edge
  const std::uint32_t ground = groundOf(picture, area);
  std::vector<double> found;
  bool inLetter = false;
  for (int x = area.left; x < area.right; ++x) {
    double strongest = 1;
    for (int y = area.top; y < area.bottom; ++y)
      strongest = std::max(strongest, contrast(picture.at(x, y), ground));
    const bool isInk = strongest >= kInk;
    if (isInk && !inLetter) found.push_back(1);
    if (isInk) found.back() = std::max(found.back(), strongest);
    inLetter = isInk;
  }
  return found;
}

// In points. letters: so many are apart from each other at the window's own size, at least.
struct Lettering {
  const char* name;
  Area place;
  std::size_t letters;
  double least;
};

constexpr Lettering kOnThePanel[] = {
    {"4:1", {52, 10, 70, 18}, 3, kLettering},
    {"2:1", {97, 10, 115, 18}, 3, kLettering},
    {"1:1", {142, 10, 160, 18}, 3, kLettering},
    {"1:2", {188, 10, 206, 18}, 3, kLettering},
    {"1:4", {233, 10, 251, 18}, 3, kLettering},
    {"meter's marks", {58, 19, 244, 22}, 5, kMarks},
    {"width 100", {50, 75, 69, 82}, 3, kLettering},
    {"width 0", {233, 75, 250, 82}, 1, kLettering},
    {"frequency 1k", {50, 107, 69, 114}, 2, kLettering},
    {"frequency 20", {233, 107, 250, 114}, 2, kLettering},
    {"emphasis 100", {50, 139, 69, 146}, 3, kLettering},
    {"emphasis 0", {233, 139, 250, 146}, 1, kLettering},
    {"width's marks", {70, 75, 232, 79}, 11, kMarks},
    {"frequency's marks", {70, 107, 232, 111}, 11, kMarks},
    {"emphasis's marks", {70, 139, 232, 143}, 11, kMarks},
    {"by Orv", {174, 189, 210, 201}, 5, kLettering},
    {"manual", {222, 190, 259, 200}, 6, kLettering},
    {"save", {2, 204, 26, 213}, 4, kLettering},
    {"default", {28, 204, 62, 213}, 6, kLettering},
    {"load", {65, 204, 88, 213}, 4, kLettering},
    {"store", {246, 204, 271, 213}, 4, kLettering},
    {"recall", {271, 204, 300, 213}, 6, kLettering},
};

Area scaled(const Area& area, double scale) {
  return {static_cast<int>(std::floor(area.left * scale)),
          static_cast<int>(std::floor(area.top * scale)),
          static_cast<int>(std::ceil(area.right * scale)),
          static_cast<int>(std::ceil(area.bottom * scale))};
}

// Each letter and mark where they stand on whole pixels.
void expectEachLegible(const Picture& picture, const Area& area, double least,
                       std::size_t letters) {
  ASSERT_TRUE(picture.whole().contains(area));
  const std::vector<double> found = contrasts(picture, area);
  EXPECT_GE(found.size(), letters);
  for (std::size_t letter = 0; letter < found.size(); ++letter)
    EXPECT_GE(found[letter], least) << "letter " << letter;
}

// The strongest stem where they are smoothed: others lie between two columns.
void expectLegible(const Picture& picture, const Area& area, double least = kLettering) {
  ASSERT_TRUE(picture.whole().contains(area));
  const std::vector<double> found = contrasts(picture, area);
  ASSERT_FALSE(found.empty());
  EXPECT_GE(*std::max_element(found.begin(), found.end()), least);
}

Picture bundlePicture(const char* number, const char* scale) {
  const std::filesystem::path module = std::getenv("TRELVAN_MODULE");
  return readPicture(module.parent_path().parent_path() / "Resources" /
                     (std::string("bmp") + number + scale + ".png"));
}

struct Scale {
  const char* suffix;
  double factor;
};

class Contrast : public WindowTest, public ::testing::WithParamInterface<Scale> {};

std::string nameOf(const ::testing::TestParamInfo<Scale>& info) {
  return "At" + std::to_string(static_cast<int>(info.param.factor * 100)) + "Percent";
}

}  // namespace

TEST_P(Contrast, LetteringAndMarksOnThePanelAreLegible) {
  const auto [suffix, factor] = GetParam();
  const Picture panel = bundlePicture("00128", suffix);
  for (const Lettering& lettering : kOnThePanel) {
    SCOPED_TRACE(lettering.name);
    const Area place = scaled(lettering.place, factor);
    if (factor == 1 || lettering.least == kMarks) {
      expectEachLegible(panel, place, lettering.least, lettering.letters);
    } else {
      expectLegible(panel, place);
    }
  }
}

// At rest, under the pointer and pressed.
TEST_P(Contrast, TheDefaultButtonsAreLegible) {
  const auto [suffix, factor] = GetParam();
  const std::pair<const char*, int> buttons[] = {{"19899", 6}, {"19990", 2}};  // the plates' left
  for (const auto& [number, left] : buttons) {
    SCOPED_TRACE(number);
    const Picture states = bundlePicture(number, suffix);
    for (int state = 0; state < 3; ++state) {
      const Area inside{left + 4, 10 * state + 2, left + 31, 10 * state + 8};
      expectLegible(states, scaled(inside, factor));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Scales, Contrast,
                         ::testing::Values(Scale{"", 1}, Scale{"@1.5x", 1.5}, Scale{"@2x", 2},
                                           Scale{"@3x", 3}),
                         nameOf);

// Captions of controls, and what the program writes.
TEST_F(WindowTest, TheTextsOfTheWindowAreLegible) {
  WindowHost host;
  ASSERT_TRUE(host.openEditor());
  for (const Area& place : {places::kProcessSwitch, places::kPhaseSwitch}) {
    const Area caption{place.left, place.top + 19, place.right, place.bottom};
    for (int position = 0; position < 2; ++position) {
      host.moveAway();
      expectEachLegible(host.picture(), caption, kLettering, 5);
      host.hover(place);
      expectEachLegible(host.picture(), caption, kLettering, 5);
      host.click(place);
    }
  }
  host.moveAway();
  const Picture closed = host.picture();
  for (const Area& caption : places::kCaptions) expectLegible(closed, caption);
  for (int index = 0; index < 3; ++index) expectLegible(closed, places::valueDisplay(index));
  expectLegible(closed, places::kName);
  host.hover(places::kName);
  expectLegible(host.picture(), places::kName);
  host.hover(places::kManual);
  host.idleFor(1000);  // its tooltip is above
  expectLegible(host.picture(), {places::kManual.left - 20, 166, 290, 182});
}

// Whatever it shows: lit from the left up to one place, and nowhere lit in part. The line at 1:1 is
// there in both halves' pictures: 2 columns light between 2 dark ones.
TEST(MeterPictures, WhereverTheyAreCutTheBarIsOnePiece) {
  const Picture on = bundlePicture("00135", ""), off = bundlePicture("00136", "");
  ASSERT_EQ(on.width, 182);
  ASSERT_EQ(on.height, off.height);
  for (int x = 0; x < on.width; ++x) {
    SCOPED_TRACE(x);
    const bool isLine = x >= 89 && x < 93;
    for (int y = 2; y < on.height - 2; ++y) {
      if (isLine) {
        EXPECT_EQ(on.at(x, y), off.at(x, y));
        EXPECT_EQ(luminance(on.at(x, y)) > 0.25, x == 90 || x == 91);
      } else {
        EXPECT_GT(luminance(on.at(x, y)), 0.25);
        EXPECT_LT(luminance(off.at(x, y)), 0.06);
      }
    }
  }
}
