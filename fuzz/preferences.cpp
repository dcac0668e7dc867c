// Fuzz target: a preferences file of any bytes, asked, changed, and read by an effect that starts.
#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "fuzz/inputreader.h"
#include "fuzz/records.h"
#include "fuzz/require.h"
#include "fuzz/wholeeffect.h"
#include "platform/preferencestore.h"

namespace {

using fuzz::InputReader;
using Bytes = std::vector<unsigned char>;

constexpr char kApplication[] = "com.orv.trelvan";
constexpr std::array kKeys = {"CurrDir",       "CurrBank",    "CurrPreset",  "DefaultBank",
                              "DefaultPreset", "MemoAPreset", "MemoBPreset", "DefaultMidi"};
constexpr std::size_t kMostText = 4096;  // more than any value in these inputs has

struct Value {
  std::optional<std::string> text;
  std::optional<Bytes> bytes;
  bool operator==(const Value&) const = default;
};

// The buffer is a heap block of its own, and stays as it was where there is no text for it.
std::optional<std::string> textOf(const PreferenceStore& store, const char* key, std::size_t size) {
  const std::vector<char> before(size, 'x');
  std::vector<char> buffer(before);
  if (!store.getString(key, buffer.data(), size)) {
    require(buffer == before, "without a text nothing is written");
    return std::nullopt;
  }
  require(std::find(buffer.begin(), buffer.end(), '\0') != buffer.end(), "a text ends");
  return std::string(buffer.data());
}

Value valueOf(const PreferenceStore& store, const char* key, std::size_t shortSize) {
  Value value{textOf(store, key, kMostText), std::nullopt};
  Bytes bytes = {1, 2, 3};
  if (store.getBytes(key, bytes)) {
    value.bytes = bytes;
  } else {
    require(bytes == Bytes({1, 2, 3}), "without a value nothing is written");
  }
  require(!value.text || !value.bytes, "a value is a text or bytes");
  const std::optional<std::string> cut = textOf(store, key, shortSize);
  require(!cut || cut == value.text, "a text comes whole or not at all");
  return value;
}

using Values = std::vector<Value>;  // of kKeys, in their order

Values allOf(const PreferenceStore& store, std::size_t shortSize) {
  Values values;
  for (const char* key : kKeys) values.push_back(valueOf(store, key, shortSize));
  return values;
}

// A change of one key; afterwards the others are what they were, to everybody. isText: no zero is
// in the file; with one, a damaged value may be another one once it is written again.
void requireChange(InputReader& input, Values values, bool isText) {
  const std::size_t which = input.below(kKeys.size());
  const char* key = kKeys[which];
  PreferenceStore store(kApplication);
  const unsigned kind = input.below(4);
  const std::string text = input.text();
  if (kind == 0) {
    store.remove(key);
    values[which] = {};
  } else if (kind == 1) {
    store.setBytes(key, text.data(), text.size());
    values[which] = {std::nullopt, Bytes(text.begin(), text.end())};
  } else {
    store.setString(key, text.c_str());
    values[which] = {std::string(text.c_str()), std::nullopt};
  }
  require(allOf(store, kMostText) == values, "its own questions see a change at once");
  require(store.synchronise(), "a change is kept, whatever the file was");
  const PreferenceStore others(kApplication);
  require(valueOf(others, key, kMostText) == values[which], "and is seen after it, by everybody");
  if (!isText) return;
  require(allOf(store, kMostText) == values, "what was not changed is as it was");
  require(allOf(others, kMostText) == values, "to everybody");
}

// An effect that starts from this file, and stores in it.
void requireSoundStart(const Values& values) {
  Trelvan& effect = fuzz::wholeEffect();
  CPresetSystemEditor& editor = fuzz::wholeEffectsEditor();
  const presetimage::Bank before = fuzz::sampleBank();
  fuzz::resetWholeEffect(before, 5);
  editor.loadDefaults();
  fuzz::requireSoundState();
  require(effect.getPresetNo() == 0, "an effect starts with its first preset");
  if (!values[3].bytes && !values[4].bytes)
    require(fuzz::identical(effect.bank(), before), "without stored defaults the bank stays");
  editor.recallA();
  editor.recallB();
  fuzz::requireSoundState();
  effect.setPresetNo(7);
  editor.storeA();
  const presetimage::Bank stored = effect.bank();
  effect.preset(7) = fuzz::sampleDefault();
  editor.recallA();
  ACombProgram expected = stored[7];
  expected.rename(std::string(expected.name, sizeof expected.name).c_str());  // as if typed
  require(fuzz::identical(effect.preset(7), expected), "what was stored in A is recalled");
  editor.storePathsAndFilenames();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::filesystem::path file = fuzz::preferencesFile();
  std::filesystem::remove_all(file.parent_path());
  std::filesystem::create_directory(file.parent_path());
  InputReader input(data, size);
  const std::size_t shortSize = input.byte();
  InputReader change = input;
  (void)input.take(2);  // what the change is
  (void)input.text();
  const auto content = input.remaining();
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(content.data()),
             static_cast<std::streamsize>(content.size()));

  const Values values = allOf(PreferenceStore(kApplication), shortSize);
  require(allOf(PreferenceStore(kApplication), shortSize) == values,
          "a second reading sees the same");
  requireSoundStart(values);
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(content.data()),
             static_cast<std::streamsize>(content.size()));
  requireChange(change, values, std::find(content.begin(), content.end(), 0) == content.end());
  return 0;
}
