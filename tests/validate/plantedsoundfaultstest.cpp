// The faults in the sound, and in what is done with buffers and pins.
#include <gtest/gtest.h>

#include "tests/validate/validatetest.h"

INSTANTIATE_TEST_SUITE_P(
    Sound, PlantedFaults,
    testing::Values(
        PlantedFault{"nonumberat96k", "sound goes through at usual rates and block sizes",
                     "output 2, frame 63 is no number in blocks of 64 at 96000 Hz (float)"},
        PlantedFault{"leaveslastframeout", "sound goes through in double precision",
                     "output 1, frame 63 is not written in blocks of 64 at 44100 Hz (double)"},
        PlantedFault{"playswholeblocksonly", "blocks may have fewer frames than announced",
                     "is written in a block of"},
        PlantedFault{"infiniteat768k",
                     "sound goes through at any rate from 8 to 768 kHz in blocks of 1 to 16384",
                     "output 1, frame 0 is infinite in blocks of 1 at 768000 Hz (float)"},
        PlantedFault{"writeswithoutframes", "a block may have no frames",
                     "a block of no frames writes to the outputs (float)"},
        PlantedFault{"trustsblocksize", "blocks may have more frames than announced",
                     "while: playing 2 frames where up to 1 were announced (float)"},
        PlantedFault{"needsarrays", "a block of no frames needs no arrays",
                     "while: playing no frames without arrays (float)"},
        PlantedFault{"breakswhenmoved", "parameters may move in front of every 32 frames",
                     "is no number while parameters move (float)"},
        PlantedFault{"sharesitsmemory", "two effects do not hear each other",
                     "beside another effect of the same plug-in"},
        PlantedFault{"flickerswithblocks", "blocks of any size give the same sound",
                     "frame by frame, and"},
        PlantedFault{"roundswithblocks", "blocks of any size give the same bits",
                     "output 2, frame 0 is"},
        PlantedFault{"remembersallmovements", "the same movements give the same bits",
                     "when the same parameters move a second time"}),
    nameOfFault);

INSTANTIATE_TEST_SUITE_P(
    Buffers, PlantedFaults,
    testing::Values(
        PlantedFault{"clearsoutputsfirst", "sound is the same in place",
                     "output 1, frame 0 is 0 in place"},
        PlantedFault{"workspinbypin", "sound is the same with each output in another input",
                     "with each output in another input's buffer"},
        PlantedFault{"worksinsharedinputs", "inputs may share one buffer",
                     "with one buffer for all inputs"},
        PlantedFault{"worksininputs", "inputs are left as they are",
                     "frame 0 of input 1 is changed, with outputs of their own (float)"},
        PlantedFault{"needstwooutputs", "outputs may share one buffer",
                     "while: playing with one buffer for all outputs (float)"},
        PlantedFault{"writesaframetoomany", "nothing beside the buffers is written",
                     "frame 1 of output 2 is written in a block of 1 (double)"},
        PlantedFault{"needsalignment", "buffers may lie at any address",
                     "while: playing 1 frames, 4 bytes past a multiple of 64 (float)"},
        PlantedFault{"readsaframetoomany", "nothing beyond the buffers is read",
                     "while: playing 1 frames in buffers after which there is no memory (float)"},
        PlantedFault{"silentwhenunconnected", "pins that are connected late sound",
                     "is silent where no pin was connected"},
        PlantedFault{"needsconnections", "unconnected pins do no harm",
                     "while: playing with no pin connected (float)"},
        PlantedFault{"takesmonobadly", "an accepted arrangement of fewer channels plays",
                     "is no number as 1 in, 2 out (float)"},
        PlantedFault{"readstwopointers",
                     "an accepted arrangement needs no more pointers than channels",
                     "while: playing 1 in, 2 out by tables of so many pointers (float)"}),
    nameOfFault);

TEST(Sound, IsNotComparedWhereItHasNotTheSameOutputsEachTime) {
  const ValidatorRun run =
      validateBroken("changesitsoutputs", "blocks of any size give the same bits");
  EXPECT_EQ(run.status, 0) << run.text;
  EXPECT_NE(run.text.find("two effects make different sound of the same"), std::string::npos)
      << run.text;
}
