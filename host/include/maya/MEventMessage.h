#pragma once
// MEventMessage: callbacks on named application events. The host sends "Undo" and "Redo" after each
// step replayed from the undo queue, "SelectionChanged" when the active selection's contents change,
// "ToolChanged" when the current tool changes, and "modelEditorChanged" when the view's camera or
// size changes.

#include <maya/MMessage.h>
#include <maya/MStringArray.h>

class OPENMAYA_EXPORT MEventMessage : public MMessage {
public:
    // Calls `func(clientData)` each time the named event happens, until the id is removed. An event
    // name the host does not know fails with kInvalidParameter and returns 0.
    static MCallbackId addEventCallback(const MString& event, MMessage::MBasicFunction func,
                                        void* clientData = NULL, MStatus* ReturnStatus = NULL);
    // The names of the events that callbacks can be added for.
    static MStatus getEventNames(MStringArray& names);
    static const char* className();
};
