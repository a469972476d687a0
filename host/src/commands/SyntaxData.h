#pragma once
// What an MSyntax describes: flags with their argument types, command arguments and objects.

#include <maya/MSyntax.h>

#include <climits>
#include <string>
#include <vector>

namespace mhost {

struct FlagSpec {
    std::string shortName;  // without the dash
    std::string longName;   // without the dash
    std::vector<MSyntax::MArgType> argTypes;
    bool multiUse = false;
};

struct SyntaxData {
    std::vector<FlagSpec> flags;
    std::vector<MSyntax::MArgType> commandArgs;
    MSyntax::MObjectFormat objectFormat = MSyntax::kNone;
    unsigned int minObjects = 0;
    unsigned int maxObjects = UINT_MAX;
    bool selectionAsDefault = false;
    bool query = false;
    bool edit = false;

    // The flag of that short or long name (dash optional); null when there is none.
    const FlagSpec* findFlag(const std::string& name) const;
    FlagSpec* findFlag(const std::string& name);
    bool takesObjects() const {
        return objectFormat == MSyntax::kStringObjects || objectFormat == MSyntax::kSelectionList;
    }
};

// The flag name without its leading dash, if it has one.
std::string withoutDash(const std::string& flag);

}  // namespace mhost
