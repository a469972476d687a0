#pragma once
// MDagModifier: MDGModifier for DAG nodes, with creation under a parent and reparenting.

#include <maya/MDGModifier.h>

class OPENMAYA_EXPORT MDagModifier : public MDGModifier {
public:
    MDagModifier();
    ~MDagModifier() override;
    // Queues a DAG node under `parent`; a shape without a parent gets a new transform, which is
    // returned instead, as in Maya.
    MObject createNode(const MTypeId& typeId, const MObject& parent = MObject::kNullObj,
                       MStatus* ReturnStatus = NULL);
    MObject createNode(const MString& type, const MObject& parent = MObject::kNullObj,
                       MStatus* ReturnStatus = NULL);
    MStatus reparentNode(const MObject& node, const MObject& newParent = MObject::kNullObj);
    static const char* className();
};
