// A sound file that is played while `widen --editor` shows the window: by the clock where no sound
// card is there, and to a card that is a file.
#include <gmock/gmock.h>
#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <map>
#include <sstream>

#include "places.h"
#include "tests/host/sounds.h"
#include "widenwindow.h"
#include "windowhost.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;
using ::testing::HasSubstr;

// All three: what shows that the window is drawn, and does not move.
constexpr Area kSliders{63, 51, 239, 138};

constexpr int kFloatWav = SF_FORMAT_WAV | SF_FORMAT_FLOAT;

class WidenPlaying : public WidenWindow {
 protected:
  WidenPlaying() {
    std::filesystem::create_directory(root / "home");
    setCard("type hw card 99");  // none has so many
    writeSound(in("in.wav"), noise(10007, 2, 5), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  }

  // What ALSA's default is for the programs of this home.
  void setCard(const std::string& description) {
    writeText(root / "home/.asoundrc", "pcm.!default { " + description + " }\n");
  }
  void setCardOfFile(const std::string& format = "raw") {
    setCard("type file slave.pcm null format " + format + " file \"" + heardFile() + "\"");
  }
  // frames: after which it is gone; 0: it takes none.
  void setCardThatIsLost(int frames) {
    setCard("type lostcard");
    std::ofstream(root / "home/.asoundrc", std::ios::app)
        << "pcm_type.lostcard { lib \"" WIDEN_TEST_PLUGINS "/lostcard.so\" }\n";
    environment["TRELVAN_CARD_FRAMES"] = std::to_string(frames);
  }

  void play(std::vector<std::string> words, const std::string& does = "") {
    environment["HOME"] = (root / "home").string();
    environment["PULSE_SERVER"] = "/nonexistent";
    environment["WIDEN_TEST_LOG"] = (root / "log").string();
    environment["WIDEN_TEST_DOES"] = does;
    start(std::move(words), {environment});
  }
  void playShown(const std::string& does = "") {
    play({"in.wav", "--plugin", plugin("shown")}, does);
  }

  // What the effect wrote down, a call a line.
  std::vector<std::string> log() const {
    std::vector<std::string> lines;
    std::istringstream text(textOf(root / "log"));
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
  }
  long blocks() const {
    const auto lines = log();
    return std::count_if(lines.begin(), lines.end(), [](const std::string& line) {
      return line.find("process ") != std::string::npos;
    });
  }
  bool playsOn() {
    const long before = blocks();
    return comesTrue([&] { return blocks() > before + 10; });
  }

  std::string heardFile() const { return (root / "heard").string(); }
  // Stereo floats.
  std::size_t heardFrames() const {
    std::error_code error;
    const auto size = std::filesystem::file_size(heardFile(), error);
    return error ? 0 : size / (2 * sizeof(float));
  }

  // What widen makes of the file written `times` times in a row.
  std::string rendered(const std::string& file, int times, std::vector<std::string> words) {
    const Sound once = readSound(in(file));
    Sound all{once.rate, once.channels, {}};
    for (int i = 0; i < times; ++i)
      all.samples.insert(all.samples.end(), once.samples.begin(), once.samples.end());
    writeSound(in("all.wav"), all, kFloatWav);
    words.insert(words.end(), {"all.wav", "-o", "rendered.wav", "--force", "--format", "float"});
    EXPECT_EQ(widen(words).status, 0);
    const Sound result = readSound(in("rendered.wav"));
    const std::vector<float> samples(result.samples.begin(), result.samples.end());
    std::string bytes(samples.size() * sizeof(float), 0);
    std::memcpy(bytes.data(), samples.data(), bytes.size());
    return bytes;
  }

  // That the card got what widen renders, for as long as it played.
  void expectHeard(const std::string& file, const std::vector<std::string>& words) {
    const std::size_t once = readSound(in(file)).frames();
    const std::string heard = textOf(heardFile());
    const auto times = static_cast<int>(heard.size() / (2 * sizeof(float)) / once + 1);
    EXPECT_GT(times, 3) << "rounds";
    EXPECT_TRUE(heard == rendered(file, times, words).substr(0, heard.size())) << heard.size();
  }

  std::map<std::string, std::string> environment;
};

// Lines in the log from `first` on, each with the words of the next expected one in it.
bool hasInOrder(const std::vector<std::string>& lines, const std::vector<std::string>& expected) {
  auto at = lines.begin();
  for (const std::string& words : expected) {
    at = std::find_if(at, lines.end(), [&](const std::string& line) {
      return line.find(words) != std::string::npos;
    });
    if (at == lines.end()) return false;
    ++at;
  }
  return true;
}

}  // namespace

