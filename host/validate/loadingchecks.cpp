// Checks of loading a binary and scanning it, and of the names that it exports.
#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "host/base/failure.h"
#include "host/base/text.h"
#include "host/validate/check.h"
#include "host/validate/exportedsymbols.h"
#include "host/validate/loadingways.h"
#include "host/validate/subject.h"

namespace {

void opensAndCloses(Trial& trial) {
  trial.step("loading");
  PluginModule module(trial.plugin());
  trial.step("making the effect");
  { const Subject subject(module); }
  trial.step("unloading");
}

// A host that looks for plug-ins goes through hundreds of them.
void scanOnce(const std::filesystem::path& binary) {
  PluginModule module(binary);
  const Subject subject(module);
}

// Milliseconds in a process that has never loaded it; nothing where the scan ended that process,
// which another check tells of.
std::optional<double> scanTime(const std::filesystem::path& binary) {
  int ends[2];
  if (pipe(ends) != 0) throw Failure("no pipe can be made for a scan");
  const pid_t process = fork();
  if (process < 0) throw Failure("no process can be made for a scan");
  if (process == 0) {
    const auto begin = std::chrono::steady_clock::now();
    try {
      scanOnce(binary);
    } catch (const Failure&) {
      _exit(1);
    }
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin;
    const double milliseconds = took.count();
    _exit(write(ends[1], &milliseconds, sizeof milliseconds) == sizeof milliseconds ? 0 : 1);
  }
  close(ends[1]);
  double milliseconds = 0.0;
  const bool told = read(ends[0], &milliseconds, sizeof milliseconds) == sizeof milliseconds;
  close(ends[0]);
  waitpid(process, nullptr, 0);
  return told ? std::optional(milliseconds) : std::nullopt;
}

// The quickest of several: a busy machine is not the effect's fault. Hosts wait for the scan of
// hundreds of plug-ins at their first start.
void isScannedQuickly(Trial& trial) {
  constexpr int kScans = 10;
  constexpr int kImpatient = 10;                                             // strictness
  const double longest = trial.strictness() >= kImpatient ? 100.0 : 1000.0;  // ms
  std::optional<double> best;
  for (int scan = 0; scan < kScans && best.value_or(longest) >= longest; ++scan) {
    trial.step("scanning, the %d. time", scan + 1);
    const std::optional<double> took = scanTime(trial.plugin());
    if (!took) trial.fail("ends the process that scans it");
    best = std::min(best.value_or(*took), *took);
  }
  if (*best >= longest)
    trial.fail("a scan takes %.0f ms at best (load, make, open, close, unload; %d tries)", *best,
               kScans);
  trial.note("%.1f ms", *best);
}

void isLoadedInEveryWay(Trial& trial) {
  for (const LoadingWay& way : loadingWays()) {
    trial.step("loading %s", way.text);
    void* library = way.load(trial.plugin());
    if (library == nullptr) trial.fail("cannot be loaded %s: %s", way.text, dlerror());
    {
      // Found loaded already, it is used as it is.
      PluginModule module(trial.plugin());
      trial.step("making the effect, loaded %s", way.text);
      const Subject subject(module);
      trial.step("closing the effect, loaded %s", way.text);
    }
    trial.step("unloading, loaded %s", way.text);
    dlclose(library);
  }
}

// This program has libraries that other hosts have not.
void needsNothingOfItsHost(Trial& trial) {
  trial.step("loading it apart from the host's libraries");
  const std::optional<std::string> complaint = complaintAlone(trial.plugin());
  if (!complaint) trial.leaveOut("a binary cannot be loaded alone here");
  if (!complaint->empty())
    trial.fail("cannot be loaded where the host has not what it needs: %s", complaint->c_str());
}

bool isEntry(const std::string& name) {
  return name == "VSTPluginMain" || name == "main";
}

// What linkers used to add to every library.
bool isLinkers(const std::string& name) {
  constexpr std::array kNames{"_init", "_fini", "__bss_start", "_edata", "_end"};
  return std::find(kNames.begin(), kNames.end(), name) != kNames.end();
}

void exportsNothingElse(Trial& trial) {
  trial.step("reading the binary's table of symbols");
  const auto exported = exportedSymbols(trial.plugin());
  if (!exported) trial.leaveOut("the names that a binary exports cannot be read here");
  std::vector<std::string> others = *exported;
  std::erase_if(others, [](const std::string& name) { return isEntry(name) || isLinkers(name); });
  if (!others.empty())
    trial.fail("exports %zu more, %s the first: another binary's may take its place", others.size(),
               others.front().c_str());
  const bool hasBoth = std::count_if(exported->begin(), exported->end(), isEntry) > 1;
  if (hasBoth) trial.note("exports VSTPluginMain and main");
}

constexpr std::array kChecks{
    Check{"an effect is made, opened, closed and unloaded", 1, 30, opensAndCloses},
    Check{"a scan of it is short", 5, 60, isScannedQuickly},
    Check{"it is loaded in each way that hosts use", 5, 30, isLoadedInEveryWay},
    Check{"it names every library that it needs", 6, 30, needsNothingOfItsHost},
    Check{"it exports its entry and nothing else", 10, 30, exportsNothingElse},
};

}  // namespace

std::span<const Check> loadingChecks() {
  return kChecks;
}
