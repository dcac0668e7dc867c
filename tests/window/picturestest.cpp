// The window's looks, compared with the pictures beside this file. refresh-pictures.sh
// takes them anew.
#include <cstdlib>
#include <functional>
#include <numeric>
#include <optional>

#include "picturematch.h"
#include "settingsmanager.h"
#include "windowtest.h"

namespace {

constexpr int kMixPreset = 3;   // "mix 3": all three sliders somewhere else
constexpr int kRoomPreset = 4;  // "room 1": the one that documents show

// A state of the window: how it is reached, what part of it is kept, where text stands in it, and
// the screen's scale. Areas are those at a scale of 1.
struct State {
  std::string name;
  std::function<void(WindowHost&)> reach;
  Area part;  // empty: the whole window
  std::vector<Area> texts;
  std::optional<Area> underPointer = {};
  double scale = 1;
};

std::ostream& operator<<(std::ostream& out, const State& state) {
  return out << state.name;
}

std::vector<Area> displays() {
  std::vector<Area> areas(std::begin(places::kCaptions), std::end(places::kCaptions));
  for (int index = 0; index < 3; ++index) areas.push_back(places::valueDisplay(index));
  areas.push_back(places::kName);
  return areas;
}

std::vector<Area> listEntries() {
  std::vector<Area> areas;
  for (int index = 0; index < 32; ++index) areas.push_back(places::listEntry(index));
  return areas;
}

Area around(const Area& area) {
  constexpr int kMargin = 5;  // pixels, so that a button that is out of place shows
  return {area.left - kMargin, area.top - kMargin, area.right + kMargin, area.bottom + kMargin};
}

// Whole windows with everything in them, and pictures of each kind that is drawn in part.
void addLarger(std::vector<State>& all) {
  struct Larger {
    const char* suffix;
    double scale;
  };
  std::vector<State> larger;
  for (const Larger& of : {Larger{"@1.5x", 1.5}, Larger{"@2x", 2}}) {
    for (const char* name : {"closed", "list", "about", "text-entry", "switches", "meter-wide",
                             "default-preset-pressed", "rocker-right-hover"}) {
      const auto found = std::find_if(all.begin(), all.end(),
                                      [name](const State& state) { return state.name == name; });
      if (found == all.end()) throw std::logic_error(name);
      larger.push_back(*found);
      larger.back().name += of.suffix;
      larger.back().scale = of.scale;
    }
  }
  all.insert(all.end(), larger.begin(), larger.end());
}

std::vector<State> states() {
  const Area whole;
  std::vector<State> all = {
      {"closed", [](WindowHost&) {}, whole, displays()},
      {"first-preset",
       [](WindowHost& host) {
         host.click(places::kMenu);
         host.click(places::listEntry(0));
       },
       whole, displays()},
      {"list",
       [](WindowHost& host) {
         host.click(places::kMenu);
         host.hover(places::listEntry(21));
       },
       whole, listEntries()},
      {"about", [](WindowHost& host) { host.click(places::kAbout); }, whole,
       [] {
         std::vector<Area> areas = displays();
         areas.push_back(places::kAboutPanel);
         return areas;
       }()},
      {"text-entry", [](WindowHost& host) { host.click(places::kName); }, whole, displays()},
      {"text-entry-typed",
       [](WindowHost& host) {
         host.click(places::kName);
         host.type("Wide piano");
       },
       around(places::kName),
       {places::kName}},
      {"longest-name",
       [](WindowHost& host) { host.setProgramName("WWWWWWWWWWWWWWWWWWWWWWWW"); },
       around({places::kName.left, places::kName.top, places::kMenu.right, places::kName.bottom}),
       {places::kName}},
      {"switches",
       [](WindowHost& host) {
         host.setParameter(3, 0.0F);
         host.setParameter(4, 1.0F);
       },
       {places::kProcessSwitch.left, places::kProcessSwitch.top, places::kPhaseSwitch.right,
        places::kPhaseSwitch.bottom},
       {}},
      {"values",
       [](WindowHost& host) {
         host.setParameter(0, 1.0F);
         host.setParameter(1, 1.0F);
         host.setParameter(2, 1.0F);
       },
       {0, places::slider(0).top, places::kWidth, places::slider(2).bottom},
       displays()},
      {"name-hover", [](WindowHost&) {}, around(places::kName), {places::kName}, places::kName},
      {"tooltip",
       [](WindowHost& host) {
         host.hover(places::kDefaultPreset);
         host.idleFor(1000);
       },
       {0, 178, places::kWidth, 230},
       {{0, 180, places::kWidth, 214}}},
      {"meter-mid",
       [](WindowHost& host) {
         host.setParameter(0, 0.0F);
         host.play(0.5F, 0.5F, 88200);
       },
       around(places::kMeter),
       {}},
      {"meter-wide",
       [](WindowHost& host) {
         host.setParameter(0, 1.0F);
         host.setParameter(2, 0.0F);
         host.play(0.5F, 0.5F, 88200);
       },
       around(places::kMeter),
       {}},
  };
  struct Button {
    const char* name;
    Area place;
  };
  const Button buttons[] = {
      {"save-preset", places::kSavePreset},
      {"default-preset", places::kDefaultPreset},
      {"load-preset", places::kLoadPreset},
      {"save-bank", places::kSaveBank},
      {"default-bank", places::kDefaultBank},
      {"load-bank", places::kLoadBank},
      {"store-a", places::kStoreA},
      {"recall-a", places::kRecallA},
      {"store-b", places::kStoreB},
      {"recall-b", places::kRecallB},
      {"manual", places::kManual},
      {"rocker-left", places::kRockerLeft},
      {"rocker-right", places::kRockerRight},
      {"list-arrow", places::kMenu},
      {"process", places::kProcessSwitch},
      {"phase", places::kPhaseSwitch},
  };
  for (const Button& button : buttons) {
    const std::string name = button.name;
    all.push_back({name + "-hover", [](WindowHost&) {}, around(button.place), {}, button.place});
    // Those that show a press at all; the dialog buttons and the manual's act and are
    // at rest again.
    const bool shows =
        name.find("store") == 0 || name.find("recall") == 0 || name.find("rocker") == 0;
    const bool twice = name.find("default") == 0;
    if (!shows && !twice) continue;
    all.push_back({name + "-pressed",
                   [place = button.place, twice](WindowHost& host) {
                     if (twice) host.click(place);
                     host.hover(place);
                     host.press();
                   },
                   around(button.place),
                   {}});
  }
  addLarger(all);
  // That of README and manual.
  all.push_back({"at-work@2x",
                 [](WindowHost& host) {
                   host.click(places::kMenu);
                   host.click(places::listEntry(kRoomPreset));
                   host.play(0.5F, 0.5F, 88200);
                 },
                 whole,
                 displays(),
                 {},
                 2});
  return all;
}

class Pictures : public WindowTest, public ::testing::WithParamInterface<State> {};

Picture part(const Picture& whole, const Area& area) {
  Picture taken{area.right - area.left, area.bottom - area.top, {}};
  for (int y = area.top; y < area.bottom; ++y) {
    for (int x = area.left; x < area.right; ++x) taken.pixels.push_back(whole.at(x, y));
  }
  return taken;
}

std::string nameOf(const ::testing::TestParamInfo<State>& info) {
  std::string name = info.param.name;
  for (const char sign : {'-', '@', '.'}) std::replace(name.begin(), name.end(), sign, '_');
  return name;
}

// The caret blinks: the darkest picture shows it.
Picture withCaret(WindowHost& host) {
  const auto brightness = [](const Picture& picture) {
    return std::accumulate(
        picture.pixels.begin(), picture.pixels.end(), std::uint64_t{0},
        [](std::uint64_t sum, std::uint32_t pixel) { return sum + (pixel & 0xFFU); });
  };
  constexpr int kSamples = 30;
  constexpr int kInterval = 40;  // ms: together more than a blink
  Picture darkest = host.picture();
  for (int sample = 0; sample < kSamples; ++sample) {
    host.idleFor(kInterval, 5);
    Picture now = host.pictureNow();
    if (brightness(now) < brightness(darkest)) darkest = std::move(now);
  }
  return darkest;
}

Picture pictureOf(WindowHost& host, const State& state, std::vector<Area>& texts) {
  host.click(places::kMenu);
  host.click(places::listEntry(kMixPreset));
  host.moveAway();
  host.settle();
  state.reach(host);
  const bool pointerMatters = state.name.find("hover") != std::string::npos ||
                              state.name.find("pressed") != std::string::npos ||
                              state.name.find("list") == 0 || state.name == "tooltip";
  if (!pointerMatters) host.moveAway();
  Picture picture = state.name.find("text-entry") == 0 ? withCaret(host)
                    : state.underPointer               ? host.lit(*state.underPointer)
                                                       : host.picture();
  const Area area = state.part == Area{} ? picture.whole() : host.scaled(state.part);
  texts = state.texts;
  for (Area& text : texts) {
    text = host.scaled(text);
    text = {text.left - area.left, text.top - area.top, text.right - area.left,
            text.bottom - area.top};
  }
  return part(picture, area);
}

}  // namespace

