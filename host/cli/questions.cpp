// What a run says of the effect.
#include "host/cli/questions.h"

#include "host/cli/effectinfo.h"
#include "host/cli/effectjson.h"
#include "host/state/description.h"

namespace {

void sayInWords(Effect& effect, const Arguments& arguments, Console& console) {
  if (arguments.info) console.print(describeEffect(effect));
  if (arguments.listParameters) console.print(describeParameters(effect));
  if (arguments.listPresets) console.print(describePresets(effect));
}

}  // namespace

void sayWhatWasAsked(Effect& effect, const Arguments& arguments, Console& console) {
  if (!arguments.json) {
    sayInWords(effect, arguments, console);
    return;
  }
  Json document = Json::object();
  if (arguments.info) document["effect"] = effectJson(effect);
  if (arguments.listParameters) document["parameters"] = parametersJson(effect);
  if (arguments.listPresets) document["presets"] = presetsJson(effect);
  if (!document.empty()) console.print(documentText(document));
}
