// Reads images into the store's bank and writes them from it.
#include "presetsystem/store/bankimages.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <utility>

#include "presetsystem/store/cpresetsystemeffect.h"
#include "presetsystem/store/presetlistener.h"

namespace {

using presetimage::Image;
using presetimage::Reading;

// a MIDI map's values come after the parameters
constexpr VstInt32 kMidiBase = presetimage::kParameterCount;

// For developers, on the standard error stream.
class Diagnostics final : public presetimage::InvalidParameterListener {
 public:
  explicit Diagnostics(const char* saveOrLoad) : operation(saveOrLoad) {}
  void met(const presetimage::InvalidParameter& invalid) override {
    std::fputs(presetimage::diagnosticLine(invalid, operation).text, stderr);
  }

 private:
  const char* operation;
};

std::span<const unsigned char> bytesAt(const char* data, std::int64_t size) {
  return {reinterpret_cast<const unsigned char*>(data),
          static_cast<std::size_t>(std::max<std::int64_t>(size, 0))};
}

Image currentImage(Image::Content content, const char* entries, const newpresetheader& header,
                   bool swapped) {
  Image image;
  image.content = content;
  image.extent = Image::Extent::whole;
  image.swapped = swapped;
  image.header = header;
  image.body = bytesAt(entries, header.dataSize);
  image.presetToSelect = presetimage::presetToSelect(header.currentPreset);
  return image;
}

Image oldImage(Image::Content content, const char* data, bool swapped, int records, int floats) {
  Image image;
  image.content = content;
  image.extent = Image::Extent::whole;
  image.isOld = true;
  image.swapped = swapped;
  image.body =
      bytesAt(data, std::int64_t{records} * (4 * std::int64_t{floats} + ACombProgram::kNameSize));
  image.recordCount = records;
  image.floatsPerRecord = floats;
  return image;
}

bool isReadable(const Image& image, Image::Content wanted) {
  return image.content == wanted && image.extent != Image::Extent::headless;
}

// write: fills a span of kSize bytes and returns how many it took.
template <std::size_t kSize, typename Write>
long handOver(char** out, Write&& write) {
  auto image = std::make_unique<char[]>(kSize);
  const std::size_t size =
      write(std::span<unsigned char, kSize>(reinterpret_cast<unsigned char*>(image.get()), kSize));
  *out = image.release();
  return static_cast<long>(size);
}

}  // namespace

std::int32_t BankImages::currentPreset() const {
  return static_cast<std::int32_t>(effect.getPresetNo());
}

void BankImages::takeBank(const Image& image) {
  if (!image.isChunk && isReadable(image, Image::Content::bank)) readBank(image);
}

bool BankImages::takeChunk(const Image& image) {
  if (!image.isChunk || !isReadable(image, Image::Content::bank)) return false;
  if (image.isOld) return readOldChunk(image);
  readBank(image);
  return true;
}

// The readers fill a copy, which takes the bank's place only when the reading is done.
void BankImages::readBank(const Image& image) {
  Diagnostics told("load");
  auto lock = effect.lockBank();
  presetimage::Bank read = effect.bank();
  const Reading reading =
      presetimage::readBank(image, effect.oldDummySlots(), effect.getDefaultPreset(), read, told);
  if (reading != Reading::done) return;
  effect.takeBank(read, image.presetToSelect, std::move(lock));
  if (effect.presetListener() != nullptr) effect.presetListener()->presetsChanged();
}

bool BankImages::readOldChunk(const Image& image) {
  Diagnostics told("load");
  auto lock = effect.lockBank();
  presetimage::Bank read = effect.bank();
  const Reading reading =
      presetimage::readBank(image, effect.oldDummySlots(), effect.getDefaultPreset(), read, told);
  if (reading == Reading::done) {
    effect.takeBank(read, image.presetToSelect, std::move(lock));
    return true;
  }
  effect.bank() = read;  // what stands in front of a bad value is taken
  return false;
}

