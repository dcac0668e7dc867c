// The interface's own preset and bank files, .fxp and .fxb, on their way into an effect and out.
#include "host/state/fxpresets.h"

#include <algorithm>

#include "host/base/failure.h"
#include "host/base/text.h"
#include "host/base/wholefile.h"
#include "host/state/fxfile.h"

namespace {

FxFile readFor(const Effect& effect, const std::string& file) {
  FxFile read = FxFile::read(readWholeFile(file), file);
  if (read.effect == effect.record().uniqueID) return read;
  throw Failure(file +
                formatted(": was saved from another effect (its ID is 0x%08X, that of ",
                          static_cast<unsigned>(read.effect)) +
                effect.plugin() +
                formatted(" 0x%08X)", static_cast<unsigned>(effect.record().uniqueID)));
}

void checkChunk(const Effect& effect, const std::string& file) {
  if (effect.hasChunk()) return;
  throw Failure(file + ": holds a chunk, and " + effect.plugin() + " keeps none");
}

void checkProgram(const Effect& effect, const FxProgram& program, const std::string& file) {
  if (program.chunk) return checkChunk(effect, file);
  if (program.values.size() <= static_cast<std::size_t>(effect.parameterCount())) return;
  throw Failure(file + ": holds " + std::to_string(program.values.size()) + " parameters, and " +
                effect.plugin() + " has " + std::to_string(effect.parameterCount()));
}

// Into the current program. Older versions of an effect had fewer parameters: the others stay.
void give(Effect& effect, EffectAdapter& adapter, const FxProgram& program,
          const std::string& file) {
  if (program.chunk) {
    return adapter.takeChunk(program.chunk->bytes, Effect::ChunkOf::program, file);
  }
  for (std::size_t index = 0; index < program.values.size(); ++index)
    effect.setParameter(static_cast<int>(index), program.values[index]);
  effect.nameProgram(program.name);
}

std::vector<float> valuesOf(const Effect& effect) {
  std::vector<float> values;
  values.reserve(static_cast<std::size_t>(effect.parameterCount()));
  for (int index = 0; index < effect.parameterCount(); ++index)
    values.push_back(effect.parameter(index));
  return values;
}

FxProgram currentProgram(Effect& effect) {
  FxProgram program;
  program.name = effect.text(effGetProgramName);
  if (effect.hasChunk()) {
    program.chunk = FxChunk{effect.chunk(Effect::ChunkOf::program), effect.parameterCount()};
  } else {
    program.values = valuesOf(effect);
  }
  return program;
}

FxFile emptyFile(const Effect& effect, FxFile::Kind kind) {
  if (!effect.hasChunk() && effect.parameterCount() == 0)
    throw Failure(effect.plugin() + ": the effect has nothing that could be saved");
  FxFile file;
  file.kind = kind;
  file.effect = effect.record().uniqueID;
  file.effectVersion = effect.record().version;
  return file;
}

}  // namespace

void loadFxPreset(Effect& effect, EffectAdapter& adapter, const std::string& file) {
  const FxFile read = readFor(effect, file);
  if (read.kind == FxFile::Kind::bank) throw Failure(file + ": holds a bank (use --bank)");
  checkProgram(effect, read.programs.front(), file);
  give(effect, adapter, read.programs.front(), file);
}

void loadFxBank(Effect& effect, EffectAdapter& adapter, const std::string& file) {
  const FxFile read = readFor(effect, file);
  if (read.kind == FxFile::Kind::program)
    throw Failure(file + ": holds a single preset (use --preset)");
  if (read.chunk) {
    checkChunk(effect, file);
    return adapter.takeChunk(read.chunk->bytes, Effect::ChunkOf::bank, file);
  }
  const auto places = static_cast<std::size_t>(effect.record().numPrograms);
  if (read.programs.size() > places) {
    throw Failure(file + ": holds " + std::to_string(read.programs.size()) + " programs, and " +
                  effect.plugin() + " has " + std::to_string(places));
  }
  for (const FxProgram& program : read.programs) checkProgram(effect, program, file);
  for (std::size_t number = 0; number < read.programs.size(); ++number) {
    effect.selectProgram(static_cast<int>(number));
    give(effect, adapter, read.programs[number], file);
  }
  if (places != 0) effect.selectProgram(read.current);
  // Some effects forget what was changed when a program is selected.
  if (!read.programs.empty())
    give(effect, adapter, read.programs[static_cast<std::size_t>(read.current)], file);
}

std::vector<unsigned char> fxPresetOf(Effect& effect) {
  FxFile file = emptyFile(effect, FxFile::Kind::program);
  file.programs.push_back(currentProgram(effect));
  return file.bytes();
}

std::vector<unsigned char> fxBankOf(Effect& effect) {
  FxFile file = emptyFile(effect, FxFile::Kind::bank);
  const int programs = effect.record().numPrograms;
  if (!effect.hasChunk() && programs == 0)
    throw Failure(effect.plugin() + ": the effect has no bank (use --save-preset FILE.fxp)");
  const auto current = static_cast<int>(effect.dispatch(effGetProgram));
  file.current = std::clamp(current, 0, std::max(programs - 1, 0));
  if (effect.hasChunk()) {
    file.chunk = FxChunk{effect.chunk(), programs};
    return file.bytes();
  }
  // Some effects forget what was changed when another program is selected.
  const FxProgram kept = currentProgram(effect);
  for (int program = 0; program < programs; ++program) {
    if (program != file.current) effect.selectProgram(program);
    file.programs.push_back(program == file.current ? kept : currentProgram(effect));
  }
  effect.selectProgram(file.current);
  for (int index = 0; index < effect.parameterCount(); ++index) {
    const float value = kept.values[static_cast<std::size_t>(index)];
    if (effect.parameter(index) != value) effect.setParameter(index, value);
  }
  return file.bytes();
}
