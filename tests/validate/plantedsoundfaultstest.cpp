// The faults in the sound, on the audio thread and in the host's surroundings.
#include <gtest/gtest.h>

#include "tests/validate/validatetest.h"

INSTANTIATE_TEST_SUITE_P(
    Realtime, PlantedFaults,
    testing::Values(PlantedFault{"allocatesinprocess", "processing asks for no memory",
                                 "asks for memory while processing block 1 of 64 frames (float)",
                                 false},
                    PlantedFault{"newinprocessdouble", "processing asks for no memory",
                                 "1 times, first in newinprocessdouble.so", false},
                    PlantedFault{"allocateswhenmoved",
                                 "moving a parameter between two blocks asks for no memory",
                                 "asks for memory when parameter", false},
                    PlantedFault{"locksinprocess", "processing takes no lock",
                                 "takes a lock while processing block 1 of 64 frames (float)",
                                 false}),
    nameOfFault);
