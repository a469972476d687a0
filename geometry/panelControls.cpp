// The panel's Qt controls, found by object name. The panel is the artist's own script and may be
// closed or absent, so a missing control is never a failure: each operation has a quiet fallback.

#include <maya/MQtUtil.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>

#include "geometry/functionsInternal.h"

namespace {

// The control called `name` when it exists and is a `Control`, else null.
template <typename Control>
Control* findControlAs(const MString& name) {
    QWidget* widget = MQtUtil::findControl(name);
    if (!widget) return nullptr;
    return static_cast<Control*>(Control::staticMetaObject.cast(widget));
}

}  // namespace

void setButtonChecked(const MString& name, bool on) {
    if (QPushButton* button = findControlAs<QPushButton>(name)) button->setChecked(on);
}

bool isCheckBoxChecked(const MString& name) {
    QCheckBox* box = findControlAs<QCheckBox>(name);
    return box ? box->isChecked() : true;
}

void setSpinBoxValue(const MString& name, int value) {
    if (QSpinBox* spin = findControlAs<QSpinBox>(name)) spin->setValue(value);
}

double getPinch() {
    double stored = 0.0;
    getDoubleAttr("pinch", findStrakeLocator(), stored);
    // The slider governs while the lock box is on screen and clear; the stored value governs while
    // locked or when the panel is closed.
    if (!isCheckBoxChecked("lockedPinchChk")) {
        if (QSlider* slider = findControlAs<QSlider>("pinchSlid")) return slider->value() * 0.01;
    }
    return stored;
}

MStatus setPinch(double value) { return setDoubleAttr("pinch", findStrakeLocator(), value); }
