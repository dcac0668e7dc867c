// What became of a sound file, for scripts.
#include "host/cli/filejson.h"

#include <cmath>
#include <sstream>
#include <string>

#include "host/cli/effectjson.h"
#include "host/sound/formattext.h"

namespace {

double rounded(double number) {
  return std::round(number * 1000.0) / 1000.0 + 0.0;  // never "-0.0"
}

Json formatJson(const std::string& file, const std::string& type, const std::string& encoding,
                int channels, int sampleRate, std::int64_t frames) {
  return {{"file", file},
          {"type", type},
          {"encoding", encoding},
          {"channels", channels},
          {"sample_rate", sampleRate},
          {"frames", frames},
          {"seconds", std::round(static_cast<double>(frames) / sampleRate * 1e6) / 1e6}};
}

void addFigures(Json& to, const Figures& figures) {
  const Loudness::Result& loudness = figures.loudness;
  to["peak_dbfs"] = decibelsOf(figures.levels.peak());
  to["true_peak_dbtp"] = decibelsOf(loudness.truePeak.value_or(0.0));
  to["loudness_lufs"] = loudness.integrated ? Json(rounded(*loudness.integrated)) : Json(nullptr);
  to["mid_dbfs"] = decibelsOf(sineOf(figures.levels.mid()));
  to["side_dbfs"] = decibelsOf(sineOf(figures.levels.side()));
  to["correlation"] = rounded(figures.levels.correlation());
}

Json settingJson(const EffectSetting& setting) {
  Json effect = {{"name", setting.effect}, {"preset", nullptr}};
  if (setting.preset)
    effect["preset"] = {{"number", setting.preset->number}, {"name", setting.preset->name}};
  Json parameters = Json::array();
  for (std::size_t index = 0; index < setting.parameters.size(); ++index) {
    const ParameterFacts& facts = setting.parameters[index];
    parameters.push_back({{"index", index},
                          {"name", facts.name},
                          {"value", numberOf(facts.value)},
                          {"text", facts.display},
                          {"unit", facts.label}});
  }
  effect["parameters"] = std::move(parameters);
  return effect;
}

Json linesOf(const std::string& text) {
  Json lines = Json::array();
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

}  // namespace

Json analysisJson(const Analysis& analysis, const std::filesystem::path& file,
                  const std::string& warnings) {
  Json input =
      formatJson(file.string(), fileTypeText(analysis.libFormat), encodingText(analysis.libFormat),
                 analysis.channels, analysis.sampleRate, analysis.figures.levels.frames());
  addFigures(input, analysis.figures);
  return {{"input", std::move(input)}, {"warnings", linesOf(warnings)}};
}

Json conversionJson(const Conversion& done, const Job& job, const std::string& warnings) {
  Json output = formatJson(job.output.string(), textOf(done.type), textOf(done.format), 2,
                           done.sampleRate, done.framesWritten);
  if (done.figures) addFigures(output, done.figures->sound);
  Json file = {{"input", formatJson(job.input.string(), fileTypeText(done.inputFormat),
                                    encodingText(done.inputFormat), done.channels, done.sampleRate,
                                    done.framesRead)},
               {"output", std::move(output)}};
  if (done.setting) file["effect"] = settingJson(*done.setting);
  file["gain_db"] = decibelsOf(done.gain);
  if (done.figures) file["fold_error_dbfs"] = decibelsOf(done.figures->foldError);
  file["peak_before_clipping_dbfs"] = decibelsOf(done.peak);
  file["clipped_samples"] = done.clippedSamples;
  if (job.plot) file["picture"] = job.plot->string();
  file["warnings"] = linesOf(warnings);
  return file;
}
