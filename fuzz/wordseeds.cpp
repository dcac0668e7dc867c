// Seeds of command lines, of values on them, of an entry's keys, of dialogs' answers and of a
// desktop's settings.
#include <initializer_list>
#include <string>

#include "fuzz/seeds.h"
#include "tests/support/xsettingsbytes.h"

using presetimage::Bytes;

namespace {

// With zeros in between.
Bytes words(std::initializer_list<std::string> list) {
  Bytes joined;
  for (const std::string& word : list) {
    if (!joined.empty()) joined.push_back(0);
    joined.insert(joined.end(), word.begin(), word.end());
  }
  return joined;
}

}  // namespace

void fuzz::addWordSeeds(Corpus& corpus) {
  const auto add = [&corpus](const std::string& name, std::initializer_list<std::string> list) {
    corpus.add("arguments", name, words(list));
  };
  int number = 0;
  add("plain", {"in.wav", "-o", "out.wav"});
  add("values", {"a.wav", "b.wav", "-o", "out/", "--width", "75%", "--base-freq", "0.265kHz",
                 "--emphasis=0.3", "--process", "on", "--phase", "0"});
  add("sound", {"a.wav", "-fo", "b.flac", "--format", "pcm24", "--gain", "-3dB", "--tail", "250ms",
                "--plot", "p.png", "-j4", "--block", "64", "--double"});
  add("state", {"--save-state", "s", "--state", "t", "--bank", "b.orb", "--preset", "3", "--set",
                "width=40%", "--set", "2=off"});
  add("questions", {"--info", "--list-params", "--list-presets", "--plugin", "x.so", "-q"});
  add("help", {"--help"});
  add("version", {"--version"});
  // Just beyond what is allowed.
  add("too-many-jobs", {"a.wav", "-o", "b.wav", "-j", "257"});
  add("no-block", {"a.wav", "-o", "b.wav", "--block", "0"});
  add("no-value", {"a.wav", "-o", "b.wav", "--set", "width="});
  add("too-loud", {"a.wav", "-o", "b.wav", "--gain", "60.1dB", "--tail", "3601s"});
  add("automatic", {"--tail", "auto", "--", "-in.wav", "-o", "x"});
  for (const std::string value : {"75%", "0.75", "265Hz", "0.265 kHz", "-3dB", "250 ms", "2s", "on",
                                  "No", "1e-3", ".5", "440"}) {
    corpus.add("values", std::to_string(++number), words({value}));
  }

  // The name's length and the name; then each event's kind and what it needs, see textfield.cpp.
  constexpr unsigned char kBack = 1, kReturn = 4, kEnd = 9, kHome = 10, kLeft = 11, kRight = 13,
                          kDelete = 22, kShift = 1;
  corpus.add("textfield", "keys",
             {4, 'n', 'a',   'm',    'e',    3,     kRight, 0, 0,       '!', 3, kLeft,
              0, 3,   kLeft, kShift, 3,      kBack, 0,      3, kHome,   0,   3, kDelete,
              0, 7,   3,     kEnd,   kShift, 0,     'x',    3, kReturn, 0});
  corpus.add("textfield", "no-ascii",
             {9,    0xC3, 0xA4, 0xE9, 0x9F, 0xB3, 0xF0, 0x9D, 0x84,   0x9E,   3, kLeft, 0, 1,
              0xF3, 0x97, 2,    0x1E, 0xD1, 1,    0,    3,    kRight, kShift, 3, kBack, 0});
  corpus.add("textfield", "no-text",
             {6, 'c', 0xFF,    'u', 't', 0x80, 0xE2, 3,    kHome, 0,    3, kDelete,
              0, 3,   kDelete, 0,   7,   2,    0xFF, 0xFF, 0xFF,  0xFF, 7});
  corpus.add("textfield", "mouse",
             {5,   'h', 'e', 'l', 'l', 'o', 6,  0, 100, 6,    1, 110, 6,   2, 110, 0,
              'W', 6,   0,   90,  6,   0,   90, 7, 3,   kEnd, 0, 0,   'z', 6, 0,   10});

  // Which desktop and dialog, the folder, the proposed name, the passes that are waited; then of
  // each program how it ends and what it writes, and of each question for a file whether it is
  // there. See dialoganswers.cpp, scriptedprograms.cpp.
  corpus.add("dialoganswers", "load",
             {0, 1, '/', 0, 255, 0, 2, 2, '/', 'a', 6, '/', 'b', '.', 'o', 'r', '\n'});
  corpus.add("dialoganswers", "save",
             {9, 0, 5, 'p', '.', 'o', 'r', 'v', 255, 0, 1, 7, '/', 'p', '.', 'o', 'r', 'v', '\n'});
  corpus.add("dialoganswers", "save-over-another",
             {8, 0, 1, 'p', 255, 0, 1, 3, '/', 'p', '\n', 1, 3, 0, 0, 1, 3, '/', 'q', '\n', 0});
  corpus.add("dialoganswers", "second-program", {6, 0, 0, 255, 5, 0, 0, 1, 2, '/', 'x'});
  corpus.add("dialoganswers", "closed", {2, 0, 0, 1, 0, 4, 1, '/', 1, 'a'});
  corpus.add("dialoganswers", "status-unknown", {2, 0, 0, 255, 0x60, 1, 2, '/', 'y'});

  for (const auto order : {XSettingsBytes::Order::little, XSettingsBytes::Order::big}) {
    XSettingsBytes settings(order);
    settings.text("Net/ThemeName", "Adwaita");
    settings.colour("Net/Accent", {1, 2, 3, 4});
    settings.number("Xft/DPI", 196608);
    settings.number("Net/DoubleClickTime", 400);
    corpus.add("desktopsettings", order == XSettingsBytes::Order::big ? "big" : "little",
               settings.bytes());
  }
  corpus.add("desktopsettings", "endless", words({"Xft.dpi: inf\n"}));
  corpus.add("desktopsettings", "resources", words({"*a:\tb\nXft.dpi:\t192\nXft.hinting: 1\n"}));
}
