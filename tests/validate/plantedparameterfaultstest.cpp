// Faults of an effect's parameters and threads, and the checks that have to find them.
#include "tests/validate/validatetest.h"

namespace {

constexpr const char* kFresh = "fresh instances have the same parameters";
constexpr const char* kDamaged = "parameter values that are none are borne";

INSTANTIATE_TEST_SUITE_P(
    Parameters, PlantedFaults,
    testing::Values(PlantedFault{"otherdefaults", kFresh, "parameter 1 is 0.25 at first, and 0.75"},
                    PlantedFault{"beyondone", kFresh, "parameter 0 is 1.5 at first"},
                    PlantedFault{"drifts", "a parameter stays when it is set to what it is",
                                 "and when it is set to that, "},
                    PlantedFault{"keepsnan", kDamaged, "parameter 0, set to nan, is nan"},
                    PlantedFault{
                        "poisonedbyinfinity", kDamaged,
                        "set to -inf and back to 0.5, leaves samples that are no numbers"}),
    nameOfFault);

INSTANTIATE_TEST_SUITE_P(
    Threads, PlantedFaults,
    testing::Values(PlantedFault{"onethreadonly", "parameters are set while it processes",
                                 "crashes"},
                    PlantedFault{"sharesitsdelay", "instances process on threads of their own",
                                 "sounds otherwise when 4 instances process in parallel"},
                    PlantedFault{"aloneintheworld",
                                 "an instance is made and closed while another one processes",
                                 "crashes (Aborted) while: making and closing an instance"}),
    nameOfFault);

}  // namespace

// A value that is no number is another check's.
TEST(ParameterThatIsNoNumber, HasNotMovedWhereItIsStillNone) {
  for (const char* check :
       {"several instances live side by side", "parameters that it does not have are borne"}) {
    const ValidatorRun run = validateBroken("showsnonumber", check);
    EXPECT_EQ(run.status, 0) << run.text;
    EXPECT_NE(run.text.find(std::string("pass      ") + check), std::string::npos) << run.text;
  }
}