void BankImages::takePreset(const Image& image) {
  if (image.isChunk || !isReadable(image, Image::Content::preset)) return;
  ACombProgram read = effect.getDefaultPreset();
  const Reading reading = presetimage::readPreset(image, effect.oldDummySlots(), read);
  // With a negative entry count the preset is reset, and the effect plays on as before.
  const bool isReset = reading == Reading::stopped && !image.isOld;
  if (reading != Reading::done && !isReset) return;
  {
    const auto lock = effect.lockBank();
    effect.preset(currentPreset()) = read;
  }
  if (reading == Reading::done) effect.presetTakenOver();
}

std::size_t BankImages::writeChunk(std::span<unsigned char, presetimage::kChunkSize> out) {
  Diagnostics told("save");
  const auto lock = effect.lockBank();
  return presetimage::writeChunk(out, effect.bank(), effect.getUniqueID(), currentPreset(),
                                 effect.dummySlots(), told);
}

std::size_t BankImages::writeBank(std::span<unsigned char, presetimage::kBankImageSize> out) {
  Diagnostics told("save");
  const auto lock = effect.lockBank();
  return presetimage::writeBank(out, effect.bank(), effect.getUniqueID(), currentPreset(),
                                effect.dummySlots(), told);
}

std::size_t BankImages::writePreset(std::span<unsigned char, presetimage::kPresetImageSize> out) {
  return presetimage::writePreset(out, effect.copyOfPreset(currentPreset()), effect.getUniqueID(),
                                  effect.dummySlots());
}

void BankImages::BufferToBankOld(const char* data, bool swapped, int recordCount,
                                 int floatsPerRecord) {
  takeBank(oldImage(Image::Content::bank, data, swapped, recordCount, floatsPerRecord));
}

void BankImages::BufferToBank(const char* entries, const newpresetheader& header, bool swapped) {
  takeBank(currentImage(Image::Content::bank, entries, header, swapped));
}

void BankImages::BufferToPresetOld(const char* data, bool swapped, int floatCount) {
  takePreset(oldImage(Image::Content::preset, data, swapped, 1, floatCount));
}

void BankImages::BufferToPreset(const char* entries, const newpresetheader& header, bool swapped) {
  takePreset(currentImage(Image::Content::preset, entries, header, swapped));
}

void BankImages::BufferToMidi(const char* entries, const newpresetheader& header, bool swapped) {
  for (const presetimage::MidiAssignment& assignment :
       presetimage::readMidiMap(bytesAt(entries, header.dataSize), header, swapped)) {
    effect.setParameter(kMidiBase + assignment.parameter, assignment.value);
  }
}

void BankImages::BufferToMidiOld(const char* data, bool swapped, int floatCount) {
  for (const presetimage::MidiAssignment& assignment :
       presetimage::readOldMidiMap(bytesAt(data, 4 * std::int64_t{floatCount}), swapped, floatCount,
                                   effect.oldDummySlots())) {
    effect.setParameter(kMidiBase + assignment.parameter, assignment.value);
  }
}

long BankImages::BankToBuffer(char** out) {
  return handOver<presetimage::kBankImageSize>(out,
                                               [this](auto image) { return writeBank(image); });
}

long BankImages::PresetToBuffer(char** out) {
  return handOver<presetimage::kPresetImageSize>(out,
                                                 [this](auto image) { return writePreset(image); });
}

long BankImages::MidiToBuffer(char** out) {
  return handOver<presetimage::kMidiMapImageSize>(out, [this](auto image) {
    presetimage::ParameterValues values;
    for (std::size_t slot = 0; slot < values.size(); ++slot) {
      values[slot] = effect.getParameter(kMidiBase + static_cast<VstInt32>(slot));
    }
    return presetimage::writeMidiMap(image, values, effect.getUniqueID(), effect.dummySlots());
  });
}
