// The virtual operations stand where the published interface has them, whatever else
// the classes declare.
#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>
#include <vector>

#include "presetsystem/store/cpresetsystemeffect.h"

namespace {

// The slot of a virtual operation, as the Itanium C++ ABI keeps it in a pointer to a member: the
// offset in the table plus one in the first word, or on ARM the offset in the first and a one in
// the second. -1: it is not virtual.
template <typename Class, typename Function>
long slotOf(Function Class::*operation) {
  std::ptrdiff_t words[2];
  static_assert(sizeof operation == sizeof words);
  std::memcpy(words, &operation, sizeof words);
#if defined(__aarch64__) || defined(__arm__)
  const bool isVirtual = (words[1] & 1) != 0;
  const std::ptrdiff_t offset = words[0];
#else
  const bool isVirtual = (words[0] & 1) != 0;
  const std::ptrdiff_t offset = words[0] - 1;
#endif
  return isVirtual ? static_cast<long>(offset / static_cast<std::ptrdiff_t>(sizeof(void*))) : -1;
}

// slots: of operations that follow one another without a gap.
void expectInOrder(const std::vector<long>& slots) {
  for (std::size_t i = 1; i < slots.size(); ++i)
    EXPECT_EQ(slots[i], slots[i - 1] + 1) << "operation " << i;
}

// slots: in order, with others between them perhaps.
void expectRising(const std::vector<long>& slots) {
  for (std::size_t i = 1; i < slots.size(); ++i)
    EXPECT_GT(slots[i], slots[i - 1]) << "operation " << i;
}

TEST(PublishedOrder, OfTheEffectBase) {
  using A = AudioEffect;
  const std::vector<long> slots = {slotOf(&A::dispatcher),
                                   slotOf(&A::open),
                                   slotOf(&A::close),
                                   slotOf(&A::suspend),
                                   slotOf(&A::resume),
                                   slotOf(&A::setSampleRate),
                                   slotOf(&A::setBlockSize),
                                   slotOf(&A::processReplacing),
                                   slotOf(&A::processDoubleReplacing),
                                   slotOf(&A::setParameter),
                                   slotOf(&A::getParameter),
                                   slotOf(&A::setParameterAutomated),
                                   slotOf(&A::getProgram),
                                   slotOf(&A::setProgram),
                                   slotOf(&A::setProgramName),
                                   slotOf(&A::getProgramName),
                                   slotOf(&A::getParameterLabel),
                                   slotOf(&A::getParameterDisplay),
                                   slotOf(&A::getParameterName),
                                   slotOf(&A::getChunk),
                                   slotOf(&A::setChunk),
                                   slotOf(&A::setUniqueID),
                                   slotOf(&A::setNumInputs),
                                   slotOf(&A::setNumOutputs),
                                   slotOf(&A::canProcessReplacing),
                                   slotOf(&A::canDoubleReplacing),
                                   slotOf(&A::programsAreChunks),
                                   slotOf(&A::setInitialDelay),
                                   slotOf(&A::getEditor),
                                   slotOf(&A::getAeffect),
                                   slotOf(&A::getSampleRate),
                                   slotOf(&A::getBlockSize),
                                   slotOf(&A::getMasterVersion),
                                   slotOf(&A::getCurrentUniqueId),
                                   slotOf(&A::masterIdle),
                                   slotOf(&A::isInputConnected),
                                   slotOf(&A::isOutputConnected),
                                   slotOf(&A::dB2string),
                                   slotOf(&A::Hz2string),
                                   slotOf(&A::ms2string),
                                   slotOf(&A::float2string),
                                   slotOf(&A::int2string),
                                   slotOf(&A::processDeprecated)};
  EXPECT_EQ(slots[0], 2) << "after the two of the destructor";
  expectInOrder(slots);
}

TEST(PublishedOrder, HasTheEditorsOwnerOutsideOfIt) {
  EXPECT_EQ(slotOf(&AudioEffect::setEditor), -1);
}

TEST(PublishedOrder, OfTheExtendedInterface) {
  using X = AudioEffectX;
  const std::vector<long> asked = {slotOf(&X::processEvents),
                                   slotOf(&X::canParameterBeAutomated),
                                   slotOf(&X::string2parameter),
                                   slotOf(&X::getProgramNameIndexed),
                                   slotOf(&X::getInputProperties),
                                   slotOf(&X::getOutputProperties),
                                   slotOf(&X::getPlugCategory),
                                   slotOf(&X::setSpeakerArrangement),
                                   slotOf(&X::setBypass),
                                   slotOf(&X::getEffectName),
                                   slotOf(&X::getVendorString),
                                   slotOf(&X::getProductString),
                                   slotOf(&X::getVendorVersion),
                                   slotOf(&X::vendorSpecific),
                                   slotOf(&X::canDo),
                                   slotOf(&X::getTailSize),
                                   slotOf(&X::getParameterProperties),
                                   slotOf(&X::getVstVersion)};
  EXPECT_GT(asked[0], slotOf(&AudioEffect::setOfflineQualitiesDeprecated))
      << "after all of the base's";
  expectInOrder(asked);
  expectRising({asked.back(), slotOf(&X::updateSampleRate), slotOf(&X::updateBlockSize),
                slotOf(&X::getOutputLatency), slotOf(&X::ioChanged), slotOf(&X::updateDisplay),
                slotOf(&X::beginEdit), slotOf(&X::endEdit), slotOf(&X::sizeWindow),
                slotOf(&X::getTimeInfo), slotOf(&X::getHostVendorString), slotOf(&X::canHostDo),
                slotOf(&X::getDirectory)});
}

TEST(PublishedOrder, OfThePresetStore) {
  using S = CPresetSystemEffect;
  const std::vector<long> slots = {slotOf(&S::getPresetNo),     slotOf(&S::setPresetNo),
                                   slotOf(&S::setPresetName),   slotOf(&S::attachMidi),
                                   slotOf(&S::detachMidiParam), slotOf(&S::detachMidiCC),
                                   slotOf(&S::getMidiCC),       slotOf(&S::getMidiParam),
                                   slotOf(&S::getMidiActivity), slotOf(&S::beginLearn),
                                   slotOf(&S::endLearn),        slotOf(&S::setLearnParam),
                                   slotOf(&S::beginCancel),     slotOf(&S::endCancel),
                                   slotOf(&S::getUniqueID),     slotOf(&S::initializePreset),
                                   slotOf(&S::isDummy),         slotOf(&S::isDummyOld),
                                   slotOf(&S::loadDefaults),    slotOf(&S::initPresets),
                                   slotOf(&S::initMidi),        slotOf(&S::getVu)};
  expectInOrder(slots);
}

}  // namespace
