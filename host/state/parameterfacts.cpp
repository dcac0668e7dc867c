// What an effect says of one of its parameters.
#include "host/state/parameterfacts.h"

ParameterFacts factsOfParameter(Effect& effect, int index) {
  ParameterFacts facts;
  facts.name = effect.text(effGetParamName, index);
  facts.display = effect.text(effGetParamDisplay, index);
  facts.label = effect.text(effGetParamLabel, index);
  facts.value = effect.parameter(index);
  facts.automatable = effect.dispatch(effCanBeAutomated, index) != 0;
  VstParameterProperties properties{};
  if (effect.dispatch(effGetParameterProperties, index, 0, &properties) == 0) return facts;
  facts.isSwitch = (properties.flags & kVstParameterIsSwitch) != 0;
  if ((properties.flags & kVstParameterUsesFloatStep) != 0) {
    facts.steps = {properties.smallStepFloat, properties.stepFloat, properties.largeStepFloat};
  }
  if ((properties.flags & kVstParameterUsesIntegerMinMax) != 0)
    facts.range = {properties.minInteger, properties.maxInteger};
  return facts;
}
