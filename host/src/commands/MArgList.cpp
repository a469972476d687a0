#include <maya/MArgList.h>
#include <maya/MStringArray.h>

#include <climits>
#include <ostream>

#include "commands/ArgValue.h"
#include "commands/SyntaxData.h"

namespace {

void report(MStatus* status, MStatus value) {
    if (status) *status = value;
}

// Reads the argument at `index` with `read`; `fallback` and kInvalidParameter when it cannot.
template <class T, class Read>
T readArg(const MArgList& list, unsigned int index, MStatus* status, T fallback, Read read) {
    const auto& args = list.hostArgs();
    T value = fallback;
    const bool ok = index < args.size() && read(args[index], value);
    report(status, ok ? MS::kSuccess : MS::kInvalidParameter);
    return ok ? value : fallback;
}

}  // namespace

const unsigned int MArgList::kInvalidArgIndex = UINT_MAX;

MArgList::MArgList() = default;
MArgList::MArgList(const MArgList& other) = default;
MArgList::MArgList(std::vector<mhost::ArgValue> args) : fArgs(std::move(args)) {}
MArgList::~MArgList() = default;
MArgList& MArgList::operator=(const MArgList& other) = default;

unsigned int MArgList::length(MStatus* ReturnStatus) const {
    report(ReturnStatus, MS::kSuccess);
    return static_cast<unsigned int>(fArgs.size());
}

bool MArgList::asBool(unsigned int index, MStatus* ret) const {
    return readArg(*this, index, ret, false, [](const mhost::ArgValue& a, bool& v) { return a.toBool(v); });
}

int MArgList::asInt(unsigned int index, MStatus* ret) const {
    return readArg(*this, index, ret, 0, [](const mhost::ArgValue& a, int& v) { return a.toInt(v); });
}

double MArgList::asDouble(unsigned int index, MStatus* ret) const {
    return readArg(*this, index, ret, 0.0, [](const mhost::ArgValue& a, double& v) { return a.toDouble(v); });
}

MString MArgList::asString(unsigned int index, MStatus* ret) const {
    return readArg(*this, index, ret, MString(), [](const mhost::ArgValue& a, MString& v) {
        v = a.text().c_str();
        return true;
    });
}

const MStringArray MArgList::asStringArray(unsigned int& index, MStatus* ReturnStatus) const {
    MStatus status;
    const int count = asInt(index, &status);
    MStringArray strings;
    if (!status || count < 0 || index + 1 + static_cast<size_t>(count) > fArgs.size()) {
        report(ReturnStatus, MS::kInvalidParameter);
        return strings;
    }
    for (int i = 0; i < count; ++i) strings.append(fArgs[index + 1 + i].text().c_str());
    index += 1 + count;
    report(ReturnStatus, MS::kSuccess);
    return strings;
}

unsigned int MArgList::flagIndex(const char* shortFlag, const char* longFlag) const {
    for (size_t i = 0; i < fArgs.size(); ++i) {
        if (!fArgs[i].isFlag()) continue;
        const std::string name = fArgs[i].flagName();
        if ((shortFlag && name == mhost::withoutDash(shortFlag)) ||
            (longFlag && name == mhost::withoutDash(longFlag)))
            return static_cast<unsigned int>(i);
    }
    return kInvalidArgIndex;
}

MStatus MArgList::addArg(bool arg) {
    fArgs.push_back(mhost::ArgValue::fromBool(arg));
    return MS::kSuccess;
}

MStatus MArgList::addArg(int arg) {
    fArgs.push_back(mhost::ArgValue::fromInt(arg));
    return MS::kSuccess;
}

MStatus MArgList::addArg(double arg) {
    fArgs.push_back(mhost::ArgValue::fromDouble(arg));
    return MS::kSuccess;
}

MStatus MArgList::addArg(const MString& arg) {
    fArgs.push_back(mhost::ArgValue::fromString(arg.asChar()));
    return MS::kSuccess;
}

MStatus MArgList::get(unsigned int index, bool& ret) const {
    MStatus status;
    const bool value = asBool(index, &status);
    if (status) ret = value;
    return status;
}

MStatus MArgList::get(unsigned int index, int& ret) const {
    MStatus status;
    const int value = asInt(index, &status);
    if (status) ret = value;
    return status;
}

MStatus MArgList::get(unsigned int index, double& ret) const {
    MStatus status;
    const double value = asDouble(index, &status);
    if (status) ret = value;
    return status;
}

MStatus MArgList::get(unsigned int index, MString& ret) const {
    MStatus status;
    const MString value = asString(index, &status);
    if (status) ret = value;
    return status;
}

MStatus MArgList::get(unsigned int& index, MStringArray& ret) const {
    MStatus status;
    const MStringArray value = asStringArray(index, &status);
    if (status) ret = value;
    return status;
}

std::ostream& operator<<(std::ostream& os, const MArgList& args) {
    for (size_t i = 0; i < args.fArgs.size(); ++i) os << (i ? " " : "") << args.fArgs[i].text();
    return os;
}

const char* MArgList::className() { return "MArgList"; }
