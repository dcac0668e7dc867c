// Loading and saving presets and banks: the dialog, the file, and what is in it.
#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

#include "platform/xplat.h"
#include "presetsystem/bar/cpresetsystemeditor.h"
#include "presetsystem/image/presetimage.h"
#include "presetsystem/store/cpresetsystemeffect.h"

namespace {

constexpr std::size_t kKindEnd = presetimage::kOldPrefixSize;  // bytes: unique ID and kind, in old and current images
constexpr std::size_t kLongestRead = 1 << 24;  // bytes; 1,000 times a bank. The rest of a longer file is not looked at

constexpr char kNoDialog[] =
    "There is no program that shows a file dialog.\nPlease install zenity or kdialog to load and save presets.";

class File {
 public:
  File(const char* name, const char* folder, bool forWrite) : length(XPlatFileOpen(name, folder, &handle, forWrite)) {}
  ~File() { XPlatFileClose(handle); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  long read(char* to, std::size_t count) { return XPlatFileRead(handle, to, static_cast<long>(count)); }
  void write(const char* from, long count) { XPlatFileWrite(handle, from, count); }
  std::size_t size() const { return static_cast<std::size_t>(length); }  // bytes; 0 where it could not be opened

 private:
  void* handle = nullptr;  // in front of the length, whose finding sets it
  long length;
};

std::span<const unsigned char> bytesOf(std::span<const char> image) {
  return {reinterpret_cast<const unsigned char*>(image.data()), image.size()};
}

ByteOrder orderOf(std::span<const char> image, std::int32_t uniqueID) {
  std::int32_t stored = 0;
  std::memcpy(&stored, image.data(), sizeof stored);
  return byteOrderOf(stored, uniqueID);
}

// The beginning of a file of this plug-in, at most `kLongestRead` bytes; empty for every other file.
struct FileImage {
  std::unique_ptr<char[]> bytes;
  std::size_t size = 0;

  FileImage(File& file, std::int32_t uniqueID) {
    char begin[kKindEnd];
    if (file.size() < kKindEnd || file.read(begin, kKindEnd) != static_cast<long>(kKindEnd)) return;
    if (orderOf(begin, uniqueID) == ByteOrder::foreign) return;  // before anything of its size is allocated
    const std::size_t wanted = std::min(file.size(), kLongestRead);
    bytes.reset(new (std::nothrow) char[wanted]);
    if (!bytes) return;
    std::memcpy(bytes.get(), begin, kKindEnd);
    size = kKindEnd + static_cast<std::size_t>(file.read(bytes.get() + kKindEnd, wanted - kKindEnd));
  }
  std::span<char> image() const { return {bytes.get(), size}; }
};

// A current image's header in this machine's byte order, naming no more data than there is.
newpresetheader headerOf(std::span<const char> image, bool swapped) {
  newpresetheader header = newpresetheader::read(bytesOf(image.first(newpresetheader::kSize)));
  if (swapped) byteSwapHeader(&header);
  const auto there = static_cast<std::int32_t>(image.size() - newpresetheader::kSize);
  header.dataSize = std::min(header.dataSize, there);
  return header;
}

ImageKind kindOf(std::span<const char> image) {
  return static_cast<ImageKind>(static_cast<unsigned char>(image[newpresetheader::kKindOffset]));
}

// False where there is no folder or a part is too long: the names of the last file must not be taken for this one's.
bool splitPath(const std::string& path, char* fileName, char* folder) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return false;
  const std::size_t folderSize = slash + 1;
  if (folderSize >= kXPlatPathPartSize || path.size() - folderSize >= kXPlatPathPartSize) return false;
  XPlatGetFileNameAndDir(path.c_str(), fileName, folder);
  return true;
}

}  // namespace

void CPresetSystemEditor::loadBank(bool endianReversed) {
  startFileOperation(FileOperation::loadBank, endianReversed);
}

void CPresetSystemEditor::saveBank() {
  startFileOperation(FileOperation::saveBank, false);
}

void CPresetSystemEditor::loadPreset(bool endianReversed) {
  startFileOperation(FileOperation::loadPreset, endianReversed);
}

void CPresetSystemEditor::savePreset() {
  startFileOperation(FileOperation::savePreset, false);
}

