// Faults of an effect's texts and answers, and the checks that have to find them.
#include "tests/validate/validatetest.h"

namespace {

constexpr const char* kNames = "names of effect, vendor and product keep to their sizes";
constexpr const char* kParameterTexts = "parameter texts keep to their size";
constexpr const char* kPins = "pins are described within their records";

INSTANTIATE_TEST_SUITE_P(
    Texts, PlantedFaults,
    testing::Values(
        PlantedFault{"longname", kNames, "its name writes 82 bytes where hosts give 32"},
        PlantedFault{"writesbeforethename", kNames, "in front of the host's buffer"},
        PlantedFault{"longprogramname", "program names keep to their size",
                     "the name of program 0 writes 82 bytes"},
        PlantedFault{"longdisplay", kParameterTexts, "the display of parameter 0 writes 20 bytes"},
        PlantedFault{"endlessdisplay", kParameterTexts,
                     "crashes (Segmentation fault) while: asking for "},
        PlantedFault{"endlessdisplayinhosts", "it bears a host that knows its version only",
                     "while: getting, setting and showing parameter 0"},
        PlantedFault{"labelwithoutend", kParameterTexts, "no zero at its end: \"per cent\""},
        PlantedFault{"changesitsname", "texts are the same when asked for again",
                     "the name of parameter 0 is \"Bain\" and \"Cain\""},
        PlantedFault{"latinname", "texts can be printed", "is no UTF-8: \"Gr\\xf6\\xdfe\""},
        PlantedFault{"nameoftwolines", "texts can be printed", "control characters"},
        PlantedFault{"samenames", "parameters are told apart by their names",
                     "parameters 0 and 1 have the same name, \"Gain\""},
        PlantedFault{"namesnothing", "parameters are told apart by their names",
                     "parameter 0 has no name"}),
    nameOfFault);

INSTANTIATE_TEST_SUITE_P(
    Answers, PlantedFaults,
    testing::Values(
        PlantedFault{"doublewithoutentry", "its record fits together", "double precision"},
        PlantedFault{"categoryunknown", "its record fits together", "its category is 99"},
        PlantedFault{"keepsitsprogram", "programs are selected",
                     "program 0 is selected after program 2 was asked for"},
        PlantedFault{"listsothernames", "programs are selected",
                     "program 2 is listed as \"Other 2\" and named \"Program 2\""},
        PlantedFault{"renamesotherwise", "a program is renamed, or keeps its name",
                     "called \"Something else\""},
        PlantedFault{"longpin", kPins, "writes 128 bytes about output 0, where hosts give 80"},
        PlantedFault{"pinwithoutend", kPins, "the label of input 0 has no zero at its end"},
        PlantedFault{"longproperties", "parameters are described within their records",
                     "writes more than a record about parameter 0"},
        PlantedFault{"answersunknown", "requests that nobody knows are answered with 0",
                     "answers 1 to opcode 80"},
        PlantedFault{"claimseverything", "abilities that nobody knows are not claimed",
                     "says that it can do \"flyToTheMoon\""}),
    nameOfFault);

INSTANTIATE_TEST_SUITE_P(
    Indices, PlantedFaults,
    testing::Values(PlantedFault{"takesanyprogram", "programs that it does not have are borne",
                                 "program -1 is selected after program -1 of 3"},
                    PlantedFault{"setsanyparameter", "parameters that it does not have are borne",
                                 "parameter 0 went from 0.5 to"},
                    PlantedFault{"readsanypin", "pins that it does not have are borne",
                                 "crashes (Aborted) while: asking for input -1 of 2"}),
    nameOfFault);

}  // namespace
