// What an effect tells of its state, and how checks of the state compare it.
#pragma once

#include <string>
#include <vector>

#include "host/validate/subject.h"

struct ToldState {
  std::vector<float> values;  // of the parameters
  int program = 0;
  std::string name;  // of the program
};

ToldState toldState(Subject& subject);

// Every parameter of the current program to some value, often an end of it, and its name, which
// ends in `number`.
void changeAtRandom(Trial& trial, Subject& subject, int number);
struct SettledState {
  ToldState set;   // as it was set
  ToldState told;  // as it is now
};
// So changed, saved, changed again and loaded: a state that can be loaded as it stands, since
// effects round what they load, and bring what depends on each other to one sense. Leaves the check
// out where there is no state.
SettledState settledAtRandom(Trial& trial, Subject& subject, int number, bool programOnly = false);

// The parameter of `saved` that has not come back, in words; empty: all have. A parameter counts
// where it differs between `saved` and `changed`: others do not take what they are told.
std::string notBack(const ToldState& saved, const ToldState& changed, const ToldState& loaded);
// Whether a state was loaded at all: a quarter of the parameters that count have come back.
bool isLoaded(const ToldState& saved, const ToldState& changed, const ToldState& loaded);
// A parameter that came back near what it was, but not exactly; empty: none.
std::string nearlyBack(const ToldState& saved, const ToldState& loaded);

// Parameters that come back as one value whatever they were.
class StuckParameters {
 public:
  void add(const SettledState& state);
  std::string found() const;  // the first one, in words; empty: none

 private:
  struct Range {
    float lowest = 2.0F;  // none yet
    float highest = -1.0F;
    void add(float value);
  };
  std::vector<Range> set;
  std::vector<Range> loaded;
};
