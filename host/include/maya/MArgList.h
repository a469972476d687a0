#pragma once
// MArgList: the arguments of one command invocation, in order, each a boolean, an integer, a real or
// a string. Flags are strings that begin with '-' and are not numbers, so a quoted "-x" reads as a
// flag as well. Numbers convert into each other (reals to integers by truncation); a string converts
// to a number only when its whole text is one (or true/false, on/off, yes/no).

#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypes.h>

#include <iosfwd>
#include <vector>

class MStringArray;

namespace mhost {
class ArgValue;
}

class OPENMAYA_EXPORT MArgList {
public:
    // What flagIndex returns for a flag that is absent: UINT_MAX.
    static const unsigned int kInvalidArgIndex;

    MArgList();
    MArgList(const MArgList& other);
    ~MArgList();
    unsigned int length(MStatus* ReturnStatus = nullptr) const;
    // Each reads the argument at `index`; kInvalidParameter (and 0, false or "") when the index is out
    // of range or the argument has no such reading. Any argument reads as a string.
    bool asBool(unsigned int index, MStatus* ret = nullptr) const;
    int asInt(unsigned int index, MStatus* ret = nullptr) const;
    double asDouble(unsigned int index, MStatus* ret = nullptr) const;
    MString asString(unsigned int index, MStatus* ret = nullptr) const;
    // Reads a count n at `index` followed by n strings, and moves `index` past them.
    const MStringArray asStringArray(unsigned int& index, MStatus* ReturnStatus = nullptr) const;
    MArgList& operator=(const MArgList& other);
    // Position of the first argument that is the flag, by short or long name (dash optional).
    unsigned int flagIndex(const char* shortFlag, const char* longFlag = nullptr) const;
    MStatus addArg(bool arg);
    MStatus addArg(int arg);
    MStatus addArg(double arg);
    MStatus addArg(const MString& arg);
    // The get forms read as the as* forms do, return their status and leave `ret` alone on failure.
    MStatus get(unsigned int index, bool& ret) const;
    MStatus get(unsigned int index, int& ret) const;
    MStatus get(unsigned int index, double& ret) const;
    MStatus get(unsigned int index, MString& ret) const;
    MStatus get(unsigned int& index, MStringArray& ret) const;
    // Writes the arguments' texts separated by blanks.
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MArgList& args);
    static const char* className();

    // Host side, not part of Maya's API: the arguments as the command language holds them.
    explicit MArgList(std::vector<mhost::ArgValue> args);
    const std::vector<mhost::ArgValue>& hostArgs() const { return fArgs; }

private:
    std::vector<mhost::ArgValue> fArgs;
};
