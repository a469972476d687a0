// The error line of a failing host call, and the reporting macros' evaluation rules.

#include <gtest/gtest.h>

#include <string>

#include "geometry/errorReporting.h"

namespace {

constexpr const char* kyErrorStem = "errorsTest";

// A step that fails its first `failures` runs, counting every run.
struct CountingStep {
    int failures = 0;
    int runs = 0;
    MStatus operator()() {
        return ++runs <= failures ? MStatus(MS::kInvalidParameter) : MStatus(MS::kSuccess);
    }
};

MStatus checked(CountingStep& step) {
    KY_RETURN_ON_FAILURE(step());
    return MS::kUnknownParameter;  // reached only when the step succeeded
}

const int kReportLine = __LINE__ + 1;
void reportOnly(const MStatus& status) { KY_REPORT_FAILURE(status); }

}  // namespace

TEST(ErrorReporting, FailingStepRunsTwiceAndTheSecondStatusIsReturned) {
    testing::internal::CaptureStderr();
    CountingStep alwaysFails{9}, failsOnce{1}, succeeds{0};
    EXPECT_EQ(checked(alwaysFails), MS::kInvalidParameter);
    EXPECT_EQ(alwaysFails.runs, 2);
    EXPECT_EQ(checked(failsOnce), MS::kSuccess) << "the second run's status is the result";
    EXPECT_EQ(checked(succeeds), MS::kUnknownParameter);
    EXPECT_EQ(succeeds.runs, 1);
    testing::internal::GetCapturedStderr();
}

TEST(ErrorReporting, ErrorLineNamesTheStemAndLine) {
    testing::internal::CaptureStderr();
    reportOnly(MS::kInvalidParameter);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "\nAPI error detected in errorsTest at line " +
                                                          std::to_string(kReportLine) +
                                                          "\n(kInvalidParameter): Invalid parameter\n");
    testing::internal::CaptureStderr();
    reportOnly(MS::kSuccess);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}
