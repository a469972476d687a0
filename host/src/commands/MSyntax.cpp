#include <maya/MSyntax.h>

#include "commands/SyntaxData.h"

namespace mhost {

std::string withoutDash(const std::string& flag) {
    return !flag.empty() && flag[0] == '-' ? flag.substr(1) : flag;
}

const FlagSpec* SyntaxData::findFlag(const std::string& name) const {
    const std::string bare = withoutDash(name);
    for (const FlagSpec& flag : flags)
        if (flag.shortName == bare || flag.longName == bare) return &flag;
    return nullptr;
}

FlagSpec* SyntaxData::findFlag(const std::string& name) {
    return const_cast<FlagSpec*>(static_cast<const SyntaxData*>(this)->findFlag(name));
}

}  // namespace mhost

namespace {

std::shared_ptr<mhost::SyntaxData> copyOf(const MSyntax& other, bool own) {
    return own ? std::make_shared<mhost::SyntaxData>(*other.hostData()) : other.hostData();
}

}  // namespace

MSyntax::MSyntax() : fData(std::make_shared<mhost::SyntaxData>()), fOwn(true) {}
MSyntax::MSyntax(const MSyntax& other) : fData(copyOf(other, other.fOwn)), fOwn(other.fOwn) {}
MSyntax::MSyntax(std::shared_ptr<mhost::SyntaxData> shared)
    : fData(shared ? std::move(shared) : std::make_shared<mhost::SyntaxData>()), fOwn(false) {}
MSyntax::~MSyntax() = default;

MSyntax& MSyntax::operator=(const MSyntax& rhs) {
    fData = copyOf(rhs, rhs.fOwn);
    fOwn = rhs.fOwn;
    return *this;
}

MStatus MSyntax::addFlag(const char* shortName, const char* longName, MArgType argType1, MArgType argType2,
                         MArgType argType3, MArgType argType4, MArgType argType5, MArgType argType6) {
    if (!shortName || !longName || !*shortName || !*longName) return MS::kInvalidParameter;
    mhost::FlagSpec flag{mhost::withoutDash(shortName), mhost::withoutDash(longName), {}, false};
    if (flag.shortName.empty() || flag.longName.empty()) return MS::kInvalidParameter;
    if (fData->findFlag(flag.shortName) || fData->findFlag(flag.longName)) return MS::kFailure;
    for (MArgType type : {argType1, argType2, argType3, argType4, argType5, argType6}) {
        if (type == kNoArg) break;
        flag.argTypes.push_back(type);
    }
    fData->flags.push_back(std::move(flag));
    return MS::kSuccess;
}

MStatus MSyntax::makeFlagMultiUse(const char* flag) {
    mhost::FlagSpec* declared = flag ? fData->findFlag(flag) : nullptr;
    if (!declared) return MS::kInvalidParameter;
    declared->multiUse = true;
    return MS::kSuccess;
}

MStatus MSyntax::addArg(MArgType arg) {
    if (arg == kInvalidArgType || arg == kNoArg || arg == kLastArgType) return MS::kInvalidParameter;
    fData->commandArgs.push_back(arg);
    return MS::kSuccess;
}

void MSyntax::useSelectionAsDefault(bool useSelectionList) { fData->selectionAsDefault = useSelectionList; }

MStatus MSyntax::setObjectType(MObjectFormat objectFormat, unsigned int minimumObjects) {
    return setObjectType(objectFormat, minimumObjects, UINT_MAX);
}

MStatus MSyntax::setObjectType(MObjectFormat objectFormat, unsigned int minimumObjects,
                               unsigned int maximumObjects) {
    if (objectFormat == kInvalidObjectFormat || objectFormat == kLastObjectFormat)
        return MS::kInvalidParameter;
    if (minimumObjects > maximumObjects) return MS::kInvalidParameter;
    fData->objectFormat = objectFormat;
    fData->minObjects = minimumObjects;
    fData->maxObjects = maximumObjects;
    return MS::kSuccess;
}

void MSyntax::setMinObjects(unsigned int minimumObjectCount) { fData->minObjects = minimumObjectCount; }
void MSyntax::setMaxObjects(unsigned int maximumObjectCount) { fData->maxObjects = maximumObjectCount; }
void MSyntax::enableQuery(bool supportsQuery) { fData->query = supportsQuery; }
void MSyntax::enableEdit(bool supportsEdit) { fData->edit = supportsEdit; }
unsigned int MSyntax::minObjects() const { return fData->minObjects; }
unsigned int MSyntax::maxObjects() const { return fData->maxObjects; }
bool MSyntax::canQuery() const { return fData->query; }
bool MSyntax::canEdit() const { return fData->edit; }
const char* MSyntax::className() { return "MSyntax"; }
