// How long a frame takes, in every form of the kernel and in the reference transcription: all in
// one process, one after the other in short turns, by the thread's own clock, medians.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "bench/median.h"
#include "bench/processcases.h"
#include "bench/threadtime.h"

namespace {

constexpr int kTurns = 101;          // of each that is measured; odd: a median
constexpr int kFramesATurn = 32768;  // the clock itself costs some hundred ns
constexpr int kManyInstances = 100;  // from here on one block of each is enough

std::vector<const kernel::Form*> forms() {
  std::vector<const kernel::Form*> found;
  for (const kernel::Form* const* form = kernel::usableForms(); *form != nullptr; ++form)
    found.push_back(*form);
  return found;
}

int blocksATurn(const Case& what) {
  return what.instances >= kManyInstances ? 1 : std::max(1, kFramesATurn / what.block);
}

// A case, in a form of the kernel or, without one, in the reference.
struct Contestant {
  Case what;
  const kernel::Form* form = nullptr;
};

// ns a frame, of each.
std::vector<double> measured(const std::vector<Contestant>& contestants) {
  std::vector<CasePlayer> players;
  for (const auto& [what, form] : contestants) players.emplace_back(what, form);
  std::vector<std::vector<double>> times(players.size());
  for (int turn = 0; turn < kTurns; ++turn) {
    for (std::size_t i = 0; i < players.size(); ++i) {
      const Case& what = contestants[i].what;
      const int blocks = blocksATurn(what);
      const double before = threadTime();
      players[i].play(blocks);
      times[i].push_back((threadTime() - before) / blocks / what.block / what.instances);
    }
  }
  std::vector<double> medians;
  for (auto& of : times) medians.push_back(median(of));
  return medians;
}

// The last column says what a case takes of the settled one, in the best form.
void printCases() {
  const Case settled = processCases().front();
  std::printf("| case | block | reference, ns a frame |");
  for (const kernel::Form* form : forms()) std::printf(" %s, ns | faster |", form->name);
  std::printf(" of settled |\n|------|------:|------:|");
  for (std::size_t i = 0; i < forms().size(); ++i) std::printf("------:|------:|");
  std::printf("------:|\n");
  for (const Case& what : processCases()) {
    std::vector<Contestant> contestants = {{what}};
    for (const kernel::Form* form : forms()) contestants.push_back({what, form});
    contestants.push_back({settled, forms().front()});
    const auto times = measured(contestants);
    std::printf("| %s | %d | %.2f |", what.name.c_str(), what.block, times[0]);
    for (std::size_t i = 1; i <= forms().size(); ++i)
      std::printf(" %.3f | %.1f |", times[i], times[0] / times[i]);
    std::printf(" %.2f |\n", times[1] / times.back());
    std::fflush(stdout);
  }
}

// The slowest factory preset beside the settled case, form by form.
void printPresets() {
  for (const kernel::Form* form : forms()) {
    double slowest = 0.0;
    for (const Case& what : presetCases()) {
      const auto times = measured({{what, form}, {processCases().front(), form}});
      slowest = std::max(slowest, times[0] / times[1]);
    }
    std::printf("%s: the slowest factory preset takes %.2f of the settled case\n", form->name,
                slowest);
  }
}

void printNothing() {
  for (const kernel::Form* form : forms()) {
    const CasePlayer player(processCases().front(), form);
    std::vector<double> times;
    constexpr int kCalls = 10000;
    for (int turn = 0; turn < kTurns; ++turn) {
      const double before = threadTime();
      player.playNothing(kCalls);
      times.push_back((threadTime() - before) / kCalls);
    }
    std::printf("%s: a call with 0 frames takes %.1f ns\n", form->name, median(times));
  }
}

// For a tool that counts instructions: one case in one form, for so many turns.
int playOne(const char* number, const char* formName, const char* turns) {
  const auto cases = processCases();
  const auto index = static_cast<std::size_t>(std::atoi(number));
  if (index >= cases.size()) return 2;
  for (const kernel::Form* form : forms()) {
    if (std::strcmp(form->name, formName) != 0) continue;
    CasePlayer(cases[index], form).play(blocksATurn(cases[index]) * std::atoi(turns));
    std::printf("%s|%d|%d\n", cases[index].name.c_str(), cases[index].block,
                blocksATurn(cases[index]) * cases[index].block * cases[index].instances);
    return 0;
  }
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 4) return playOne(argv[1], argv[2], argv[3]);
  if (argc == 2 && std::strcmp(argv[1], "forms") == 0) {
    for (const kernel::Form* form : forms()) std::printf("%s\n", form->name);
    return 0;
  }
  if (argc != 1) return 2;
  printCases();
  std::printf("\n");
  printPresets();
  printNothing();
  return 0;
}
