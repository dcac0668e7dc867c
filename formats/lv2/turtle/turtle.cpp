// The bundle's three files: what there is, the plug-ins, the presets.
#include "formats/lv2/turtle/turtle.h"

#include <lv2/core/lv2.h>
#include <lv2/instance-access/instance-access.h>
#include <lv2/options/options.h>
#include <lv2/port-groups/port-groups.h>
#include <lv2/presets/presets.h>
#include <lv2/state/state.h>
#include <lv2/ui/ui.h>
#include <lv2/urid/urid.h>

#include "formats/lv2/turtle/ports.h"
#include "formats/lv2/turtle/words.h"
#include "formats/lv2/uris.h"

namespace turtle {
namespace {

constexpr Lv2Shape kShapes[] = {{lv2uris::kStereo, 2}, {lv2uris::kMono, 1}};

std::string presetUri(const Lv2Shape& shape, std::size_t slot) {
  return "<" + std::string(shape.uri) + ":preset:" + (slot < 10 ? "0" : "") + std::to_string(slot) +
         ">";
}

void writePrefixes(std::ostream& out) {
  out << "@prefix doap: <http://usefulinc.com/ns/doap#> .\n"
         "@prefix foaf: <http://xmlns.com/foaf/0.1/> .\n"
         "@prefix lv2: <" LV2_CORE_PREFIX
         "> .\n"
         "@prefix opts: <" LV2_OPTIONS_PREFIX
         "> .\n"
         "@prefix pg: <" LV2_PORT_GROUPS_PREFIX
         "> .\n"
         "@prefix pset: <" LV2_PRESETS_PREFIX
         "> .\n"
         "@prefix rdfs: <http://www.w3.org/2000/01/rdf-schema#> .\n"
         "@prefix state: <" LV2_STATE_PREFIX
         "> .\n"
         "@prefix ui: <" LV2_UI_PREFIX
         "> .\n"
         "@prefix urid: <" LV2_URID_PREFIX "> .\n\n";
}

void writeGroup(std::ostream& out, const Lv2Shape& shape, bool isInput) {
  const std::string way = isInput ? "in" : "out";
  out << "<" << shape.uri << ":" << way << "put>\n"
      << "  a pg:" << (isInput && shape.inputs == 1 ? "Mono" : "Stereo")
      << "Group , pg:" << (isInput ? "Input" : "Output") << "Group ;\n"
      << "  lv2:name \"" << (isInput ? "Input" : "Output") << "\" ;\n"
      << "  lv2:symbol \"" << way << "put\" .\n\n";
}

// The record's 1990 is 1.9.9.
struct Version {
  explicit Version(int record)
      : major(record / 1000), minor(record / 100 % 10), patch(record / 10 % 10) {}
  int major;
  int minor;
  int patch;
};

// LV2 takes odd numbers for what is unfinished.
void writeVersion(std::ostream& out, const Version& version) {
  out << "  lv2:minorVersion " << 2 * (10 * version.major + version.minor) << " ;\n"
      << "  lv2:microVersion " << 2 * version.patch << " ;\n";
}

void writeProject(std::ostream& out, HostedEffect& effect) {
  const Version version(effect.version());
  out << "<" << lv2uris::kStereo << ":project>\n  a doap:Project ;\n  doap:name "
      << quoted(effect.text(effGetEffectName)) << " ;\n  doap:release [ a doap:Version ; "
      << "doap:revision \"" << version.major << "." << version.minor << "." << version.patch
      << "\" ] ;\n  doap:maintainer [ a foaf:Agent ; foaf:name "
      << quoted(effect.text(effGetVendorString)) << " ] .\n\n";
}

void writePlugin(std::ostream& out, const Lv2Shape& shape, const Described& described) {
  HostedEffect& effect = described.effect;
  const std::string uri = "<" + std::string(shape.uri);
  writeGroup(out, shape, true);
  writeGroup(out, shape, false);
  out << uri << ">\n  a lv2:Plugin , lv2:SpatialPlugin ;\n"
      << "  doap:name "
      << quoted(effect.text(effGetEffectName) + (shape.inputs == 1 ? " mono to stereo" : ""))
      << " ;\n"
      << "  doap:license <https://spdx.org/licenses/MIT> ;\n"
      << "  lv2:project <" << lv2uris::kStereo << ":project> ;\n";
  writeVersion(out, Version(effect.version()));
  out << "  lv2:optionalFeature lv2:hardRTCapable , urid:map ;\n"
      << "  lv2:extensionData state:interface ;\n";
  if (described.hasWindow) out << "  ui:ui <" << lv2uris::kWindow << "> ;\n";
  out << "  pg:mainInput " << uri << ":input> ;\n  pg:mainOutput " << uri << ":output> ;\n"
      << "  lv2:port ";
  writePorts(out, shape, effect);
  out << " .\n\n";
}

// Only on the effect itself is there a living meter and a bank; hosts that do not let the window
// reach it show controls of their own.
void writeWindow(std::ostream& out) {
  out << "<" << lv2uris::kWindow << ">\n  a ui:X11UI ;\n"
      << "  lv2:requiredFeature ui:idleInterface , ui:parent , <" LV2_INSTANCE_ACCESS_URI "> ;\n"
      << "  lv2:optionalFeature ui:noUserResize , ui:resize , ui:touch , opts:options , urid:map "
         ";\n"
      << "  opts:supportedOption ui:scaleFactor ;\n"
      << "  lv2:extensionData ui:idleInterface .\n\n";
}

}  // namespace

void writeManifest(std::ostream& out, const Described& described, const std::string& binary) {
  writePrefixes(out);
  for (const Lv2Shape& shape : kShapes) {
    out << "<" << shape.uri << ">\n  a lv2:Plugin ;\n  lv2:binary <" << binary << "> ;\n"
        << "  rdfs:seeAlso <trelvan.ttl> .\n\n";
    for (std::size_t slot = 0; slot < described.presets.size(); ++slot) {
      out << presetUri(shape, slot) << "\n  a pset:Preset ;\n  lv2:appliesTo <" << shape.uri
          << "> ;\n  rdfs:seeAlso <presets.ttl> .\n\n";
    }
  }
  if (described.hasWindow) {
    out << "<" << lv2uris::kWindow << ">\n  a ui:X11UI ;\n  lv2:binary <" << binary << "> ;\n"
        << "  rdfs:seeAlso <trelvan.ttl> .\n";
  }
}

void writePlugins(std::ostream& out, const Described& described) {
  writePrefixes(out);
  out << "@prefix rdf: <http://www.w3.org/1999/02/22-rdf-syntax-ns#> .\n\n";
  writeProject(out, described.effect);
  for (const Lv2Shape& shape : kShapes) writePlugin(out, shape, described);
  if (described.hasWindow) writeWindow(out);
}

void writePresets(std::ostream& out, const Described& described) {
  writePrefixes(out);
  for (const Lv2Shape& shape : kShapes) {
    for (std::size_t slot = 0; slot < described.presets.size(); ++slot) {
      const Preset& preset = described.presets[slot];
      out << presetUri(shape, slot) << "\n  a pset:Preset ;\n  lv2:appliesTo <" << shape.uri
          << "> ;\n  rdfs:label " << quoted(preset.name);
      for (int index = 0; index < described.effect.parameterCount(); ++index) {
        out << " ;\n  lv2:port [ lv2:symbol "
            << quoted(described.effect.text(effGetParamName, index)) << " ; pset:value "
            << number(preset.values[static_cast<std::size_t>(index)]) << " ]";
      }
      out << " .\n\n";
    }
  }
}

}  // namespace turtle
