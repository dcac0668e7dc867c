// Somebody who does anything at all with two windows of two instances, and a host that does the
// same meanwhile.
#include "randomuser.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <algorithm>
#include <chrono>
#include <numeric>
#include <thread>
#include <utility>

#include "places.h"
#include "plugin/vstkeycode.h"
#include "tests/support/temporaryfolder.h"

namespace {

// All that can be pressed, and what lies beside it.
const std::vector<Area> kPlaces = {
    places::slider(0),       places::slider(1),    places::slider(2),    places::kProcessSwitch,
    places::kPhaseSwitch,    places::kAbout,       places::kManual,      places::kName,
    places::kMenu,           places::kRockerLeft,  places::kRockerRight, places::kSavePreset,
    places::kDefaultPreset,  places::kLoadPreset,  places::kSaveBank,    places::kDefaultBank,
    places::kLoadBank,       places::kStoreA,      places::kRecallA,     places::kStoreB,
    places::kRecallB,        places::kMeter,       places::kAboutPanel,  places::kList,
    places::valueDisplay(0), places::kCaptions[0], places::listEntry(3), places::listEntry(30),
    {0, 0, 320, 280},  // the host's own window around it
};
const std::vector<std::uint32_t> kKeys = {
    XKB_KEY_Return, XKB_KEY_Escape, XKB_KEY_Up,  XKB_KEY_Down,  XKB_KEY_Left,      XKB_KEY_Right,
    XKB_KEY_Tab,    XKB_KEY_Home,   XKB_KEY_End, XKB_KEY_Prior, XKB_KEY_BackSpace, XKB_KEY_Delete,
    XKB_KEY_space,  XKB_KEY_a,      XKB_KEY_v,   XKB_KEY_7,     XKB_KEY_F1,        XKB_KEY_period,
};
const std::vector<std::uint32_t> kModifiers = {XKB_KEY_Shift_L, XKB_KEY_Control_L, XKB_KEY_Alt_L};

}  // namespace

const std::vector<RandomUser::Chance> RandomUser::kChances = {
    {14, &RandomUser::press},         {14, &RandomUser::release},     {16, &RandomUser::click},
    {8, &RandomUser::drag},           {8, &RandomUser::wander},       {6, &RandomUser::wheel},
    {10, &RandomUser::key},           {2, &RandomUser::hostKey},      {4, &RandomUser::holdKey},
    {4, &RandomUser::openOrClose},    {4, &RandomUser::changeAnswer}, {2, &RandomUser::focus},
    {3, &RandomUser::setParameter},   {1, &RandomUser::setProgram},   {2, &RandomUser::rename},
    {3, &RandomUser::keepOrSetChunk}, {2, &RandomUser::pause},        {4, &RandomUser::wait},
};

RandomUser::RandomUser(std::uint32_t seed, std::string in, std::array<WindowHost*, 2> with)
    : random(seed), folder(std::move(in)), hosts(with), host(with[0]) {
  changeAnswer();
}

void RandomUser::installQuickPrograms(const std::string& folder) {
  for (const std::string name : {"zenity", "kdialog", "xmessage", "xdg-open"}) {
    writeProgram(folder + "/bin/" + name, "read seconds status <" + folder + "/bin/how\nsleep $" +
                                              "seconds\ncat " + folder + "/bin/answer\n" +
                                              "exit $status");
  }
}

std::string RandomUser::act() {
  host = hosts[static_cast<std::size_t>(below(2))];
  const int all = std::accumulate(kChances.begin(), kChances.end(), 0,
                                  [](int sum, const Chance& one) { return sum + one.weight; });
  int rest = below(all);
  const Chance* chosen = kChances.data();
  for (; rest >= chosen->weight; ++chosen) rest -= chosen->weight;
  const std::string what = (this->*chosen->action)();
  idle();
  return (host == hosts[0] ? "1: " : "2: ") + what;
}

void RandomUser::idle() {
  if (passesLeftOut > 0) {
    --passesLeftOut;
    return;
  }
  for (WindowHost* each : hosts) each->idle();
}

void RandomUser::end() {
  while (!buttons.empty()) release();
  for (const std::uint32_t held : std::exchange(keys, {})) host->display.keyUp(held);
  passesLeftOut = 0;
  writeFile(folder + "/bin/answer", "");
  writeFile(folder + "/bin/how", "0 1\n");
  for (WindowHost* each : hosts) {
    if (!each->isEditorOpen()) each->openOnly();
    each->idleFor(100);  // what a program said is taken
    each->closeEditor();
  }
}

// The host's calls move pointer and keys without an idle pass.
void RandomUser::moveInto(const Area& place) {
  const Area window = host->screenArea();
  host->display.moveTo(window.left + place.left + below(place.right - place.left),
                       window.top + place.top + below(place.bottom - place.top));
}

std::string RandomUser::press() {
  if (happens(80)) moveInto(oneOf(kPlaces));
  const int button = 1 + (happens(75) ? 0 : below(3));
  if (std::find(buttons.begin(), buttons.end(), button) != buttons.end()) return "held already";
  host->display.press(button);
  buttons.push_back(button);
  return "press " + std::to_string(button);
}

