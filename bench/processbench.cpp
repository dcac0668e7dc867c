// How long a frame takes, in every form of the kernel and in the reference transcription: all in
// one process, one after the other in short turns, by the thread's own clock, medians.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <numeric>
#include <utility>

#include "bench/median.h"
#include "bench/processcases.h"
#include "bench/threadtime.h"

namespace {

constexpr int kRounds = 5;           // over all cases
constexpr int kTurns = 101;          // in a round, of each that is measured; odd: a median
constexpr int kFramesATurn = 32768;  // the clock itself costs some hundred ns

// Many instances: their delay lines are more than the caches hold, and those of the other
// contestants push them out. So a turn goes round the lines twice.
constexpr int kManyTurns = 11;
constexpr int kManyFramesATurn = 2 * kernel::kLineFrames;  // of each instance

std::vector<const kernel::Form*> forms() {
  std::vector<const kernel::Form*> found;
  for (const kernel::Form* const* form = kernel::usableForms(); *form != nullptr; ++form)
    found.push_back(*form);
  return found;
}

bool goesRoundItsLines(const Case& what) {
  return what.instances > 1 && what.together;
}

int blocksATurn(const Case& what) {
  if (goesRoundItsLines(what)) return kManyFramesATurn / what.block;
  return what.instances > 1 ? 1 : kFramesATurn / what.block;
}

int turnsOf(const Case& what) {
  return goesRoundItsLines(what) ? kManyTurns : kTurns;
}

// A case, in a form of the kernel or, without one, in the reference.
struct Contestant {
  Case what;
  const kernel::Form* form = nullptr;
};

// Who take turns.
using Match = std::vector<Contestant>;

// ns a frame, of each; as many turns as the first one's case asks for.
std::vector<double> measured(const Match& contestants) {
  std::vector<CasePlayer> players;
  for (const auto& [what, form] : contestants) players.emplace_back(what, form);
  std::vector<std::vector<double>> times(players.size());
  for (int turn = 0; turn < turnsOf(contestants.front().what); ++turn) {
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

double sum(const std::vector<double>& times) {
  return std::accumulate(times.begin(), times.end(), 0.0);
}

// Of each match, the times of the round in which all its contestants together took least. Work
// beside it on the same core, also that of other virtual machines, comes and goes within minutes;
// it takes a third from what keeps the core busy, and little from the reference, which waits for
// itself.
std::vector<std::vector<double>> calmestRounds(const std::vector<Match>& matches) {
  std::vector<std::vector<double>> calmest(matches.size());
  for (int round = 0; round < kRounds; ++round) {
    for (std::size_t i = 0; i < matches.size(); ++i) {
      auto times = measured(matches[i]);
      if (round == 0 || sum(times) < sum(calmest[i])) calmest[i] = std::move(times);
    }
  }
  return calmest;
}

// A case in the reference, in each form, and the settled one in the best form: the table's last
// column says what the case takes of that.
Match matchOf(const Case& what) {
  Match match = {{what}};
  for (const kernel::Form* form : forms()) match.push_back({what, form});
  match.push_back({processCases().front(), forms().front()});
  return match;
}

void printCases() {
  std::printf("| case | block | reference, ns a frame |");
  for (const kernel::Form* form : forms()) std::printf(" %s, ns | faster |", form->name);
  std::printf(" of settled |\n|------|------:|------:|");
  for (std::size_t i = 0; i < forms().size(); ++i) std::printf("------:|------:|");
  std::printf("------:|\n");
  std::vector<Match> matches;
  for (const Case& what : processCases()) matches.push_back(matchOf(what));
  const auto calmest = calmestRounds(matches);
  for (std::size_t at = 0; at < matches.size(); ++at) {
    const Case& what = matches[at].front().what;
    const auto& times = calmest[at];
    std::printf("| %s | %d | %.2f |", what.name.c_str(), what.block, times[0]);
    for (std::size_t i = 1; i <= forms().size(); ++i)
      std::printf(" %.3f | %.1f |", times[i], times[0] / times[i]);
    std::printf(" %.2f |\n", times[1] / times.back());
  }
}

// The slowest factory preset beside the settled case, form by form.
void printPresets() {
  for (const kernel::Form* form : forms()) {
    std::vector<Match> matches;
    for (const Case& what : presetCases())
      matches.push_back({{what, form}, {processCases().front(), form}});
    double slowest = 0.0;
    for (const auto& times : calmestRounds(matches))
      slowest = std::max(slowest, times[0] / times[1]);
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

// For a tool that counts instructions: one case in one form, for so many turns, which need not be
// long then.
int playOne(const char* number, const char* formName, const char* turns) {
  const auto cases = processCases();
  const auto index = static_cast<std::size_t>(std::atoi(number));
  if (index >= cases.size()) return 2;
  for (const kernel::Form* form : forms()) {
    if (std::strcmp(form->name, formName) != 0) continue;
    const Case& what = cases[index];
    const int blocks = std::max(1, kFramesATurn / what.block / what.instances);
    CasePlayer(what, form).play(blocks * std::atoi(turns));
    std::printf("%s|%d|%d\n", what.name.c_str(), what.block, blocks * what.block * what.instances);
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
