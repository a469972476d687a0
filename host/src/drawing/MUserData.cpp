#include <maya/MUserData.h>

MUserData::MUserData(bool deleteAfterUse) : fDeleteAfterUse(deleteAfterUse) {}
MUserData::~MUserData() = default;
bool MUserData::deleteAfterUse() { return fDeleteAfterUse; }
void MUserData::setDeleteAfterUse(bool shouldDelete) { fDeleteAfterUse = shouldDelete; }
const char* MUserData::className() { return "MUserData"; }
