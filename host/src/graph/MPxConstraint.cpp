#include <maya/MObjectArray.h>
#include <maya/MPxConstraint.h>

MPxConstraint::MPxConstraint() = default;
MPxConstraint::~MPxConstraint() = default;
const char* MPxConstraint::className() { return "MPxConstraint"; }

const MObject MPxConstraint::weightAttribute() const { return MObject::kNullObj; }
const MObject MPxConstraint::targetAttribute() const { return MObject::kNullObj; }
const MObject MPxConstraint::constraintRotateOrderAttribute() const { return MObject::kNullObj; }
const MObject MPxConstraint::passiveOutputAttribute() const { return MObject::kNullObj; }
void MPxConstraint::getOutputAttributes(MObjectArray& attributeArray) { attributeArray.clear(); }
