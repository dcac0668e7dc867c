// Audio ports in groups, and a control port for each of the effect's parameters.
#include "formats/lv2/turtle/ports.h"

#include <string>

#include "formats/lv2/turtle/words.h"

namespace turtle {
namespace {

// As the effect shows the value: "265.0 Hz".
std::string shown(HostedEffect& effect, int index, float value) {
  const float before = effect.parameter(index);
  effect.setParameter(index, value);
  std::string text = effect.text(effGetParamDisplay, index);
  effect.setParameter(index, before);
  return text + " " + effect.text(effGetParamLabel, index);
}

struct AudioPort {
  const char* symbol;
  const char* name;
  const char* channel;  // of its group
};
constexpr AudioPort kStereoIn[] = {{"in_left", "In left", "left"},
                                   {"in_right", "In right", "right"}};
constexpr AudioPort kMonoIn[] = {{"in", "In", "center"}};
constexpr AudioPort kOut[] = {{"out_left", "Out left", "left"},
                              {"out_right", "Out right", "right"}};

void writeAudioPort(std::ostream& out, const Lv2Shape& shape, std::uint32_t index) {
  const bool isInput = index < shape.firstOutput();
  const AudioPort* const inputs = shape.inputs == 1 ? kMonoIn : kStereoIn;
  const AudioPort& port = isInput ? inputs[index] : kOut[index - shape.firstOutput()];
  out << "[\n    a lv2:AudioPort , lv2:" << (isInput ? "Input" : "Output") << "Port ;\n"
      << "    lv2:index " << index << " ;\n"
      << "    lv2:symbol \"" << port.symbol << "\" ;\n"
      << "    lv2:name \"" << port.name << "\" ;\n"
      << "    pg:group <" << shape.uri << (isInput ? ":input" : ":output") << "> ;\n"
      << "    lv2:designation pg:" << port.channel << "\n  ]";
}

// Values are raw ones, 0 to 1, so that they are the same bits and the same ramps as in every other
// interface; what they stand for is in the comment and at the scale points.
void writeControlPort(std::ostream& out, const Lv2Shape& shape, HostedEffect& effect, int index) {
  const std::string name = effect.text(effGetParamName, index);
  out << "[\n    a lv2:ControlPort , lv2:InputPort ;\n"
      << "    lv2:index " << shape.firstControl() + static_cast<std::uint32_t>(index) << " ;\n"
      << "    lv2:symbol " << quoted(name) << " ;\n"
      << "    lv2:name " << quoted(name) << " ;\n"
      << "    lv2:default " << number(effect.parameter(index)) << " ;\n"
      << "    lv2:minimum 0.0 ;\n    lv2:maximum 1.0";
  if (name == kLv2EnabledName) out << " ;\n    lv2:designation lv2:enabled";
  if (effect.isSwitch(index)) {
    out << " ;\n    lv2:portProperty lv2:toggled";
  } else {
    out << " ;\n    rdfs:comment "
        << quoted("0 is " + shown(effect, index, 0.0F) + ", 0.5 is " + shown(effect, index, 0.5F) +
                  ", 1 is " + shown(effect, index, 1.0F) + ".");
    for (const float value : {0.0F, 0.25F, 0.5F, 0.75F, 1.0F}) {
      out << " ;\n    lv2:scalePoint [ rdfs:label " << quoted(shown(effect, index, value))
          << " ; rdf:value " << number(value) << " ]";
    }
  }
  out << "\n  ]";
}

}  // namespace

void writePorts(std::ostream& out, const Lv2Shape& shape, HostedEffect& effect) {
  for (std::uint32_t port = 0; port < shape.firstControl(); ++port) {
    writeAudioPort(out, shape, port);
    out << " , ";
  }
  for (int index = 0; index < effect.parameterCount(); ++index) {
    if (index > 0) out << " , ";
    writeControlPort(out, shape, effect, index);
  }
}

}  // namespace turtle