TEST_F(WidenPlaying, GoesByTheClockWithoutACard) {
  playShown();
  ASSERT_TRUE(comesTrue([&] { return blocks() > 3; }));
  const auto before = steady_clock::now();
  const long first = blocks();
  std::this_thread::sleep_for(milliseconds(1500));
  const double played = static_cast<double>(blocks() - first) * 1024 / 44100;  // s
  const std::chrono::duration<double> passed = steady_clock::now() - before;
  EXPECT_GT(played, 0.5 * passed.count());
  EXPECT_LT(played, 1.5 * passed.count());
  const Outcome outcome = close();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.error, ::testing::StartsWith("widen: no sound card can be opened ("));
  EXPECT_EQ(std::count(outcome.error.begin(), outcome.error.end(), '\n'), 1) << outcome.error;
}

// 1 is what effects are told on the thread of their window, 2 on the one that plays.
TEST_F(WidenPlaying, ProcessesOnAThreadOfItsOwnAndEndsInOrder) {
  playShown();
  ASSERT_TRUE(playsOn());
  EXPECT_EQ(close().status, 0);
  const auto lines = log();
  EXPECT_TRUE(hasInOrder(
      lines, {"main: setSampleRate 44100", "main: mainsChanged 1", "main: editOpen level 1",
              "other: process 1024 level 2 at 0", "other: process 1024 level 2 at 1024",
              "main: editClose level 1", "main: mainsChanged 0", "main: close"}));
  for (const std::string& line : lines) {
    EXPECT_EQ(line.find("process") != std::string::npos, line.starts_with("other:")) << line;
  }
  const auto off = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
    return line.find("mainsChanged 0") != std::string::npos;
  });
  EXPECT_FALSE(hasInOrder({off, lines.end()}, {"process"})) << "the thread had ended";
}

TEST_F(WidenPlaying, MovesTheMeterWithoutACard) {
  Picture sliders;
  {
    WindowHost host;
    host.openEditor();
    host.settle();
    const Area place = host.screenArea();
    sliders = display.picture({place.left + kSliders.left, place.top + kSliders.top,
                               place.left + kSliders.right, place.top + kSliders.bottom});
  }
  start({"--process", "off"});
  ASSERT_TRUE(comesTrue([&] { return display.picture(kSliders) == sliders; })) << "it is drawn";
  const Picture silence = display.picture(places::kMeter);
  EXPECT_EQ(close().status, 0);
  // Nothing but mid, which goes through.
  writeSound(in("mono.wav"), noise(30000, 1, 7), kFloatWav);
  play({"mono.wav", "--process", "off"});
  ASSERT_TRUE(comesTrue([&] { return display.picture(kSliders) == sliders; })) << "it is drawn";
  EXPECT_TRUE(comesTrue([&] { return !(display.picture(places::kMeter) == silence); }));
  EXPECT_EQ(close().status, 0);
}

TEST_F(WidenPlaying, IsHeardRoundAndRoundWithoutASeamBitForBit) {
  setCardOfFile();
  playShown();
  EXPECT_TRUE(comesTrue([&] { return heardFrames() > std::size_t{4 * 10007}; }));
  const Outcome outcome = close();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.error, "");
  expectHeard("in.wav", {"--plugin", plugin("shown")});
}

TEST_F(WidenPlaying, SoundsAsWidenRendersTrelvan) {
  setCardOfFile();
  // Mono, at another rate, shorter than a block.
  Sound tune = noise(777, 1, 6);
  tune.rate = 48000;
  writeSound(in("mono.wav"), tune, SF_FORMAT_WAV | SF_FORMAT_PCM_24);
  const std::vector<std::string> values = {"--width",    "80%", "--base-freq", "200Hz",
                                           "--emphasis", "0.4", "--gain",      "-3dB",
                                           "--block",    "300"};
  std::vector<std::string> words = values;
  words.insert(words.begin(), "mono.wav");
  play(words);
  EXPECT_TRUE(comesTrue([&] { return heardFrames() > 20000; }));
  EXPECT_EQ(close().status, 0);
  expectHeard("mono.wav", values);
}

TEST_F(WidenPlaying, TellsTheCardTheFilesRate) {
  setCardOfFile("wav");
  Sound low = noise(5000, 1, 6);
  low.rate = 22050;
  writeSound(in("low.wav"), low, kFloatWav);
  play({"low.wav"});
  EXPECT_TRUE(comesTrue([&] { return heardFrames() > 5000; }));
  EXPECT_EQ(close().status, 0);
  // Where a WAV has them.
  const std::string header = textOf(heardFile()).substr(0, 44);
  std::uint16_t channels = 0;
  std::uint32_t rate = 0;
  std::memcpy(&channels, header.data() + 22, sizeof channels);
  std::memcpy(&rate, header.data() + 24, sizeof rate);
  EXPECT_EQ(channels, 2);
  EXPECT_EQ(rate, 22050U);
}

