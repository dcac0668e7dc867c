// The picture of what an effect did to the stereo image.
#include "host/plot/plot.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sndfile.h>
#include <unistd.h>

#include <cmath>

#include "host/base/failure.h"
#include "host/plot/plotcanvas.h"
#include "tests/host/foldertest.h"
#include "tests/host/program.h"
#include "tests/host/sounds.h"

namespace {

class Plots : public FolderTest {
 protected:
  // A PNG has its size in its first chunk, most significant byte first.
  static std::pair<int, int> sizeOfPng(const std::string& bytes) {
    const auto number = [&](std::size_t at) {
      int value = 0;
      for (std::size_t i = 0; i < 4; ++i)
        value = value * 256 + static_cast<unsigned char>(bytes[at + i]);
      return value;
    };
    EXPECT_EQ(bytes.substr(1, 3), "PNG");
    return {number(16), number(20)};
  }

  // The second line is longer than the picture is wide.
  static PlotCaption caption(const std::string& title) { return {title, std::string(400, 'v')}; }

  std::string draw(const StereoAnalysis& analysis, const std::string& input) const {
    drawPlot(analysis, caption(input), in("p.png"), true)->keep();
    return textOf(in("p.png"));
  }
};

}  // namespace

TEST_F(Plots, ArePngsThatFollowTheSound) {
  StereoAnalysis narrow(44100);
  StereoAnalysis wide(44100);
  for (int i = 0; i < 20000; ++i) {
    const double mid = 0.5 * std::sin(0.05 * i);
    const double side = 0.3 * std::sin(0.031 * i);
    const double left = mid + side;
    const double right = mid - side;
    for (StereoAnalysis* analysis : {&narrow, &wide}) analysis->addBefore(&mid, &mid, 1);
    narrow.addAfter(&mid, &mid, 1);
    wide.addAfter(&left, &right, 1);
  }
  const std::string first = draw(narrow, "song.wav");
  const std::string second = draw(wide, "song.wav");
  EXPECT_EQ(sizeOfPng(first), (std::pair{1600, 1080}));
  EXPECT_NE(first, second);
  EXPECT_EQ(first, draw(narrow, "song.wav")) << "the same again";
  EXPECT_NE(first, draw(narrow, "other.wav")) << "the title";
}

TEST_F(Plots, ManageWithSilenceAndWithNothing) {
  StereoAnalysis silent(8000);
  const double zero = 0.0;
  silent.addBefore(&zero, &zero, 1);
  silent.addAfter(&zero, &zero, 1);
  EXPECT_EQ(sizeOfPng(draw(silent, "silent.wav")).first, 1600);
  EXPECT_EQ(sizeOfPng(draw(StereoAnalysis(30), "nothing.wav")).first, 1600)
      << "and with a rate below all axes";
}

// On a system without any face as well: the picture brings its own.
TEST_F(Plots, HaveTheSameFaceOnEverySystem) {
  writeSound(in("a.wav"), noise(5000, 2, 1), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  writeText(in("fonts.conf"), "<?xml version=\"1.0\"?><fontconfig></fontconfig>\n");
  const std::vector<std::string> words = {"-q",     "-f",    "a.wav",   "-o", "b.wav",
                                          "--plot", "b.png", "--width", "0.5"};
  ASSERT_EQ(runProgram(folder, words).status, 0);
  const std::string picture = textOf(in("b.png"));
  ASSERT_EQ(runProgram(folder, words, {{{"FONTCONFIG_FILE", in("fonts.conf").string()}}}).status,
            0);
  EXPECT_EQ(sizeOfPng(picture).first, 1600);
  EXPECT_TRUE(textOf(in("b.png")) == picture);
}

TEST_F(Plots, ShowTextsThatAreNotText) {
  for (const char* name : {"\xff\xfe.wav", "\xc3.wav", "\xed\xa0\x80.wav", "\xf4\x90\x80\x80.wav",
                           "\xe2\x82\xac.wav", "line\nbreak.wav", "\xc0\x80.wav"}) {
    PlotCanvas canvas(60, 30, {0, 0, 0});
    const PlotText look{12, {1, 1, 1}};
    canvas.text(canvas.fitted(name, look, 30), {0, 20}, look);
    const TemporaryFile file(in("p.png"), true);
    EXPECT_NO_THROW(canvas.writePng(file.descriptor(), name)) << name;
  }
}

// The rule is the effect's window's: a byte that is no text becomes U+FFFD, a character without its
// end goes; a font has no control characters.
TEST_F(Plots, RepairTextsAsTheWindowDoes) {
  const auto drawn = [&](const std::string& text) {
    PlotCanvas canvas(60, 30, {0, 0, 0});
    canvas.text(text, {2, 20}, {12, {1, 1, 1}});
    const TemporaryFile file(in("p.png"), true);
    canvas.writePng(file.descriptor(), "p.png");
    std::string bytes(100000, '\0');  // more than so small a picture takes
    const ssize_t size = pread(file.descriptor(), bytes.data(), bytes.size(), 0);
    return bytes.substr(0, size > 0 ? static_cast<std::size_t>(size) : 0);
  };
  EXPECT_NE(drawn("a"), drawn("b")) << "the picture shows the text";
  EXPECT_EQ(drawn("f\xFCr"), drawn("f\uFFFDr"));
  EXPECT_NE(drawn("f\xFCr"), drawn("f?r"));
  EXPECT_EQ(drawn("name\xE2\x80"), drawn("name"));
  EXPECT_EQ(drawn("a\nb"), drawn("a?b"));
}

TEST_F(Plots, AreNotLeftUnfinished) {
  const StereoAnalysis analysis(44100);
  { const auto file = drawPlot(analysis, caption("a.wav"), in("p.png"), false); }
  EXPECT_THAT(names(), testing::IsEmpty());
}

TEST_F(Plots, ShortenTextsToTheirRoom) {
  PlotCanvas canvas(100, 100, {0, 0, 0});
  const PlotText look{12, {1, 1, 1}};
  EXPECT_EQ(canvas.fitted("short", look, 90), "short");
  const std::string fitted =
      canvas.fitted("much too long for it \xc3\xa4\xc3\xb6\xc3\xbc and more", look, 90);
  EXPECT_LE(canvas.widthOf(fitted, look), 90);
  EXPECT_TRUE(fitted.ends_with("\u2026"));
  EXPECT_TRUE(fitted.starts_with("much"));
}
