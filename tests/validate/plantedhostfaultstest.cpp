// The faults in switching on and off, with damaged sound, on the audio thread and in the host.
#include <gtest/gtest.h>

#include "tests/validate/validatetest.h"

INSTANTIATE_TEST_SUITE_P(
    Switching, PlantedFaults,
    testing::Values(PlantedFault{"needsoffbeforeon",
                                 "sound goes through however hosts switch it on",
                                 "while: switching on what is on"},
                    PlantedFault{"keepsitsfirstsize",
                                 "it is switched off and on at random, with other rates and blocks",
                                 "crashes (Aborted) while: playing"},
                    PlantedFault{"keepsitssizewhileon",
                                 "rate and block size may be told while it is on",
                                 "were told while on"},
                    PlantedFault{"needsswitchingon", "sound goes through without switching on",
                                 "without having been switched on (float)"}),
    nameOfFault);

INSTANTIATE_TEST_SUITE_P(
    DamagedSound, PlantedFaults,
    testing::Values(PlantedFault{"dividesbytherest", "full-scale sound gives numbers",
                                 "is infinite in a constant of 1 (float)"},
                    PlantedFault{"growsinsilence", "silence does not grow",
                                 "grows by itself in silence"},
                    PlantedFault{"dividesbysamples", "denormal numbers give numbers",
                                 "is infinite in denormal numbers (float)"},
                    PlantedFault{"growsexponentially", "sound far beyond full scale gives numbers",
                                 "is infinite in a constant of 10000 (float)"},
                    PlantedFault{"needsnumbers", "samples that are no numbers do no harm",
                                 "while: playing nan among noise (float)"},
                    PlantedFault{"feedsbackforever",
                                 "switching off and on heals from samples that are no numbers",
                                 "is no number after nan, switched off and on (float)"},
                    PlantedFault{"feedsback", "silence heals from samples that are no numbers",
                                 "is no number after nan and 5 s of silence (float)"}),
    nameOfFault);

INSTANTIATE_TEST_SUITE_P(
    Realtime, PlantedFaults,
    testing::Values(
        PlantedFault{"allocatesinprocess", "processing asks for no memory",
                     "asks for memory while processing block 1 of 64 frames (float), first in",
                     false},
        PlantedFault{"newinprocessdouble", "processing asks for no memory",
                     "(double), first in newinprocessdouble.so+", false},
        PlantedFault{"allocateswhenmoved",
                     "moving a parameter between two blocks asks for no memory",
                     "asks for memory when parameter", false},
        PlantedFault{"locksinprocess", "processing takes no lock",
                     "takes a lock while processing block 1 of 64 frames (float)", false},
        PlantedFault{"neverhasallitsmemory", "processing touches no new memory after a minute",
                     "new pages of memory in ten seconds, after 60 s of sound"},
        PlantedFault{"asksthesystem", "processing calls nothing of the system",
                     "calls the system while processing: sched_yield"},
        PlantedFault{"asksthesystemindouble",
                     "processing in double precision calls nothing of the system",
                     "calls the system while processing: umask"}),
    nameOfFault);
