#pragma once
// Every call the host makes into a plug-in's context or context command goes through callContext:
// it is where plug-in code meets the host's boundary rules.

#include <maya/MStatus.h>

#include <functional>
#include <string>

namespace mhost {

// Runs `call`. An exception it throws is logged as "<what>: <reason>" and gives kFailure. When the
// outermost of nested calls returns, the tool commands made during it and not finalised are deleted.
MStatus callContext(const std::string& what, const std::function<MStatus()>& call);

}  // namespace mhost
