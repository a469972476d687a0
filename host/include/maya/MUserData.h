#pragma once
// MUserData: the base of data a draw override hands from prepareForDraw to its draw calls. The host
// owns what prepareForDraw returns: it passes it back as the old data of the next frame, and deletes
// it after the frame's drawing when deleteAfterUse is set, or with the override.

#include <maya/MTypes.h>

class OPENMAYA_EXPORT MUserData {
public:
    // `deleteAfterUse`: whether the host deletes the data once the frame that made it is drawn.
    MUserData(bool deleteAfterUse);
    virtual ~MUserData();
    bool deleteAfterUse();
    void setDeleteAfterUse(bool shouldDelete);
    static const char* className();

private:
    bool fDeleteAfterUse;
};
