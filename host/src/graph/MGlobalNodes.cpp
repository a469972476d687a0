// The node part of MGlobal.

#include <maya/MDGModifier.h>
#include <maya/MGlobal.h>
#include <maya/MObject.h>

#include "graph/Node.h"

MStatus MGlobal::deleteNode(MObject& node) {
    if (!mhost::liveNodeOf(node)) return MS::kInvalidParameter;
    MDGModifier modifier;
    MStatus status = modifier.deleteNode(node);
    return status ? modifier.doIt() : status;
}
