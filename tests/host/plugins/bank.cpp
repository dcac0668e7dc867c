// Keeps three programs, each with a name and two values, which stay when another is selected. With
// WIDEN_TEST_CHUNKS it keeps them in chunks: "P" and the values of one, "B", the current program's
// number and the values of all.
#include <array>
#include <cstdlib>
#include <string>

#include "tests/host/plugins/testeffect.h"

class Bank : public TestEffect {
 public:
  explicit Bank(audioMasterCallback callback) : TestEffect(callback) {
    record.numPrograms = 3;
    record.numParams = 2;
    record.version = 1234;
    record.uniqueID = vstFourChars('B', 'a', 'n', 'k');
    if (std::getenv("WIDEN_TEST_CHUNKS") != nullptr) record.flags |= effFlagsProgramChunks;
  }

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float) override {
    static constexpr const char* kParameters[] = {"Depth", "Rate"};
    switch (opcode) {
      case effSetProgram:
        current = static_cast<std::size_t>(value);
        return 0;
      case effGetProgram:
        return static_cast<VstIntPtr>(current);
      case effSetProgramName:
        programs[current].name = static_cast<const char*>(ptr);
        return 0;
      case effGetProgramName:
        give(ptr, programs[current].name.c_str());
        return 1;
      case effGetParamName:
        give(ptr, kParameters[index]);
        return 1;
      case effGetChunk:
        makeChunk(index != 0);
        *static_cast<void**>(ptr) = chunk.data();
        return static_cast<VstIntPtr>(chunk.size());
      case effSetChunk:
        return takeChunk({static_cast<const char*>(ptr), static_cast<std::size_t>(value)},
                         index != 0);
      default:
        return 0;
    }
  }
  void setParameter(VstInt32 index, float value) override { valueAt(index) = value; }
  float getParameter(VstInt32 index) override { return valueAt(index); }

 private:
  using Values = std::array<float, 2>;
  struct Program {
    std::string name;
    Values values;
  };

  float& valueAt(VstInt32 index) {
    return programs[current].values[static_cast<std::size_t>(index)];
  }

  void makeChunk(bool ofProgram) {
    chunk = ofProgram ? "P" : std::string("B") + static_cast<char>(current);
    const auto add = [this](const Values& values) {
      chunk.append(reinterpret_cast<const char*>(values.data()), sizeof values);
    };
    if (ofProgram) return add(programs[current].values);
    for (const Program& program : programs) add(program.values);
  }

  VstIntPtr takeChunk(const std::string& bytes, bool ofProgram) {
    const std::size_t head = ofProgram ? 1 : 2;
    if (bytes.size() != head + sizeof(Values) * (ofProgram ? 1 : 3)) return -1;
    if (bytes[0] != (ofProgram ? 'P' : 'B')) return -1;
    if (ofProgram) {
      std::memcpy(programs[current].values.data(), &bytes[1], sizeof(Values));
      return 1;
    }
    current = static_cast<unsigned char>(bytes[1]);
    for (std::size_t program = 0; program < 3; ++program) {
      std::memcpy(programs[program].values.data(), &bytes[2 + program * sizeof(Values)],
                  sizeof(Values));
    }
    return 1;
  }

  std::array<Program, 3> programs{
      {{"One", {0.125F, 0.25F}}, {"Two", {0.375F, 0.5F}}, {"Three", {0.625F, 0.75F}}}};
  std::size_t current = 0;
  std::string chunk;
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new Bank(callback))->made();
}
