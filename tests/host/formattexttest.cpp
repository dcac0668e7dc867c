// The names of what a sound file can be.
#include "host/sound/formattext.h"

#include <gtest/gtest.h>
#include <sndfile.h>

TEST(FormatText, IsThatOfTheOutputsWhereThereIsSuch) {
  EXPECT_EQ(fileTypeText(SF_FORMAT_WAV | SF_FORMAT_PCM_16), "WAV");
  EXPECT_EQ(fileTypeText(SF_FORMAT_WAVEX | SF_FORMAT_PCM_16), "WAV");
  EXPECT_EQ(fileTypeText(SF_FORMAT_AIFF | SF_FORMAT_PCM_16), "AIFF");
  EXPECT_EQ(fileTypeText(SF_FORMAT_FLAC | SF_FORMAT_PCM_16), "FLAC");
  EXPECT_EQ(encodingText(SF_FORMAT_WAV | SF_FORMAT_PCM_U8), "8-bit");
  EXPECT_EQ(encodingText(SF_FORMAT_FLAC | SF_FORMAT_PCM_S8), "8-bit");
  EXPECT_EQ(encodingText(SF_FORMAT_WAV | SF_FORMAT_PCM_16), "16-bit");
  EXPECT_EQ(encodingText(SF_FORMAT_WAV | SF_FORMAT_PCM_24), "24-bit");
  EXPECT_EQ(encodingText(SF_FORMAT_WAV | SF_FORMAT_PCM_32), "32-bit");
  EXPECT_EQ(encodingText(SF_FORMAT_WAV | SF_FORMAT_FLOAT), "float");
  EXPECT_EQ(encodingText(SF_FORMAT_WAV | SF_FORMAT_DOUBLE), "double");
}

TEST(FormatText, IsTheLibrarysForTheRest) {
  EXPECT_EQ(fileTypeText(SF_FORMAT_OGG | SF_FORMAT_VORBIS), "Ogg");
  EXPECT_EQ(encodingText(SF_FORMAT_OGG | SF_FORMAT_VORBIS), "Vorbis");
  EXPECT_EQ(fileTypeText(SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III), "MPEG");
  EXPECT_EQ(encodingText(SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III), "MPEG Layer III");
  EXPECT_EQ(fileTypeText(SF_FORMAT_CAF | SF_FORMAT_ULAW), "CAF");
  EXPECT_EQ(encodingText(SF_FORMAT_CAF | SF_FORMAT_ULAW), "U-Law");
  EXPECT_EQ(fileTypeText(0x7F0000), "");
}
