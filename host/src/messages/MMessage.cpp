#include <maya/MCallbackIdArray.h>
#include <maya/MMessage.h>
#include <maya/MObject.h>

#include "graph/Node.h"
#include "messages/CallbackRegistry.h"

MStatus MMessage::removeCallback(MCallbackId id) {
    return mhost::callbackRegistry().remove(id) ? MS::kSuccess : MS::kFailure;
}

MStatus MMessage::removeCallbacks(MCallbackIdArray& ids) {
    MStatus result = MS::kSuccess;
    for (MCallbackId id : ids)
        if (!removeCallback(id)) result = MS::kFailure;
    return result;
}

MCallbackId MMessage::currentCallbackId(MStatus* ReturnStatus) {
    const MCallbackId id = mhost::callbackRegistry().running();
    if (ReturnStatus) *ReturnStatus = id ? MS::kSuccess : MS::kFailure;
    return id;
}

MStatus MMessage::nodeCallbacks(MObject& node, MCallbackIdArray& ids) {
    ids.clear();
    auto host = mhost::liveNodeOf(node);
    if (!host) return MS::kInvalidParameter;
    for (MCallbackId id : mhost::callbackRegistry().idsOnNode(*host)) ids.append(id);
    return MS::kSuccess;
}

const char* MMessage::className() { return "MMessage"; }
