// The effect under test, driven by hand.
#include "host/validate/subject.h"

#include <cmath>

#include "host/base/failure.h"
#include "host/vst/effectrecord.h"

Subject::Subject(PluginModule& module, bool showsWindows, audioMasterCallback entry) {
  callback.setHasWindow(showsWindows);
  const HostCallback::Scope scope(&callback);
  AEffect* made = module.entryPoint()(entry);
  checkEffectRecord(made, module.path().filename().string());
  effect = made;
  effect->resvd1 = reinterpret_cast<VstIntPtr>(&callback);
  callback.setUniqueID(effect->uniqueID);
  dispatch(effOpen);
}

Subject::~Subject() {
  stop();
  dispatch(effClose);
}

void Subject::start(double rate, int blockSize, bool doublePrecision) {
  callback.setSampleRate(rate);
  callback.setBlockSize(blockSize);
  dispatch(effSetSampleRate, 0, 0, nullptr, static_cast<float>(rate));
  dispatch(effSetBlockSize, 0, blockSize);
  if (has(effFlagsCanDoubleReplacing)) dispatch(effSetProcessPrecision, 0, doublePrecision ? 1 : 0);
  callback.setPosition(0);
  dispatch(effMainsChanged, 0, 1);
  dispatch(effStartProcess);
  callback.setProcessing(true);
  running = true;
}

void Subject::stop() {
  if (!running) return;
  running = false;
  callback.setProcessing(false);
  dispatch(effStopProcess);
  dispatch(effMainsChanged, 0, 0);
}

std::vector<float> Subject::parameters() {
  std::vector<float> values(static_cast<std::size_t>(effect->numParams));
  for (std::size_t index = 0; index < values.size(); ++index)
    values[index] = parameter(static_cast<int>(index));
  return values;
}

std::vector<unsigned char> Subject::chunk(bool programOnly) {
  void* bytes = nullptr;
  const VstIntPtr size = dispatch(effGetChunk, programOnly ? 1 : 0, 0, &bytes);
  if (bytes == nullptr || size <= 0) return {};
  const auto* first = static_cast<const unsigned char*>(bytes);
  return {first, first + size};
}

VstIntPtr Subject::setChunk(std::span<const unsigned char> bytes, bool programOnly) {
  std::vector<unsigned char> copy(bytes.begin(), bytes.end());  // effects may change it
  return dispatch(effSetChunk, programOnly ? 1 : 0, static_cast<VstIntPtr>(copy.size()),
                  copy.data());
}

bool isSameValue(float a, float b) {
  return a == b || (std::isnan(a) && std::isnan(b));
}

void needSoundIn(Trial& trial, Subject& subject) {
  const AEffect& record = subject.record();
  if (record.numInputs == 0) trial.leaveOut("it takes no sound in");
  if (record.numOutputs == 0) trial.leaveOut("it gives no sound out");
  needProcessing(trial, subject);
}

void needProcessing(Trial& trial, Subject& subject) {
  if (!subject.processes()) trial.leaveOut("it has no processReplacing");
}

void needDouble(Trial& trial, Subject& subject) {
  needSoundIn(trial, subject);
  if (!subject.has(effFlagsCanDoubleReplacing) ||
      subject.record().processDoubleReplacing == nullptr)
    trial.leaveOut("it has no double precision");
}

void needChunk(Trial& trial, Subject& subject) {
  if (!subject.has(effFlagsProgramChunks)) trial.leaveOut("it has no chunk");
}

void needEditor(Trial& trial, Subject& subject) {
  if (!subject.has(effFlagsHasEditor)) trial.leaveOut("it has no window");
}
