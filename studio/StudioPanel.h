#pragma once
// The artist's panel beside the viewport: the controls the tool finds by object name ("freezeBtn",
// "freezeSymBtn", "kyStrakeLaunchBtn", "lockedPinchChk", "pinchSlid", "bridgeSpin") and the others an
// artist needs, each edit sent to the tool as an option variable or a context command step, so that
// the recording holds it. The tool's status and help texts are shown below.

#include <QtWidgets/QWidget>

class QLabel;
class QSpinBox;

namespace kystrake {

class ViewportWidget;

class StudioPanel : public QWidget {
    Q_OBJECT
public:
    explicit StudioPanel(ViewportWidget& viewport, QWidget* parent = nullptr);

    // Shows the tool's current status and help texts.
    void showToolTexts();

private:
    void addToolButtons();
    void addStrokeControls();
    void addPatchControls();
    void addBrushButtons();
    // Runs a context command edit on the studio's tool context.
    void editContext(const std::string& flags);
    void setOption(const std::string& name, int value);

    ViewportWidget& viewport_;
    QSpinBox* uSpans_ = nullptr;
    QSpinBox* vSpans_ = nullptr;
    QLabel* status_ = nullptr;
    QLabel* help_ = nullptr;
};

}  // namespace kystrake
