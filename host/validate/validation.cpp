// The validator: runs the checks on a plug-in.
#include "host/validate/validation.h"

#include <cinttypes>
#include <string_view>
#include <vector>

#include "host/base/failure.h"
#include "host/base/text.h"
#include "host/validate/check.h"
#include "host/validate/childlife.h"
#include "host/validate/trialhome.h"
#include "host/validate/trialprocess.h"

std::vector<Check> allChecks() {
  std::vector<Check> all;
  for (const std::span<const Check> some :
       {loadingChecks(),      lifeChecks(),     remainsChecks(),      hostChecks(),
        textChecks(),         answerChecks(),   indexChecks(),        parameterChecks(),
        threadChecks(),       memoryChecks(),   soundChecks(),        bufferChecks(),
        boundaryChecks(),     divisionChecks(), pinChecks(),          switchingChecks(),
        systemCallChecks(),   hostModeChecks(), damagedSoundChecks(), realtimeChecks(),
        surroundingsChecks(), stateChecks(),    restoringChecks(),    stateThreadChecks(),
        damagedStateChecks(), editorChecks(),   editorWorkChecks(),   editorEndChecks()}) {
    all.insert(all.end(), some.begin(), some.end());
  }
  return all;
}

namespace {

std::vector<Check> wantedChecks(const ValidationRequest& request) {
  std::vector<Check> wanted = allChecks();
  std::erase_if(wanted, [&](const Check& check) {
    return request.check ? check.name != *request.check : check.strictness > request.strictness;
  });
  if (wanted.empty()) throw UsageFailure("--check: no check is named \"" + *request.check + "\"");
  return wanted;
}

const char* word(CheckOutcome outcome) {
  if (outcome == CheckOutcome::passed) return "pass    ";
  return outcome == CheckOutcome::leftOut ? "left out" : "FAIL    ";
}

// As one word of a shell's. The names of checks need no more than the marks.
std::string quoted(const std::string& word) {
  std::string result = "'";
  for (const char c : word) {
    if (c == '\'') {
      result += "'\\''";
    } else {
      result += c;
    }
  }
  return result + "'";
}

std::string lineOf(const Check& check, const Verdict& verdict) {
  std::string line =
      formatted("%s  %s (%.1f s)", word(verdict.outcome), check.name, verdict.seconds);
  if (!verdict.text.empty()) line += ": " + verdict.text;
  return line;
}

}  // namespace

bool validate(const ValidationRequest& request,
              const std::function<void(const std::string&)>& print) {
  const std::vector<Check> checks = wantedChecks(request);
  const TrialHome home;
  adoptOrphans();
  print(formatted("%s: strictness %d, seed %" PRIu64, request.plugin.c_str(), request.strictness,
                  request.seed));
  int passed = 0;
  int failed = 0;
  int leftOut = 0;
  for (const Check& check : checks) {
    const Verdict verdict = runCheck(check, request, home);
    print(lineOf(check, verdict));
    passed += verdict.outcome == CheckOutcome::passed ? 1 : 0;
    leftOut += verdict.outcome == CheckOutcome::leftOut ? 1 : 0;
    if (verdict.outcome != CheckOutcome::failed) continue;
    ++failed;
    print("          again: widen --validate " + quoted(request.plugin.string()) +
          formatted(" --strictness %d --seed %" PRIu64 " --check '%s'", request.strictness,
                    request.seed, check.name));
  }
  print(formatted("%zu check%s: %d passed, %d failed, %d left out", checks.size(),
                  checks.size() == 1 ? "" : "s", passed, failed, leftOut));
  return failed == 0;
}