std::string RandomUser::release() {
  if (buttons.empty()) return "nothing held";
  const auto which = buttons.begin() + below(static_cast<int>(buttons.size()));
  const int button = *which;
  buttons.erase(which);
  host->display.release(button);
  return "release " + std::to_string(button);
}

// Up to three times, with and without an idle pass between.
std::string RandomUser::click() {
  if (!buttons.empty()) return release();
  moveInto(oneOf(kPlaces));
  const int button = happens(80) ? 1 : 3;
  const int times = happens(70) ? 1 : 2 + below(2);
  for (int i = 0; i < times; ++i) {
    host->display.press(button);
    if (happens(50)) idle();
    host->display.release(button);
    if (happens(50)) idle();
  }
  return std::to_string(times) + " clicks " + std::to_string(button);
}

std::string RandomUser::drag() {
  if (!buttons.empty()) return wander();
  const int index = below(3);
  const Area window = host->screenArea();
  const int x = places::handleX(host->parameter(index));
  host->display.moveTo(window.left + x, window.top + places::handleY(index));
  host->display.press(1);
  buttons.push_back(1);
  for (int step = 0; step < 5; ++step) {
    moveInto(places::slider(index));
    if (happens(60)) idle();
  }
  if (happens(70)) release();
  return "drag " + std::to_string(index);
}

std::string RandomUser::wander() {
  for (int step = 0; step < 8; ++step) moveInto({0, 0, 320, 280});
  return "wander";
}

std::string RandomUser::wheel() {
  moveInto(oneOf(kPlaces));
  const int button = 4 + below(2);
  const int steps = 1 + below(4);
  for (int i = 0; i < steps; ++i) {
    host->display.press(button);
    host->display.release(button);
  }
  return "wheel " + std::to_string(button) + " " + std::to_string(steps) + " times";
}

std::string RandomUser::key() {
  const int count = 1 + below(3);
  for (int i = 0; i < count; ++i) host->display.tap(oneOf(kKeys));
  return std::to_string(count) + " keys";
}

std::string RandomUser::hostKey() {
  const VstIntPtr virtualKey = below(70);
  const auto modifiers = static_cast<float>(below(16));
  const VstInt32 character = happens(50) ? 0 : 32 + below(90);
  host->dispatch(effEditKeyDown, character, virtualKey, nullptr, modifiers);
  host->dispatch(effEditKeyUp, character, virtualKey, nullptr, modifiers);
  return "key from the host " + std::to_string(virtualKey);
}

// A modifier goes down and stays, or comes up.
std::string RandomUser::holdKey() {
  const std::uint32_t modifier = oneOf(kModifiers);
  const auto held = std::find(keys.begin(), keys.end(), modifier);
  if (held != keys.end()) {
    keys.erase(held);
    host->display.keyUp(modifier);
    return "modifier up";
  }
  host->display.keyDown(modifier);
  keys.push_back(modifier);
  return "modifier down";
}

std::string RandomUser::openOrClose() {
  if (host->isEditorOpen()) {
    host->closeEditor();
    return "close";
  }
  host->openOnly();
  return "open";
}

// Of the next dialog: cancelled, a file that may be there, one that cannot be read, no file's name.
std::string RandomUser::changeAnswer() {
  const std::vector<std::string> names = {"one.orv", "two.orb", "junk", "none/there.orv", ""};
  const std::string& name = oneOf(names);
  writeFile(folder + "/files/junk", "Orv nothing of ours");
  writeFile(folder + "/bin/answer", name.empty() ? "" : folder + "/files/" + name + "\n");
  const std::string how = happens(25) ? "0.05" : "0";
  writeFile(folder + "/bin/how", how + (name.empty() || happens(10) ? " 1\n" : " 0\n"));
  return "next answer: " + name;
}

std::string RandomUser::focus() {
  const bool own = happens(50);
  own ? host->focusParent() : host->focusOther();
  return own ? "keyboard to the host" : "keyboard to another window";
}

std::string RandomUser::setParameter() {
  const VstInt32 index = below(5);
  host->setParameter(index, value());
  return "host sets " + std::to_string(index);
}

std::string RandomUser::setProgram() {
  host->dispatch(effBeginSetProgram);
  host->dispatch(effSetProgram, 0, below(3));
  host->dispatch(effEndSetProgram);
  return "program";
}

std::string RandomUser::rename() {
  const std::vector<std::string> names = {"", "wide", "\xC3\xA4\xC3\xB6\xC3\xBC",
                                          "as many letters as go in", "%s%n\\"};
  host->setProgramName(oneOf(names));
  return "host renames";
}

// Sometimes cut off, which is refused or taken in part.
std::string RandomUser::keepOrSetChunk() {
  if (chunk.empty() || happens(50)) {
    chunk = host->chunk();
    return "chunk kept";
  }
  std::vector<unsigned char> part = chunk;
  if (happens(25)) part.resize(1 + static_cast<std::size_t>(below(static_cast<int>(part.size()))));
  host->setChunk(part);
  return "chunk of " + std::to_string(part.size()) + " bytes";
}

std::string RandomUser::pause() {
  passesLeftOut = 5 + below(15);
  return "the host is busy for " + std::to_string(passesLeftOut) + " passes";
}

// Until something is drawn, and a quick program has ended.
std::string RandomUser::wait() {
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  return "wait";
}
