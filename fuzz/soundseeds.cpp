// Seeds of sound files: a few frames in types that the library writes, the same at all times.
#include <sndfile.h>

#include <cstdio>

#include "fuzz/memoryfile.h"
#include "fuzz/oggpages.h"
#include "fuzz/seeds.h"

using presetimage::Bytes;

namespace {

struct Type {
  const char* name;
  int format;  // the library's
};
constexpr Type kTypes[] = {
    {"wav-pcm16", SF_FORMAT_WAV | SF_FORMAT_PCM_16},
    {"wav-float", SF_FORMAT_WAVEX | SF_FORMAT_FLOAT},
    {"wav-adpcm", SF_FORMAT_WAV | SF_FORMAT_IMA_ADPCM},
    {"rifx", SF_FORMAT_WAV | SF_FORMAT_PCM_24 | SF_ENDIAN_BIG},
    {"rf64", SF_FORMAT_RF64 | SF_FORMAT_PCM_16},
    {"w64", SF_FORMAT_W64 | SF_FORMAT_PCM_16},
    {"aiff", SF_FORMAT_AIFF | SF_FORMAT_PCM_24},
    {"aifc-float", SF_FORMAT_AIFF | SF_FORMAT_FLOAT},
    {"8svx", SF_FORMAT_SVX | SF_FORMAT_PCM_S8},
    {"au", SF_FORMAT_AU | SF_FORMAT_PCM_16},
    {"au-swapped", SF_FORMAT_AU | SF_FORMAT_ULAW | SF_ENDIAN_LITTLE},
    {"caf", SF_FORMAT_CAF | SF_FORMAT_DOUBLE},
    {"flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16},
    {"ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS},
    {"voc", SF_FORMAT_VOC | SF_FORMAT_PCM_U8},
    {"paf", SF_FORMAT_PAF | SF_FORMAT_PCM_24},
    {"nist", SF_FORMAT_NIST | SF_FORMAT_PCM_16},
    {"ircam", SF_FORMAT_IRCAM | SF_FORMAT_PCM_16},
    {"avr", SF_FORMAT_AVR | SF_FORMAT_PCM_16},
};

// Empty where the library does not write it.
Bytes soundOf(int format, int channels) {
  fuzz::MemoryFile file;
  SF_INFO info{};
  info.samplerate = 44100;  // Hz
  info.channels = channels;
  info.format = format;
  SNDFILE* sound = sf_open_fd(file.descriptor(), SFM_WRITE, &info, SF_FALSE);
  if (sound == nullptr) return {};
  sf_command(sound, SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);  // which holds the time of day
  sf_set_string(sound, SF_STR_TITLE, "title");
  double samples[64];
  int step = 0;
  for (double& sample : samples) sample = static_cast<double>(++step % 16 - 8) / 8.0;
  sf_writef_double(sound, samples, 64 / channels);
  sf_close(sound);
  return file.content();
}

}  // namespace

void fuzz::addSoundSeeds(Corpus& corpus) {
  for (const Type& type : kTypes) {
    for (int channels = 1; channels <= 2; ++channels) {
      Bytes sound = soundOf(type.format, channels);
      if (sound.empty()) continue;
      setStreamNumber(sound, 1);
      putPageSumsRight(sound);
      // the page's sums are put right, 64 frames a block
      const Bytes steering = {static_cast<unsigned char>(channels == 1 ? 1 : 7), 63};
      sound.insert(sound.begin(), steering.begin(), steering.end());
      corpus.add("soundfile", type.name + std::string(channels == 1 ? "-mono" : "-stereo"), sound);
    }
  }
}
