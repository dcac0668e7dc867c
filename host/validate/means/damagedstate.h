// An effect that is given one damaged state after the other, and looked at after each.
#pragma once

#include <string>
#include <vector>

#include "host/validate/means/stretch.h"
#include "host/validate/subject.h"

class DamagedState {
 public:
  // Leaves the check out where the effect has no state, or no sound to look at before.
  explicit DamagedState(Trial& trial);
  DamagedState(const DamagedState&) = delete;
  DamagedState& operator=(const DamagedState&) = delete;

  // The one that is whole: of a bank or of the current program.
  const std::vector<unsigned char>& whole(bool programOnly) const {
    return programOnly ? wholeProgram : wholeBank;
  }

  // Loads the whole state and then the damaged one, in memory that cannot be read past its end.
  // what: the damage, in words. Fails the check where parameters or sound are no numbers then, or
  // the effect gives no state.
  void give(std::span<const unsigned char> bytes, bool programOnly, const std::string& what);
  // The same with any pointer and size.
  void giveAt(void* bytes, VstIntPtr size, bool programOnly, const std::string& what);
  // Fails the check where the whole state does not load any more.
  void checkThatItStillLoads();

 private:
  void loadWhole();
  void lookAt(const std::string& what);

  Trial& trial;
  PluginModule module;
  Subject subject;
  std::vector<unsigned char> wholeBank;
  std::vector<unsigned char> wholeProgram;
  std::vector<float> values;  // of the parameters in the whole states
  Stretch<float> sound;
};
