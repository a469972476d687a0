#pragma once
// MMessage: the base of the message classes. Each add...Callback of a subclass returns an id; the
// callback stays registered until that id is removed here. Callbacks run on the caller's thread,
// synchronously, at the moment the host makes the change they listen to.

#include <maya/MStatus.h>
#include <maya/MTypes.h>

// Identifies one registered callback; 0 is never a valid id.
typedef MUintPtrSz MCallbackId;

class MCallbackIdArray;
class MObject;

class OPENMAYA_EXPORT MMessage {
public:
    enum Action { kDefaultAction, kDoNotDoAction, kDoAction };

    // A callback that receives only the client data given when it was added.
    typedef void (*MBasicFunction)(void* clientData);

    // Unregisters a callback; kFailure when no callback has that id (already removed, or never added).
    static MStatus removeCallback(MCallbackId id);
    // Removes each id in turn; kFailure when any of them was not registered (the others are removed).
    static MStatus removeCallbacks(MCallbackIdArray& ids);
    // The id of the callback that is running now; kFailure (and 0) outside any callback.
    static MCallbackId currentCallbackId(MStatus* ReturnStatus = NULL);
    // The ids of the callbacks registered on a node (attribute-changed callbacks), oldest first.
    static MStatus nodeCallbacks(MObject& node, MCallbackIdArray& ids);
    static const char* className();
};
