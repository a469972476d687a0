#pragma once
// MEvent: one mouse event as a tool context receives it: the pointer's view position (pixels, origin
// at the bottom left), the button, and the SHIFT and CTRL modifiers held.

#include <maya/MStatus.h>
#include <maya/MTypes.h>

class MEvent;

namespace mhost {
// Host side, not part of Maya's API: an event as the driver sends it. `modifiers` combines
// MEvent::ModifierType bits; `button` is MEvent::kLeftMouse, MEvent::kMiddleMouse or 0.
MEvent makeEvent(short x, short y, int button, int modifiers);
}  // namespace mhost

class OPENMAYAUI_EXPORT MEvent {
public:
    // Modifier bits; modifiers() answers their combination (5 with both held).
    enum ModifierType { shiftKey = 1 << 0, controlKey = 1 << 2 };
    enum MouseButtonType { kLeftMouse = 1 << 6, kMiddleMouse = kLeftMouse << 1 };

    // An event at (0, 0) with no button and no modifier.
    MEvent();
    virtual ~MEvent();
    MStatus getPosition(short& x_pos, short& y_pos) const;
    MStatus setPosition(short x_pos, short y_pos);
    // The position in the window: the host's view is its own window, so the same as getPosition.
    MStatus getWindowPosition(short& x_pos, short& y_pos) const;
    // The button of a press, drag or release; 0 for events without one (pointer moves, tool setup).
    MouseButtonType mouseButton(MStatus* ReturnStatus = NULL) const;
    // Always false: the host sends no key-release events to contexts.
    bool isModifierKeyRelease(MStatus* ReturnStatus = NULL) const;
    ModifierType modifiers(MStatus* ReturnStatus = NULL) const;
    MStatus setModifiers(const ModifierType& modType);
    bool isModifierNone(MStatus* ReturnStatus = NULL) const;
    bool isModifierShift(MStatus* ReturnStatus = NULL) const;
    bool isModifierControl(MStatus* ReturnStatus = NULL) const;
    static const char* className();

private:
    friend MEvent mhost::makeEvent(short, short, int, int);
    MEvent(short x_pos, short y_pos, int button, int modifiers);

    short fX, fY;
    int fButton;
    int fModifiers;
};
