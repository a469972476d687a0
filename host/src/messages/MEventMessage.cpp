#include <maya/MEventMessage.h>

#include <algorithm>

#include "messages/CallbackRegistry.h"

MCallbackId MEventMessage::addEventCallback(const MString& event, MMessage::MBasicFunction func,
                                            void* clientData, MStatus* ReturnStatus) {
    const auto& known = mhost::knownEventNames();
    const bool valid = func && std::find(known.begin(), known.end(), event.asChar()) != known.end();
    if (ReturnStatus) *ReturnStatus = valid ? MS::kSuccess : MS::kInvalidParameter;
    return valid ? mhost::callbackRegistry().addEvent(event.asChar(), func, clientData) : 0;
}

MStatus MEventMessage::getEventNames(MStringArray& names) {
    names.clear();
    for (const auto& name : mhost::knownEventNames()) names.append(MString(name.c_str()));
    return MS::kSuccess;
}

const char* MEventMessage::className() { return "MEventMessage"; }
