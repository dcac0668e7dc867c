// How long a sound file says that it is.
#include "host/sound/framecount.h"

#include <sndfile.h>

#include <system_error>

#include "host/base/standardstreams.h"
#include "host/sound/soundfilehandle.h"

std::int64_t statedFrames(const std::filesystem::path& file) {
  std::error_code error;
  if (isStandardStream(file)) return 0;
  if (!std::filesystem::is_regular_file(file, error)) return 0;  // a pipe can be read once
  SF_INFO info{};
  const SoundFileHandle opened(sf_open(file.c_str(), SFM_READ, &info));
  return opened == nullptr || info.frames == SF_COUNT_MAX ? 0 : info.frames;
}
