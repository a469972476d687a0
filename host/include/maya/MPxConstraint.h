#pragma once
// MPxConstraint: the base of a plug-in constraint node. The host gives it no behaviour beyond
// MPxNode's: a type registered with it is a plain node of the kind it is registered as, and the
// attribute queries below answer null unless the plug-in overrides them.

#include <maya/MMatrix.h>
#include <maya/MObject.h>
#include <maya/MPxNode.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>
#include <maya/MVector.h>

class MObjectArray;

class OPENMAYAANIM_EXPORT MPxConstraint : public MPxNode {
public:
    enum UpVectorType { kScene = 0, kObject, kObjectRotation, kVector, kLast };

    MPxConstraint();
    ~MPxConstraint() override;
    // The constraint's weight, target and rotate-order attributes; null objects in the base.
    virtual const MObject weightAttribute() const;
    virtual const MObject targetAttribute() const;
    virtual const MObject constraintRotateOrderAttribute() const;
    static const char* className();

protected:
    // The attribute that receives the constrained value while the constraint is off; null in the base.
    virtual const MObject passiveOutputAttribute() const;
    // The attributes the constraint drives; the base lists none.
    virtual void getOutputAttributes(MObjectArray& attributeArray);
};
