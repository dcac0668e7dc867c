// Somebody who does anything at all with two windows of two instances, and a host that does the
// same meanwhile.
#pragma once

#include <array>
#include <random>
#include <string>
#include <vector>

#include "windowhost.h"

// What happens follows from the seed alone; what the plug-in makes of it also from how the threads
// run. One thread.
class RandomUser {
 public:
  // folder: has bin/, with the programs `zenity`, `kdialog`, `xmessage` and `xdg-open` of
  // installQuickPrograms, and files/.
  RandomUser(std::uint32_t seed, std::string folder, std::array<WindowHost*, 2> hosts);

  // One event, in words. Then both windows idle, unless the host has no time for a while.
  std::string act();
  // Lets go of all buttons and keys, and opens and closes both windows, whatever state they are in.
  void end();

  // Programs of a desktop that end at once, or nearly, with the answer of the moment.
  static void installQuickPrograms(const std::string& folder);

 private:
  using Action = std::string (RandomUser::*)();
  struct Chance {
    int weight;
    Action action;
  };
  static const std::vector<Chance> kChances;

  int below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); }
  bool happens(int percent) { return below(100) < percent; }
  template <typename Element>
  const Element& oneOf(const std::vector<Element>& all) {
    return all[static_cast<std::size_t>(below(static_cast<int>(all.size())))];
  }
  float value() { return static_cast<float>(below(1001)) * 0.001F; }
  void moveInto(const Area& place);
  void idle();

  // On `host`.
  std::string press();
  std::string release();
  std::string click();
  std::string drag();
  std::string wander();
  std::string wheel();
  std::string key();
  std::string hostKey();
  std::string holdKey();
  std::string openOrClose();
  std::string changeAnswer();
  std::string focus();
  std::string setParameter();
  std::string setProgram();
  std::string rename();
  std::string keepOrSetChunk();
  std::string pause();
  std::string wait();

  std::mt19937 random;
  const std::string folder;
  const std::array<WindowHost*, 2> hosts;
  WindowHost* host;
  std::vector<int> buttons;               // held
  std::vector<std::uint32_t> keys;        // held
  std::vector<unsigned char> chunk = {};  // of some instance, at some time
  int passesLeftOut = 0;
};
