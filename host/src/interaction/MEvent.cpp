#include <maya/MEvent.h>

namespace {

void report(MStatus* out) {
    if (out) *out = MS::kSuccess;
}

}  // namespace

MEvent::MEvent() : MEvent(0, 0, 0, 0) {}
MEvent::MEvent(short x_pos, short y_pos, int button, int modifiers)
    : fX(x_pos), fY(y_pos), fButton(button), fModifiers(modifiers) {}
MEvent::~MEvent() = default;
MEvent mhost::makeEvent(short x, short y, int button, int modifiers) { return MEvent(x, y, button, modifiers); }
const char* MEvent::className() { return "MEvent"; }

MStatus MEvent::getPosition(short& x_pos, short& y_pos) const {
    x_pos = fX;
    y_pos = fY;
    return MS::kSuccess;
}

MStatus MEvent::setPosition(short x_pos, short y_pos) {
    fX = x_pos;
    fY = y_pos;
    return MS::kSuccess;
}

MStatus MEvent::getWindowPosition(short& x_pos, short& y_pos) const { return getPosition(x_pos, y_pos); }

MEvent::MouseButtonType MEvent::mouseButton(MStatus* ReturnStatus) const {
    report(ReturnStatus);
    return static_cast<MouseButtonType>(fButton);
}

bool MEvent::isModifierKeyRelease(MStatus* ReturnStatus) const {
    report(ReturnStatus);
    return false;
}

MEvent::ModifierType MEvent::modifiers(MStatus* ReturnStatus) const {
    report(ReturnStatus);
    return static_cast<ModifierType>(fModifiers);
}

MStatus MEvent::setModifiers(const ModifierType& modType) {
    fModifiers = modType;
    return MS::kSuccess;
}

bool MEvent::isModifierNone(MStatus* ReturnStatus) const {
    report(ReturnStatus);
    return (fModifiers & (shiftKey | controlKey)) == 0;
}

bool MEvent::isModifierShift(MStatus* ReturnStatus) const {
    report(ReturnStatus);
    return (fModifiers & shiftKey) != 0;
}

bool MEvent::isModifierControl(MStatus* ReturnStatus) const {
    report(ReturnStatus);
    return (fModifiers & controlKey) != 0;
}
