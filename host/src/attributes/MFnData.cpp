#include <maya/MFnData.h>

#include "core/FunctionSet.h"

MHOST_DEFINE_MFN(MFnData, MFn::kData)
