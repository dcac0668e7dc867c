// Checks of loading a binary and scanning it, and of the names that it exports.
#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "host/base/failure.h"
#include "host/base/text.h"
#include "host/validate/check.h"
#include "host/validate/childlife.h"
#include "host/validate/means/exportedsymbols.h"
#include "host/validate/means/loadingways.h"
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

// What the scan's process tells, in one piece of the pipe.
struct Scan {
  static constexpr std::size_t kLongestText = 512;  // bytes, with the terminating zero

  double milliseconds = 0.0;
  char complaint[kLongestText] = "";  // empty: it was scanned
};

[[noreturn]] void scanInThisProcess(const std::filesystem::path& binary, int end) {
  Scan scan;
  const auto begin = std::chrono::steady_clock::now();
  try {
    scanOnce(binary);
  } catch (const Failure& failure) {
    std::snprintf(scan.complaint, sizeof scan.complaint, "%s", failure.what());
  } catch (const std::exception& error) {
    std::snprintf(scan.complaint, sizeof scan.complaint, "throws an exception at the host (%s)",
                  error.what());
  }
  const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin;
  scan.milliseconds = took.count();
  _exit(write(end, &scan, sizeof scan) == sizeof scan ? 0 : 1);
}

// In a process that has never loaded it; nothing where the scan ended that process.
std::optional<Scan> scanApart(Trial& trial) {
  int ends[2];
  if (pipe(ends) != 0) trial.leaveOut("no pipe can be made for a scan");
  const pid_t process = fork();
  if (process < 0) trial.leaveOut("no process can be made for a scan");
  if (process == 0) {
    endWithParent();
    scanInThisProcess(trial.plugin(), ends[1]);
  }
  close(ends[1]);
  Scan scan;
  const bool told = read(ends[0], &scan, sizeof scan) == sizeof scan;
  close(ends[0]);
  waitpid(process, nullptr, 0);
  return told ? std::optional(scan) : std::nullopt;
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
    const std::optional<Scan> told = scanApart(trial);
    if (!told) trial.fail("ends the process that scans it");
    if (told->complaint[0] != '\0') trial.fail("%s", told->complaint);
    best = std::min(best.value_or(told->milliseconds), told->milliseconds);
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