void CPresetSystemEditor::startFileOperation(FileOperation operation, bool endianReversed) {
  if (getFrame() == nullptr || fileOperationRunning()) return;
  const bool ofBank = operation == FileOperation::loadBank || operation == FileOperation::saveBank;
  FileDialogRequest request;
  request.save = operation == FileOperation::saveBank || operation == FileOperation::savePreset;
  request.title = std::string(request.save ? "Save " : "Load ") + (ofBank ? "bank" : "preset");
  if (endianReversed) request.title += " (endian-reversed)";
  request.folder = currentDirectory;
  request.typeName = ofBank ? "Orv Bank" : "Orv Preset";
  request.extension = ofBank ? "orb" : "orv";
  request.proposedName = ofBank ? bankFileName : presetFileName;
  request.window = reinterpret_cast<std::uintptr_t>(parentWindow);
  fileOperation = operation;
  fileEndianReversed = endianReversed;
  fileDialog.start(request);
}

void CPresetSystemEditor::completeFileOperation() {
  if (!fileOperationRunning()) return;
  const FileDialog::State state = fileDialog.poll();
  if (state == FileDialog::State::running) return;
  const std::string path = fileDialog.path();
  const FileOperation operation = std::exchange(fileOperation, FileOperation::none);
  fileDialog.cancel();
  if (getFrame() == nullptr) return;
  if (state == FileDialog::State::chosen) {
    finishFileOperation(operation, path);
  } else if (state == FileDialog::State::unavailable) {
    XPlatDisplayAlert(kNoDialog);
  }
}

void CPresetSystemEditor::endFileOperation() {
  fileOperation = FileOperation::none;
  fileDialog.cancel();
}

void CPresetSystemEditor::finishFileOperation(FileOperation operation, const std::string& path) {
  const bool ofBank = operation == FileOperation::loadBank || operation == FileOperation::saveBank;
  char* fileName = ofBank ? bankFileName : presetFileName;
  if (!splitPath(path, fileName, currentDirectory)) return;
  if (operation == FileOperation::saveBank || operation == FileOperation::savePreset) {
    File file(fileName, currentDirectory, true);
    char* image = nullptr;
    const long size = ofBank ? BankToBuffer(&image) : PresetToBuffer(&image);
    file.write(image, size);
    delete[] image;
    return;
  }
  File file(fileName, currentDirectory, false);
  const FileImage read(file, presetEffect->getUniqueID());
  if (read.size == 0) return;
  if (ofBank) {
    takeBankImage(read.image(), read.size == file.size(), fileEndianReversed);
    takeOverBank(0);  // whatever preset the image selects, and whatever came of reading it
  } else {
    takePresetImage(read.image(), fileEndianReversed);
  }
  if (getFrame() != nullptr) getFrame()->invalid();  // the host may have closed the window, told of the new values
}

void CPresetSystemEditor::takePresetImage(std::span<char> image, bool endianReversed) {
  if (image.size() < kKindEnd) return;
  const ByteOrder order = orderOf(image, presetEffect->getUniqueID());
  if (order == ByteOrder::foreign) return;
  const bool swapped = (order == ByteOrder::swapped) != endianReversed;
  if (kindOf(image) == ImageKind::oldPreset) {
    BufferToPresetOld(image.data() + kKindEnd, swapped,
                      presetimage::floatsInOldPreset(static_cast<std::int64_t>(image.size())));
  } else if (kindOf(image) == ImageKind::preset && image.size() >= newpresetheader::kSize) {
    newpresetheader header = headerOf(image, swapped);
    BufferToPreset(image.data() + newpresetheader::kSize, &header, swapped);
  }
}

void CPresetSystemEditor::takeBankImage(std::span<char> image, bool whole, bool endianReversed) {
  if (image.size() < kKindEnd) return;
  const ByteOrder order = orderOf(image, presetEffect->getUniqueID());
  if (order == ByteOrder::foreign) return;
  const bool swapped = (order == ByteOrder::swapped) != endianReversed;
  if (kindOf(image) == ImageKind::oldBank) {
    if (!whole) return;  // its size is all that tells where the records are
    BufferToBankOld(image.data() + kKindEnd, swapped, presetimage::kPresetCount,
                    presetimage::floatsPerOldBankRecord(static_cast<std::int64_t>(image.size())));
  } else if (kindOf(image) == ImageKind::bank && image.size() >= newpresetheader::kSize) {
    newpresetheader header = headerOf(image, swapped);
    BufferToBank(image.data() + newpresetheader::kSize, &header, swapped);
  }
}
