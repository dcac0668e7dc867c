// The names of what a sound file can be.
#include "host/sound/formattext.h"

#include <sndfile.h>

namespace {

// The library's name of a type or subtype; empty where it knows none.
std::string libName(int format) {
  SF_FORMAT_INFO info{format, nullptr, nullptr};
  const bool known = sf_command(nullptr, SFC_GET_FORMAT_INFO, &info, sizeof info) == 0;
  return known && info.name != nullptr ? info.name : "";
}

}  // namespace

// The library explains its names in brackets: "WAV (Microsoft)".
std::string fileTypeText(int libFormat) {
  switch (libFormat & SF_FORMAT_TYPEMASK) {
    case SF_FORMAT_WAVEX:  // the same to everyone but the header's reader
      return "WAV";
    case SF_FORMAT_OGG:
      return "Ogg";
    case SF_FORMAT_MPEG:
      return "MPEG";
    default:
      break;
  }
  const std::string name = libName(libFormat & SF_FORMAT_TYPEMASK);
  return name.substr(0, name.find(" ("));
}

std::string encodingText(int libFormat) {
  switch (libFormat & SF_FORMAT_SUBMASK) {
    case SF_FORMAT_PCM_S8:
    case SF_FORMAT_PCM_U8:
      return "8-bit";
    case SF_FORMAT_PCM_16:
      return "16-bit";
    case SF_FORMAT_PCM_24:
      return "24-bit";
    case SF_FORMAT_PCM_32:
      return "32-bit";
    case SF_FORMAT_FLOAT:
      return "float";
    case SF_FORMAT_DOUBLE:
      return "double";
    default:
      return libName(libFormat & SF_FORMAT_SUBMASK);
  }
}
