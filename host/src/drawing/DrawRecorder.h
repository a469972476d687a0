#pragma once
// DrawRecorder: the host's way to hand a plug-in an MUIDrawManager. Maya's draw manager has a private
// destructor (only Maya makes and ends one), so the host keeps it inside this owner, which records
// every call into a display list.

#include <maya/MUIDrawManager.h>

#include "drawing/DisplayList.h"

namespace mhost {

class DrawRecorder {
public:
    // A manager recording into `list`, which must outlive this recorder.
    explicit DrawRecorder(DisplayList& list) : fManager(list) {}
    DrawRecorder(const DrawRecorder&) = delete;
    DrawRecorder& operator=(const DrawRecorder&) = delete;
    // The manager to pass to the plug-in's drawing calls.
    MHWRender::MUIDrawManager& manager() { return fManager; }

private:
    MHWRender::MUIDrawManager fManager;
};

}  // namespace mhost