TEST_P(Pictures, LookAsTheyDid) {
  const State& state = GetParam();
  SettingsManager desktop;
  desktop.setResourceDpi(static_cast<int>(96 * state.scale));
  WindowHost host(0, WindowHost::Parent::plain, state.scale);
  ASSERT_TRUE(host.openEditor());
  std::vector<Area> texts;
  const Picture actual = pictureOf(host, state, texts);
  // Else it is down for the next window too, which misses its first press.
  if (state.name.find("pressed") != std::string::npos) host.release();
  const char* folder = std::getenv("TRELVAN_PICTURES");
  ASSERT_NE(folder, nullptr);
  const std::string kept = std::string(folder) + "/" + state.name + ".png";
  if (std::getenv("TRELVAN_REFRESH_PICTURES") != nullptr) {
    EXPECT_TRUE(writePicture(actual, kept));
    GTEST_SKIP() << "taken anew: " << kept;
  }
  const Picture expected = readPicture(kept);
  const PictureMatch match = matchPictures(expected, actual, texts);
  if (match.alike()) return;
  writePicture(actual, state.name + ".actual.png");
  if (expected.width == actual.width && expected.height == actual.height) {
    writePicture(differencePicture(expected, actual), state.name + ".difference.png");
  }
  ADD_FAILURE() << "not as in " << kept << ": " << match << "\nsee "
                << std::filesystem::current_path().string() << "/" << state.name
                << ".actual.png and .difference.png";
}

