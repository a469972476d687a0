#pragma once
// The part of the artist's panel that the tool reads back while it works: the bridge divisions spin
// box "bridgeSpin", which carries its value into the option variable "ky_bdiv" as the panel does. The
// divisions drag sets the spin box, so without it the drag would only move the preview.

#include <memory>

class QSpinBox;
class QWidget;

namespace kystrake {

class ToolPanel {
public:
    // Makes the panel's widgets (a Qt application first, when the process has none), with the spin
    // box at the current "ky_bdiv".
    ToolPanel();
    ~ToolPanel();
    ToolPanel(const ToolPanel&) = delete;
    ToolPanel& operator=(const ToolPanel&) = delete;

private:
    std::unique_ptr<QWidget> window_;
};

}  // namespace kystrake
