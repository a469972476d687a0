#pragma once
// MCursor: the pointer shape a tool context shows in the view. The host has no screen; it remembers
// the shape so that programs can read it back (mhost::driver::currentToolCursor).

#include <maya/MTypes.h>

#include <memory>
#include <string>

class MCursor;

namespace mhost {
// Host side, not part of Maya's API: the cursor's name ("doubleCrossHair", or "custom" for a bitmap
// cursor).
const char* cursorName(const MCursor& cursor);
}  // namespace mhost

class OPENMAYAUI_EXPORT MCursor {
public:
    // A cursor from an X bitmap and mask. The host keeps only its identity, not the picture.
    MCursor(short width, short height, short hotSpotX, short hotSpotY, unsigned char* bits,
            unsigned char* mask);
    MCursor(const MCursor& other);
    ~MCursor();
    MCursor& operator=(const MCursor&);
    // Cursors are equal when they are copies of the same predefined or constructed cursor.
    bool operator==(const MCursor&) const;
    bool operator!=(const MCursor&) const;

    static const MCursor defaultCursor;
    static const MCursor crossHairCursor;
    static const MCursor doubleCrossHairCursor;
    static const MCursor editCursor;
    static const MCursor pencilCursor;
    static const MCursor handCursor;

private:
    friend const char* mhost::cursorName(const MCursor&);
    explicit MCursor(const char* name);
    // Shared by copies, so that equality is identity.
    std::shared_ptr<const std::string> fName;
};