INSTANTIATE_TEST_SUITE_P(Window, Pictures, ::testing::ValuesIn(states()), nameOf);

namespace {

// What the comparison must tell apart, and what it must not.
class PictureMatching : public WindowTest {
 protected:
  PictureMatching() {
    host.setParameter(0, 0.6F);
    host.openEditor();
    before = host.picture();
  }

  bool alike() { return matchPictures(before, host.picture(), displays()).alike(); }

  WindowHost host;
  Picture before;
};

// The area moved by whole pixels, as another font rendering might at most.
Picture moved(const Picture& picture, const Area& area, int right, int down) {
  Picture changed = picture;
  for (int y = area.top; y < area.bottom; ++y) {
    for (int x = area.left; x < area.right; ++x) {
      const bool inside = area.contains(x - right, y - down);
      changed.pixels[static_cast<std::size_t>(y * picture.width + x)] =
          inside ? picture.at(x - right, y - down) : picture.at(x, y);
    }
  }
  return changed;
}

}  // namespace

TEST_F(PictureMatching, TheSameWindowIsAlike) {
  EXPECT_TRUE(alike());
}

TEST_F(PictureMatching, AnotherNumberIsNot) {
  host.setParameter(0, 0.61F);  // "61%" for "60%"
  const Picture after = host.picture();
  Picture onlyText = before;
  for (int y = 0; y < before.height; ++y) {
    for (int x = places::valueDisplay(0).left; x < before.width; ++x) {
      onlyText.pixels[static_cast<std::size_t>(y * before.width + x)] = after.at(x, y);
    }
  }
  const PictureMatch match = matchPictures(before, onlyText, displays());
  EXPECT_EQ(match.artwork, 0);
  EXPECT_FALSE(match.alike()) << match;
}

TEST_F(PictureMatching, AnotherNameIsNot) {
  host.setProgramName("inat");
  EXPECT_FALSE(alike());
}

TEST_F(PictureMatching, AMovedHandleIsNot) {
  host.setParameter(0, 0.63F);
  const PictureMatch match = matchPictures(before, host.picture(), displays());
  EXPECT_FALSE(match.alike()) << match;
}

TEST_F(PictureMatching, ATurnedSwitchIsNot) {
  host.setParameter(4, 1.0F);
  EXPECT_FALSE(alike());
}

TEST_F(PictureMatching, TextThatIsDrawnAPixelAwayIsAlike) {
  for (const Area& text : displays()) {
    SCOPED_TRACE(text);
    const PictureMatch match = matchPictures(before, moved(before, text, 1, 0), displays());
    EXPECT_TRUE(match.alike()) << match;
  }
}

TEST_F(PictureMatching, TextThatIsDrawnThreePixelsAwayIsNot) {
  const PictureMatch match = matchPictures(before, moved(before, places::kName, 0, 3), displays());
  EXPECT_FALSE(match.alike()) << match;
}

TEST_F(PictureMatching, PicturesOfAnotherSizeAreNot) {
  EXPECT_FALSE(matchPictures(before, part(before, {0, 0, 100, 100}), {}).alike());
  EXPECT_FALSE(matchPictures(Picture(), Picture(), {}).alike());
}
