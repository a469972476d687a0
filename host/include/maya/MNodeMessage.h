#pragma once
// MNodeMessage: callbacks on changes to one dependency node.

#include <maya/MMessage.h>

class MPlug;

class OPENMAYA_EXPORT MNodeMessage : public MMessage {
public:
    // What happened to an attribute; a message is a combination of these bits.
    enum AttributeMessage {
        kConnectionMade = 0x01,
        kConnectionBroken = 0x02,
        kAttributeEval = 0x04,
        kAttributeSet = 0x08,
        kAttributeLocked = 0x10,
        kAttributeUnlocked = 0x20,
        kAttributeAdded = 0x40,
        kAttributeRemoved = 0x80,
        kAttributeRenamed = 0x100,
        kAttributeKeyable = 0x200,
        kAttributeUnkeyable = 0x400,
        kIncomingDirection = 0x800,
        kAttributeArrayAdded = 0x1000,
        kAttributeArrayRemoved = 0x2000,
        kOtherPlugSet = 0x4000,
        kLast = 0x8000
    };

    // A callback given the message, the plug it is about and the plug at the other end (a null plug
    // unless kOtherPlugSet is in the message).
    typedef void (*MAttr2PlugFunction)(MNodeMessage::AttributeMessage msg, MPlug& plug, MPlug& otherPlug,
                                       void* clientData);

    // Calls `func` after each value stored into a plug of `node` (setAttr, MPlug::setValue and the
    // like), with kAttributeSet | kIncomingDirection. A node that is not a live dependency node fails
    // with kInvalidParameter and returns 0. The callback goes away with the id, not with the node.
    static MCallbackId addAttributeChangedCallback(MObject& node, MNodeMessage::MAttr2PlugFunction func,
                                                   void* clientData = NULL, MStatus* ReturnStatus = NULL);
    static const char* className();
};
