// The checks that an effect's record must pass before anything of it is used.
#include "host/vst/effectrecord.h"

#include "host/base/failure.h"

namespace {

void checkCount(VstInt32 count, VstInt32 most, const char* what, const std::string& plugin) {
  if (count < 0 || count > most) {
    throw Failure(plugin + ": the effect names " + std::to_string(count) + " " + what +
                  ", which cannot be");
  }
}

}  // namespace

void checkEffectShape(const AEffect& record, const std::string& plugin) {
  checkCount(record.numInputs, kMostPins, "inputs", plugin);
  checkCount(record.numOutputs, kMostPins, "outputs", plugin);
  checkCount(record.initialDelay, kLongestLatency, "frames of latency", plugin);
}

void checkEffectRecord(const AEffect* record, const std::string& plugin) {
  if (record == nullptr) throw Failure(plugin + ": no effect was made (the plug-in refused)");
  if (record->magic != kEffectMagic)
    throw Failure(plugin + ": not a VST effect (its record opens with a wrong word)");
  if (record->dispatcher == nullptr) throw Failure(plugin + ": the effect has no dispatcher");
  checkEffectShape(*record, plugin);
  checkCount(record->numParams, kMostParameters, "parameters", plugin);
  checkCount(record->numPrograms, kMostPrograms, "programs", plugin);
  if (record->numParams > 0 &&
      (record->setParameter == nullptr || record->getParameter == nullptr)) {
    throw Failure(plugin + ": the effect has parameters, but no way to reach them");
  }
}
