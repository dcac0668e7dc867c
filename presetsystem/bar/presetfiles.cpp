// Runs the dialog, and reads and writes the file that was chosen.
#include "presetsystem/bar/presetfiles.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <span>
#include <utility>

#include "platform/paths.h"
#include "platform/savedfile.h"
#include "platform/xplatfile.h"
#include "presetsystem/bar/messages.h"
#include "presetsystem/store/bankimages.h"
#include "presetsystem/store/cpresetsystemeffect.h"

namespace {

// bytes that tell whose a file is, and of what kind
constexpr std::size_t kKindEnd = presetimage::kOldPrefixSize;
// bytes; 1,000 times a bank. The rest of a longer file is not looked at
constexpr std::size_t kLongestRead = 1 << 24;

constexpr char kNoDialog[] =
    "There is no program that shows a file dialog.\nPlease install zenity or kdialog to load and "
    "save presets.";

class File {
 public:
  explicit File(const std::string& path)
      : length(XPlatFileOpenToRead(namePart(path).c_str(), folderPart(path).c_str(), &handle)) {}
  ~File() { XPlatFileClose(handle); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  std::size_t read(unsigned char* to, std::size_t count) {
    return static_cast<std::size_t>(
        XPlatFileRead(handle, reinterpret_cast<char*>(to), static_cast<long>(count)));
  }
  // bytes; 0 where it could not be opened
  std::size_t size() const { return static_cast<std::size_t>(length); }

 private:
  void* handle = nullptr;  // before the length, whose finding sets it
  long length;
};

// The beginning of a file of this plug-in, at most `kLongestRead` bytes; empty for
// every other file.
struct FileBytes {
  std::unique_ptr<unsigned char[]> bytes;
  std::size_t size = 0;

  FileBytes(File& file, std::int32_t uniqueID) {
    unsigned char begin[kKindEnd];
    if (file.size() < kKindEnd || file.read(begin, kKindEnd) != kKindEnd) return;
    // Before anything of its size is allocated.
    if (presetimage::identify(begin, uniqueID).content == presetimage::Image::Content::foreign)
      return;
    const std::size_t wanted = std::min(file.size(), kLongestRead);
    bytes.reset(new (std::nothrow) unsigned char[wanted]);
    if (!bytes) return;
    std::memcpy(bytes.get(), begin, kKindEnd);
    size = kKindEnd + file.read(bytes.get() + kKindEnd, wanted - kKindEnd);
  }
  std::span<const unsigned char> all() const { return {bytes.get(), size}; }
};

// The path itself, or where its folder is longer than what is kept of one, the same name in the
// nearest folder above that is not: the next dialog opens there.
std::string keptPath(const std::string& path) {
  const std::string folder = folderPart(path);
  if (folder.size() < kXPlatPathPartSize) return path;
  return folder.substr(0, folder.rfind('/', kXPlatPathPartSize - 2) + 1) + namePart(path);
}

}  // namespace

PresetFiles::PresetFiles(CPresetSystemEffect* filesEffect, FilePlaces& usedPlaces,
                         BarWindow& servedWindow, Messages& heard)
    : effect(filesEffect), places(usedPlaces), window(servedWindow), messages(heard) {}

void PresetFiles::start(Operation wanted, bool endianReversed) {
  if (!window.isShown() || running()) return;
  const bool ofBank = wanted == Operation::loadBank || wanted == Operation::saveBank;
  FileDialogRequest request;
  request.save = wanted == Operation::saveBank || wanted == Operation::savePreset;
  request.title = std::string(request.save ? "Save " : "Load ") + (ofBank ? "bank" : "preset");
  if (endianReversed) request.title += " (endian-reversed)";
  request.folder = places.currentDirectory;
  request.typeName = ofBank ? "Orv Bank" : "Orv Preset";
  request.extension = ofBank ? "orb" : "orv";
  request.proposedName = ofBank ? places.bankFileName : places.presetFileName;
  request.window = window.hostWindow();
  dialog.start(request);  // throws where there is no memory: then nothing is running
  operation = wanted;
  orderReversed = endianReversed;
}

void PresetFiles::complete() {
  if (!running()) return;
  const FileDialog::State state = dialog.poll();
  if (state == FileDialog::State::running) return;
  const std::string path = dialog.path();
  if (state == FileDialog::State::unavailable) messages.say(kNoDialog);
  const Operation chosen = std::exchange(operation, Operation::none);
  dialog.cancel();
  if (window.isShown() && state == FileDialog::State::chosen) finish(chosen, path);
}

void PresetFiles::end() {
  operation = Operation::none;
  dialog.cancel();
}

// What is read and written is the chosen path, however much of it is kept.
void PresetFiles::finish(Operation chosen, const std::string& path) {
  const bool ofBank = chosen == Operation::loadBank || chosen == Operation::saveBank;
  XPlatGetFileNameAndDir(keptPath(path).c_str(),
                         ofBank ? places.bankFileName : places.presetFileName,
                         places.currentDirectory);
  if (chosen == Operation::saveBank || chosen == Operation::savePreset) {
    save(chosen, path);
  } else {
    load(chosen, path);
  }
}

void PresetFiles::save(Operation chosen, const std::string& path) {
  const bool ofBank = chosen == Operation::saveBank;
  unsigned char image[presetimage::kBankImageSize];  // the larger of the two
  const std::span<unsigned char, presetimage::kBankImageSize> bytes(image);
  BankImages images(*effect);
  const std::size_t size = ofBank
                               ? images.writeBank(bytes)
                               : images.writePreset(bytes.first<presetimage::kPresetImageSize>());
  saveFile(namePart(path).c_str(), folderPart(path).c_str(), image, size);
}

void PresetFiles::load(Operation chosen, const std::string& path) {
  const bool ofBank = chosen == Operation::loadBank;
  File file(path);
  const FileBytes read(file, effect->getUniqueID());
  if (read.size == 0) return;
  const presetimage::Origin origin{.orderReversed = orderReversed,
                                   .whole = read.size == file.size()};
  const presetimage::Image image = presetimage::identify(read.all(), effect->getUniqueID(), origin);
  if (ofBank) {
    BankImages(*effect).takeBank(image);
    effect->bankTakenOver(0);  // whatever preset the image selects, and whatever came of reading it
  } else {
    BankImages(*effect).takePreset(image);
  }
  window.redraw();  // which the host may have closed, told of the new values
}
