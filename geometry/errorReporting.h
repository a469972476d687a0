#pragma once
// Reporting of failed host calls, shared by every plug-in source.
//
// A source that uses the macros below names, once at file scope, the stem its failures are
// reported under:
//     constexpr const char* kyErrorStem = "functions";
// A failure then prints "\nAPI error detected in <stem> at line <n>" and a line break to stderr,
// followed by the status's description through MStatus::perror(""). Nothing else is logged.

#include <maya/MStatus.h>

// Prints the error line for `status` when it is a failure. Returns true when it was one.
bool reportApiFailure(const MStatus& status, const char* stem, int line);

// Reports a failing `expr` and carries on.
#define KY_REPORT_FAILURE(expr) reportApiFailure((expr), kyErrorStem, __LINE__)

// Reports a failing `expr` and returns from the enclosing function with `expr` evaluated a second
// time. A failing step thus runs twice and the caller gets the status of the second run; keep the
// second evaluation, callers depend on it.
#define KY_RETURN_ON_FAILURE(expr)                                          \
    do {                                                                    \
        if (reportApiFailure((expr), kyErrorStem, __LINE__)) return (expr); \
    } while (0)
