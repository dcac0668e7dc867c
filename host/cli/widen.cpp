// The program widen: what a run does, in order.
#include "host/cli/widen.h"

#include <exception>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "host/base/interruption.h"
#include "host/base/standardstreams.h"
#include "host/base/temporaryfile.h"
#include "host/base/text.h"
#include "host/base/wholefile.h"
#include "host/cli/analyses.h"
#include "host/cli/batch.h"
#include "host/cli/console.h"
#include "host/cli/dryrun.h"
#include "host/cli/effectjson.h"
#include "host/cli/isolation.h"
#include "host/cli/listening.h"
#include "host/cli/questions.h"
#include "host/convert/jobs.h"
#include "host/convert/overlaps.h"
#include "host/options/arguments.h"
#include "host/state/effectadapter.h"
#include "host/state/effectstate.h"
#include "host/state/statefiles.h"
#include "host/validate/validation.h"
#include "host/vst/effect.h"
#include "host/vst/executablepath.h"
#include "host/vst/pluginmodule.h"
#include "host/vst/pluginpath.h"
#include "host/vst/pluginsearch.h"

namespace {

constexpr int kUsualRate = 44100;  // Hz, for an effect that is only asked

std::filesystem::path pluginFor(const Arguments& arguments) {
  if (arguments.plugin) return pluginBinary(*arguments.plugin);
  return pluginBinary(firstPlugin(defaultPluginPlaces(executablePath())));
}

// Before anything is saved, so that all is or nothing, and before the window opens: what is done in
// it must not be lost for a reason that was there before.
void checkSaving(Effect& effect, const Arguments& arguments) {
  checkStateFiles(effect, arguments.saved, arguments.force);
  if (!arguments.saveState) return;
  checkCanBeMade(*arguments.saveState, arguments.force);
  effect.chunk();
}

// Before any sound is converted: whatever is wrong with the effect or its state shows here, once.
// loop: what is played to its window; null where nothing is.
void tryState(PluginModule& module, const Arguments& arguments, Loop* loop, Console& console) {
  HostCallback callback;
  callback.setHasWindow(true);
  Effect effect(module, callback);
  if (!arguments.inputs.empty()) effect.checkCanProcess(arguments.asksDouble());
  effect.setUp(loop != nullptr ? loop->sampleRate() : kUsualRate, arguments.blockSize);
  if (!arguments.inputs.empty() && !arguments.editor)
    choosePresetForFile(effect, arguments.state);  // for --save-state
  for (const std::string& note : applyState(effect, arguments.state)) console.warn(note);
  sayWhatWasAsked(effect, arguments, console);
  checkSaving(effect, arguments);
  if (arguments.editor) showAndPlay(effect, callback, loop, arguments, console);
  if (arguments.dryRun) return;
  if (arguments.saveState)
    writeWholeFile(*arguments.saveState, adapterFor(effect)->stateFile(), arguments.force);
  writeStateFiles(effect, arguments.saved, arguments.force);
}

ExitStatus runValidator(const Arguments& arguments, Console& console) {
  const ValidatorArguments& asked = *arguments.validator;
  const ValidationRequest request{pluginFor(arguments), asked.strictness,
                                  asked.seed.value_or(std::random_device()()), asked.check};
  const bool sound = validate(request, [&](const std::string& line) {
    console.print(line);
    console.checkPrinted();  // whoever reads may have gone
  });
  return sound ? ExitStatus::done : ExitStatus::failed;
}

void listPlugins(const Arguments& arguments, Console& console) {
  if (arguments.json) {
    console.print(documentText({{"plugins", pluginsJson(installedPlugins(pluginFolders()))}}));
    return;
  }
  for (const InstalledPlugin& plugin : installedPlugins(pluginFolders()))
    console.print(onOneLine(plugin.name) + "  " + onOneLine(plugin.path.string()));
}

// A foreign effect may have state that its instances share, and may crash.
bool wantsIsolation(const Arguments& arguments, const Jobs& jobs) {
  return arguments.isolate.value_or(arguments.plugin && jobs.list.size() > 1);
}

bool tryAndConvertIsolated(const Arguments& arguments, const Jobs& jobs, Console& console) {
  const std::filesystem::path plugin = pluginFor(arguments);
  const OrderlyEnd end;
  doIsolated(plugin.string(), [&] {
    PluginModule module(plugin);
    tryState(module, arguments, nullptr, console);
  });
  if (arguments.dryRun) return tellWhatWouldBeDone(arguments, jobs, console);
  return OrderlyEnd::isAsked() || convertAllIsolated(plugin, arguments, jobs, console);
}

bool tryAndConvert(const Arguments& arguments, const Jobs& jobs, Console& console) {
  PluginModule module(pluginFor(arguments));
  tryState(module, arguments, nullptr, console);
  if (arguments.dryRun) return tellWhatWouldBeDone(arguments, jobs, console);
  return convertAll(module, arguments, jobs, console);
}

void ask(const Arguments& arguments, Console& console) {
  std::vector<Job> played;
  played.reserve(arguments.inputs.size());
  for (const std::string& input : arguments.inputs) played.push_back({input, {}, {}, {}});
  checkNothingIsDestroyed(played, arguments);
  std::optional<Loop> loop;
  if (!arguments.inputs.empty()) {
    loop.emplace(arguments.inputs.front(), arguments.salvage);
    if (!loop->damage().empty())
      console.warn(shownInput(arguments.inputs.front()).string() + ": " + loop->damage());
  }
  PluginModule module(pluginFor(arguments));
  std::optional<OrderlyEnd> end;
  if (arguments.editor) end.emplace();
  tryState(module, arguments, loop ? &*loop : nullptr, console);
}

ExitStatus act(const Arguments& arguments, Console& console) {
  if (arguments.validator) return runValidator(arguments, console);
  if (arguments.listPlugins) {
    listPlugins(arguments, console);
    return ExitStatus::done;
  }
  if (arguments.analyse)
    return analyseAll(arguments, console) ? ExitStatus::done : ExitStatus::failed;
  if (arguments.inputs.empty() || arguments.editor) {
    ask(arguments, console);
    return ExitStatus::done;
  }
  const Jobs jobs = planJobs(arguments);
  if (arguments.output == "-" && !arguments.dryRun) standardOutputForSound();
  const bool all = wantsIsolation(arguments, jobs) ? tryAndConvertIsolated(arguments, jobs, console)
                                                   : tryAndConvert(arguments, jobs, console);
  return all ? ExitStatus::done : ExitStatus::failed;
}

ExitStatus parseAndAct(const std::vector<std::string>& words) {
  Console plain(false);
  try {
    const ParsedArguments parsed = parseArguments(words);
    if (!parsed.arguments) {
      plain.print(parsed.text);
      plain.checkPrinted();
      return ExitStatus::done;
    }
    Console console(parsed.arguments->quiet, parsed.arguments->json);
    const ExitStatus status = act(*parsed.arguments, console);
    console.checkPrinted();
    return status;
  } catch (const UsageFailure& failure) {
    plain.warn(std::string(failure.what()) + " (widen --help)");
    return failure.status();
  } catch (const Failure& failure) {
    plain.warn(failure.what());
    return failure.status();
  } catch (const std::bad_alloc&) {
    plain.warn("not enough memory");
  } catch (const std::exception& error) {
    plain.warn(error.what());
  }
  return ExitStatus::failed;
}

}  // namespace

int run(int count, const char* const* words) {
  std::vector<std::string> arguments;
  for (int word = 1; word < count; ++word) arguments.emplace_back(words[word]);
  return static_cast<int>(parseAndAct(arguments));
}
