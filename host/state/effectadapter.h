// What differs between Trelvan and any other effect: presets, files, and how parameters are typed.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/state/statearguments.h"
#include "host/vst/effect.h"

// For one effect, which outlives it; the effect's thread. All that change the state throw Failure
// where a file cannot be read or taken, a preset or parameter is unknown, or this effect has
// nothing of the kind.
class EffectAdapter {
 public:
  virtual ~EffectAdapter() = default;

  virtual void loadState(const std::string& file) = 0;
  virtual Effect::Bytes stateFile() = 0;  // that loadState takes, and only with this effect
  // file: where it comes from.
  virtual void takeChunk(const Effect::Bytes& chunk, Effect::ChunkOf what,
                         const std::string& file) = 0;
  // Returns notes for the person, one line each.
  virtual std::vector<std::string> loadBank(const std::string& file) = 0;
  virtual void choosePreset(const std::string& preset) = 0;  // name, number, or preset file

  // An option of Trelvan's own: parameter index and normalised value.
  virtual void setValue(int index, float value) = 0;
  // What was typed for the parameter of this index, 0..1. what: opens the Failure. The parameter
  // may be tried out, and is as it was after.
  virtual float typedValue(int index, const std::string& what, const std::string& typed) = 0;

  // The bytes of Trelvan's own files: the current preset, and all of them.
  virtual Effect::Bytes presetFile() = 0;
  virtual Effect::Bytes bankFile() = 0;

  virtual std::vector<std::string> presetNames() = 0;  // by number, from 0
  virtual int currentPreset() = 0;

  // The preset that a sound file gets when these arguments, and the user's own defaults, leave it
  // without a width; none: it stays as the effect begins. Before the arguments are applied.
  virtual std::optional<std::string> presetForFiles(const StateArguments&) { return std::nullopt; }
  // The option for a side signal `factor` times as large as in the present state, below 1 never
  // larger than that and above 1 never smaller; empty where no option does that.
  virtual std::string optionForSide(double) { return {}; }

  // What the effect itself tells no host of the sample rates that it is made for; may be empty.
  virtual std::string sampleRates() const = 0;
};

// The one place that asks which effect it is.
std::unique_ptr<EffectAdapter> adapterFor(Effect& effect);
// What it chooses from.
std::unique_ptr<EffectAdapter> trelvanAdapter(Effect& effect);
std::unique_ptr<EffectAdapter> genericAdapter(Effect& effect);
