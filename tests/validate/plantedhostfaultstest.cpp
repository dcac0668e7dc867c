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
                     "new pages of memory in ten seconds, after 60 s of sound", false},
        PlantedFault{"asksthesystem", "processing calls nothing of the system",
                     "calls the system while processing: sched_yield", false},
        PlantedFault{"asksthesystemwhenmoved", "processing calls nothing of the system",
                     "moves between two blocks: sched_yield", false},
        PlantedFault{"asksthesystemindouble",
                     "processing in double precision calls nothing of the system",
                     "calls the system while processing: umask", false}),
    nameOfFault);

INSTANTIATE_TEST_SUITE_P(
    Surroundings, PlantedFaults,
    testing::Values(
        PlantedFault{"flushesdenormals", "the host calculates as before",
                     "after processing, the host calculates with denormal numbers flushed to zero"},
        PlantedFault{"roundstonearest", "a host that rounds otherwise goes on doing so",
                     "after processing, the host calculates with another rounding"},
        PlantedFault{"keepsdenormals", "a host that flushes denormal numbers goes on doing so",
                     "after processing, the host calculates with denormal numbers kept"},
        PlantedFault{"flushesfromloadingon", "loading leaves denormal numbers as they are",
                     "after loading, the host calculates with denormal numbers flushed to zero"},
        PlantedFault{"ignoresbrokenpipes", "the host process is left as it was",
                     "after making an effect, the host has the handler of signal 13"},
        PlantedFault{"choosesthelocale", "the host process is left as it was",
                     "after making an effect, the host has the locale: " VALIDATE_LOCALE},
        PlantedFault{"changestheenvironment", "the host process is left as it was",
                     "after making an effect, the host has environment: SOUND_WAS_HERE=1"},
        PlantedFault{"prints", "nothing is written to standard output",
                     "writes to standard output: \"Hello, host\""},
        PlantedFault{"calculatesindenormals",
                     "sound is the same where denormal numbers are flushed",
                     "where denormal numbers are flushed, and"},
        PlantedFault{"displaysdenormals", "texts are the same where denormal numbers are flushed",
                     "says \"0\" where denormal numbers are flushed, and \"50\" otherwise"},
        PlantedFault{"savesacommaabroad", "a state is the same with a decimal comma",
                     "with a decimal comma, and"},
        PlantedFault{"displaysacommaabroad", "texts are the same with a decimal comma",
                     "says \"0,50\" where numbers have a decimal comma, and \"0.50\" otherwise"},
        PlantedFault{"displaysasthehostrounds", "texts are the same however the host rounds",
                     "where the host rounds down, and"}),
    nameOfFault);
