// Everything that a host usually does with an effect.
#include "host/validate/means/wholelife.h"

#include <algorithm>
#include <memory>

#include "host/validate/means/guardedtext.h"
#include "host/validate/means/sound.h"

namespace {

constexpr int kMostAsked = 64;  // parameters and programs whose texts are asked for

void askTexts(Subject& subject, const std::function<void(const char*)>& text) {
  const auto ask = [&](VstInt32 opcode, int index) {
    const std::string given = givenText(subject, opcode, index);
    if (text) text(given.c_str());
  };
  for (const VstInt32 opcode :
       {effGetEffectName, effGetVendorString, effGetProductString, effGetProgramName})
    ask(opcode, 0);
  for (int index = 0; index < std::min(subject.record().numPrograms, kMostAsked); ++index)
    ask(effGetProgramNameIndexed, index);
  for (int index = 0; index < std::min(subject.record().numParams, kMostAsked); ++index) {
    for (const VstInt32 opcode : {effGetParamName, effGetParamLabel, effGetParamDisplay})
      ask(opcode, index);
  }
  char ability[] = "receiveVstMidiEvent";
  subject.dispatch(effCanDo, 0, 0, ability);
  subject.dispatch(effGetVendorVersion);
  subject.dispatch(effGetVstVersion);
  subject.dispatch(effGetPlugCategory);
}

template <typename Sample>
void play(Trial& trial, Subject& subject) {
  constexpr int kBlock = 512;  // frames
  subject.start(48000.0, kBlock, kIsDouble<Sample>);
  Stretch<Sample> stretch(subject, kBlock);
  for (int block = 0; block < 8; ++block) {
    if (block == 4)
      stretch.fill(0);
    else if (block < 4)
      stretch.fillWithNoise(trial);
    stretch.playAll(subject, kBlock);
  }
  subject.stop();
}

}  // namespace

void liveThrough(Trial& trial, const std::function<void(const char* stage)>& after,
                 const std::function<void(const char* text)>& text) {
  const auto stage = [&](const char* name, const auto& act) {
    trial.step("%s", name);
    act();
    after(name);
  };
  std::unique_ptr<PluginModule> module;
  std::unique_ptr<Subject> subject;
  stage("loading", [&] { module = std::make_unique<PluginModule>(trial.plugin()); });
  stage("making an effect", [&] { subject = std::make_unique<Subject>(*module); });
  stage("asking for texts", [&] { askTexts(*subject, text); });
  stage("setting parameters", [&] {
    for (int index = 0; index < subject->record().numParams; ++index)
      subject->setParameter(index, subject->parameter(index));
  });
  if (subject->processes()) {
    stage("processing", [&] {
      inEachPrecision(*subject, [&]<typename Sample>() { play<Sample>(trial, *subject); });
    });
  }
  if (subject->has(effFlagsProgramChunks)) {
    std::vector<unsigned char> state;
    stage("saving its state", [&] { state = subject->chunk(); });
    stage("loading its state", [&] { subject->setChunk(state); });
    stage("asking for texts after its state", [&] { askTexts(*subject, text); });
  }
  stage("making a second effect", [&] { const Subject second(*module); });
  stage("closing it", [&] { subject.reset(); });
  stage("unloading it", [&] { module.reset(); });
}
