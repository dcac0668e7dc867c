// The table of rooms.
#include "tests/layout/roomrules.h"

#include <fnmatch.h>

#include <algorithm>

namespace {

struct Rule {
  const char* files;    // pattern of the including files; a star also matches slashes
  const char* targets;  // pattern of what they may include
};

constexpr const char* kToolkit = "<toolkit>";

constexpr Rule kRules[] = {
    {"plugin/*", "plugin/*"},
    {"plugin/*", "platform/relaxed.h"},

    {"effect/*", "effect/*"},
    {"effect/*", "plugin/*"},
    {"effect/*", "platform/*"},
    {"effect/*", "presetsystem/cpresetsystemeffect.h"},
    {"effect/trelvan.cpp", "editor/adeditor.h"},                 // creates the editor
    {"effect/trelvanparameters.cpp", "editor/aeffguieditor.h"},  // tells it of changes

    {"presetsystem/*", "presetsystem/*"},
    {"presetsystem/*", "plugin/*"},
    {"presetsystem/*", "platform/*"},
    {"presetsystem/*", "effect/acombprogram.h"},
    {"presetsystem/*", "editor/*"},  // base and controls; see kForbidden

    {"editor/*", "editor/*"},
    {"editor/*", "plugin/*"},
    {"editor/*", "presetsystem/*"},
    {"editor/*", "platform/*"},
    {"editor/*", kToolkit},
    {"editor/adeditor*.cpp", "effect/trelvan.h"},  // the meter's reading, the editor-open flag

    {"platform/*", "platform/*"},

    {"host/*", "host/*"},
    {"host/*", "plugin/vst24.h"},
    // The pure image layer: bytes in, records out.
    {"host/*", "presetsystem/presetimage.h"},
    {"host/*", "presetsystem/chunkimage.h"},
    {"host/*", "presetsystem/newpresetheader.h"},
    {"host/*", "presetsystem/bytereader.h"},
    {"host/*", "presetsystem/bytewriter.h"},
    {"host/*", "effect/acombprogram.h"},

    {"tests/*", "*"},
    {"bench/*", "*"},
    {"fuzz/*", "*"},
};

// The effect's own window is not the editor's base.
constexpr Rule kForbidden[] = {{"presetsystem/*", "editor/adeditor*"}};

bool matches(const Rule& rule, const std::string& file, const std::string& target) {
  return fnmatch(rule.files, file.c_str(), 0) == 0 && fnmatch(rule.targets, target.c_str(), 0) == 0;
}

}  // namespace

const std::vector<std::string>& rooms() {
  static const std::vector<std::string> names = {"plugin", "effect", "presetsystem", "editor", "platform",
                                                 "host",   "tests",  "bench",        "fuzz"};
  return names;
}

std::string roomOf(const std::string& path) {
  const std::string first = path.substr(0, path.find('/'));
  return std::find(rooms().begin(), rooms().end(), first) != rooms().end() && first != path ? first : "";
}

bool isToolkit(const std::string& include) {
  return include == "vstgui.h" || include.rfind("lib/", 0) == 0 || include.rfind("vstgui/", 0) == 0;
}

bool mayInclude(const std::string& file, const std::string& target) {
  const std::string name = isToolkit(target) ? kToolkit : target;
  const auto covers = [&](const Rule& rule) { return matches(rule, file, name); };
  return std::any_of(std::begin(kRules), std::end(kRules), covers) &&
         std::none_of(std::begin(kForbidden), std::end(kForbidden), covers);
}
