#include "geometry/errorReporting.h"

#include <iostream>

bool reportApiFailure(const MStatus& status, const char* stem, int line) {
    if (status == MS::kSuccess) return false;
    std::cerr << "\nAPI error detected in " << stem << " at line " << line << std::endl;
    status.perror("");
    return true;
}
