#include <maya/MNodeMessage.h>
#include <maya/MObject.h>

#include "graph/Node.h"
#include "messages/CallbackRegistry.h"

MCallbackId MNodeMessage::addAttributeChangedCallback(MObject& node, MNodeMessage::MAttr2PlugFunction func,
                                                      void* clientData, MStatus* ReturnStatus) {
    auto host = mhost::liveNodeOf(node);
    const bool valid = host && func;
    if (ReturnStatus) *ReturnStatus = valid ? MS::kSuccess : MS::kInvalidParameter;
    return valid ? mhost::callbackRegistry().addAttributeChanged(host, func, clientData) : 0;
}

const char* MNodeMessage::className() { return "MNodeMessage"; }
