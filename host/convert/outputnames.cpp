// What the outputs of several inputs are called, so that none gets another's name.
#include "host/convert/outputnames.h"

#include <algorithm>
#include <map>
#include <set>
#include <system_error>

#include "host/sound/soundformat.h"

namespace {

namespace fs = std::filesystem;

using Groups = std::map<fs::path, std::vector<std::size_t>>;

// The indices that share a name.
std::vector<std::vector<std::size_t>> clashesIn(const std::vector<fs::path>& names) {
  Groups groups;
  for (std::size_t i = 0; i < names.size(); ++i) groups[names[i]].push_back(i);
  std::vector<std::vector<std::size_t>> clashes;
  for (const auto& [name, group] : groups) {
    if (group.size() > 1) clashes.push_back(group);
  }
  return clashes;
}

bool changesType(const fs::path& input, const OutputNaming& naming) {
  const auto type = fileTypeOf(input);
  if (naming.type) return type != fileTypeNamed(*naming.type);
  return !type || isLossy(*type);
}

// stem: of the input, or what stands for it.
fs::path nameWith(const fs::path& stem, const fs::path& input, const OutputNaming& naming) {
  const std::string extension =
      changesType(input, naming) ? "." + naming.type.value_or("wav") : input.extension().string();
  return stem.string() + naming.suffix + extension;
}

// From the root on, as the person named it.
std::vector<fs::path> foldersOf(const fs::path& input) {
  std::error_code error;
  const fs::path folder = fs::absolute(input, error).lexically_normal().parent_path();
  const fs::path relative = folder.relative_path();
  return {relative.begin(), relative.end()};
}

fs::path lastOf(const std::vector<fs::path>& folders, std::size_t count) {
  fs::path last;
  for (std::size_t i = folders.size() - std::min(count, folders.size()); i < folders.size(); ++i)
    last /= folders[i];
  return last;
}

// How many of the last ones differ for all of them.
std::size_t tellingCount(const std::set<std::vector<fs::path>>& all) {
  std::size_t count = 1;
  for (std::set<fs::path> different; different.size() < all.size(); ++count) {
    different.clear();
    for (const auto& folders : all) different.insert(lastOf(folders, count));
  }
  return count - 1;
}

}  // namespace

std::vector<fs::path> outputNames(const std::vector<FoundInput>& inputs,
                                  const OutputNaming& naming) {
  std::vector<fs::path> names;
  names.reserve(inputs.size());
  for (const FoundInput& input : inputs)
    names.push_back(input.below / nameWith(input.file.stem(), input.file, naming));
  for (const auto& clash : clashesIn(names)) {
    std::set<std::vector<fs::path>> folders;
    for (const std::size_t i : clash) folders.insert(foldersOf(inputs[i].file));
    if (folders.size() == 1) continue;
    const std::size_t count = tellingCount(folders);
    for (const std::size_t i : clash)
      names[i] = lastOf(foldersOf(inputs[i].file), count) / names[i].filename();
  }
  for (const auto& clash : clashesIn(names)) {
    for (const std::size_t i : clash) {
      const fs::path& file = inputs[i].file;
      if (changesType(file, naming))
        names[i].replace_filename(nameWith(file.filename(), file, naming));
    }
  }
  return names;
}

std::vector<fs::path> pictureNames(const std::vector<fs::path>& outputs) {
  std::vector<fs::path> names = outputs;
  for (fs::path& name : names) name.replace_extension(".png");
  for (const auto& clash : clashesIn(names)) {
    for (const std::size_t i : clash) names[i] = outputs[i].string() + ".png";
  }
  return names;
}
