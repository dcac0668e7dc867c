// Reads how parameters move in the course of a sound.
#include "host/state/automationfile.h"

#include <algorithm>
#include <map>
#include <string_view>

#include "host/base/failure.h"
#include "host/base/text.h"
#include "host/base/wholefile.h"
#include "host/state/effectadapter.h"
#include "host/state/namelookup.h"
#include "host/state/values.h"

namespace {

constexpr double kLatest = 1e6;  // s: later than any sound ends
constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Takes the first word off.
std::string_view takeWord(std::string_view& text) {
  const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
  text = trimmed(text.substr(word.size()));
  return word;
}

class Reader {
 public:
  explicit Reader(Effect& asked) : adapter(adapterFor(asked)) {
    for (int index = 0; index < asked.parameterCount(); ++index)
      names.push_back(asked.text(effGetParamName, index));
    if (names.empty()) throw Failure(asked.plugin() + " has no parameters");
  }

  void read(std::string_view line) {
    const double seconds = secondsOf(takeWord(line));
    const int parameter = takeParameter(line);
    if (line.empty()) throw Failure("there is no value after " + names[slot(parameter)]);
    AutomationLane& lane = lanes[parameter];
    lane.parameter = parameter;
    lane.points.push_back({seconds, valueOf(parameter, std::string(line))});
  }

  std::vector<AutomationLane> sorted() {
    std::vector<AutomationLane> all;
    for (auto& [parameter, lane] : lanes) {
      std::stable_sort(lane.points.begin(), lane.points.end(),
                       [](const auto& a, const auto& b) { return a.seconds < b.seconds; });
      all.push_back(std::move(lane));
    }
    return all;
  }

 private:
  static std::size_t slot(int parameter) { return static_cast<std::size_t>(parameter); }

  static double secondsOf(std::string_view word) {
    const auto read = readNumber(word);
    if (!read || (!read->unit.empty() && read->unit != "s" && read->unit != "ms")) {
      throw Failure("\"" + std::string(word) +
                    "\" is no time; a line is SECONDS PARAMETER VALUE, as in 1.5 width 80%");
    }
    const double seconds = read->unit == "ms" ? read->number / 1000.0 : read->number;
    if (seconds >= 0.0 && seconds <= kLatest) return seconds;
    throw Failure("\"" + std::string(word) + "\" is not a time within 0s to 1000000s");
  }

  // Takes it off the text: a name, which may have blanks in it, or an index.
  int takeParameter(std::string_view& text) const {
    std::size_t length = 0;
    for (const std::string& name : names) {
      const bool ends =
          text.size() == name.size() ||
          (text.size() > name.size() && kBlanks.find(text[name.size()]) != std::string_view::npos);
      if (ends && sameLetters(text.substr(0, name.size()), name))
        length = std::max(length, name.size());
    }
    if (length == 0) length = text.substr(0, text.find_first_of(kBlanks)).size();
    const std::string named(text.substr(0, length));
    text = trimmed(text.substr(length));
    if (named.empty()) throw Failure("there is no parameter and no value after the time");
    return findParameter(names, named, "");
  }

  // The same text is looked up once: an effect may have to be taken through all of its range.
  float valueOf(int parameter, const std::string& typed) {
    const auto key = std::make_pair(parameter, typed);
    const auto known = values.find(key);
    if (known != values.end()) return known->second;
    return values[key] = adapter->typedValue(parameter, names[slot(parameter)], typed);
  }

  std::unique_ptr<EffectAdapter> adapter;
  std::vector<std::string> names;  // by index
  std::map<int, AutomationLane> lanes;
  std::map<std::pair<int, std::string>, float> values;
};

}  // namespace

std::vector<AutomationLane> readAutomation(Effect& effect, const std::string& file) {
  const std::vector<unsigned char> bytes = readWholeFile(file);
  std::string_view rest(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  if (rest.starts_with(kByteOrderMark)) rest.remove_prefix(kByteOrderMark.size());
  Reader reader(effect);
  for (int number = 1; !rest.empty(); ++number) {
    const std::string_view line = trimmed(rest.substr(0, rest.find('\n')));
    rest.remove_prefix(std::min(rest.find('\n'), rest.size() - 1) + 1);
    if (line.empty() || line.front() == '#') continue;
    try {
      reader.read(line);
    } catch (const Failure& failure) {
      throw Failure(file + ", line " + std::to_string(number) + ": " + failure.what());
    }
  }
  std::vector<AutomationLane> lanes = reader.sorted();
  if (lanes.empty()) throw Failure(file + ": holds no point (SECONDS PARAMETER VALUE)");
  return lanes;
}
