// An open sound file of the library's, closed when its owner goes.
#pragma once

#include <sndfile.h>

#include <memory>

struct CloseSoundFile {
  void operator()(SNDFILE* open) const { sf_close(open); }
};
using SoundFileHandle = std::unique_ptr<SNDFILE, CloseSoundFile>;