// Such a card takes all at once.
TEST_F(WidenPlaying, DoesNotRunAheadOfTheClock) {
  setCardOfFile();
  const auto before = steady_clock::now();
  playShown();
  ASSERT_TRUE(comesTrue([&] { return heardFrames() > 44100; }));
  EXPECT_EQ(close().status, 0);
  const std::chrono::duration<double> passed = steady_clock::now() - before;
  EXPECT_LT(static_cast<double>(heardFrames()) / 44100, 1.1 * passed.count() + 0.5);
}

TEST_F(WidenPlaying, GoesOnInSilenceWhenTheCardIsGone) {
  setCardThatIsLost(20000);
  playShown();
  ASSERT_TRUE(comesTrue([&] { return blocks() > 20000 / 1024 + 20; }));
  EXPECT_TRUE(playsOn());
  const Outcome outcome = close();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.error, "widen: the sound card is gone: the file plays in silence\n");
}

TEST_F(WidenPlaying, GoesOnInSilenceWhenTheCardStandsStill) {
  setCardThatIsLost(0);
  playShown();
  ASSERT_TRUE(comesTrue([&] { return blocks() > 40; }));
  EXPECT_TRUE(playsOn());
  const Outcome outcome = close();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.error, "widen: the sound card is gone: the file plays in silence\n");
}

TEST_F(WidenPlaying, EndsInOrderByASignalAndSavesTheState) {
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    std::filesystem::remove(root / "log");
    play({"in.wav", "--plugin", plugin("shown"), "--save-state", "left.chunk"});
    ASSERT_TRUE(playsOn());
    kill(process, number);
    EXPECT_EQ(end().status, -number) << "as the signal says, so that a shell stops too";
    EXPECT_TRUE(hasInOrder(log(), {"main: editClose", "main: mainsChanged 0", "main: close"}));
    EXPECT_TRUE(textOf(in("left.chunk")).ends_with("\nstate\n")) << "after the line that names it";
    std::filesystem::remove(in("left.chunk"));
  }
}

TEST_F(WidenPlaying, SavesTheStateWhenTheWindowIsClosed) {
  play({"in.wav", "--plugin", plugin("shown"), "--save-state", "left.chunk"});
  ASSERT_TRUE(playsOn());
  EXPECT_EQ(close().status, 0);
  EXPECT_TRUE(textOf(in("left.chunk")).ends_with("\nstate\n")) << "after the line that names it";
}

TEST_F(WidenPlaying, EndsAtOnceByASecondSignal) {
  playShown("hang");
  ASSERT_TRUE(playsOn());
  std::this_thread::sleep_for(milliseconds(200));  // the window's thread is stuck by now
  const auto before = steady_clock::now();
  kill(process, SIGINT);
  std::this_thread::sleep_for(milliseconds(100));
  kill(process, SIGINT);
  EXPECT_EQ(end().status, -SIGINT);
  EXPECT_LT(steady_clock::now() - before, std::chrono::seconds(10));
}

TEST_F(WidenPlaying, FailsWhenTheEffectChangesItsShape) {
  setCardOfFile();
  playShown("change");
  expectRefusal(end(), 1, "changed from 2 inputs and 2 outputs to 2 inputs and 3 outputs");
}

TEST_F(WidenPlaying, RefusesWhatItCannotPlay) {
  writeText(in("text.wav"), "no sound");
  writeSound(in("nan.wav"), Sound{44100, 1, {0.0, std::nan("")}}, kFloatWav);
  environment = {{"WIDEN_TEST_DOES", "mono"}};
  const auto outcome = [&](const std::vector<std::string>& words) {
    return widen(words, {environment});
  };
  expectRefusal(outcome({"--editor", "gone.wav"}), 1, "gone.wav: no such file");
  expectRefusal(outcome({"--editor", "text.wav"}), 1, "text.wav: not a sound file");
  expectRefusal(outcome({"--editor", "nan.wav"}), 1, "nan.wav: holds a value that is not a number");
  expectRefusal(outcome({"--editor", "in.wav", "in.wav"}), 2, "plays one sound file");
  expectRefusal(outcome({"--editor", "in.wav", "-o", "out.wav"}), 2, "leave -o out");
  expectRefusal(outcome({"--editor", "in.wav", "--plugin", plugin("shown")}), 1, "takes mono only");
}
