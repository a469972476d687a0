#include "runner/ToolPanel.h"

#include <maya/MGlobal.h>
#include <mhost/Interaction.h>

#include <QtWidgets/QSpinBox>
#include <QtWidgets/QVBoxLayout>
#include <QtWidgets/QWidget>

namespace kystrake {

ToolPanel::ToolPanel() {
    mhost::driver::ensureQtApplication();
    window_ = std::make_unique<QWidget>();
    window_->setObjectName("kyStrakePanel");
    auto* layout = new QVBoxLayout(window_.get());
    auto* divisions = new QSpinBox;
    divisions->setObjectName("bridgeSpin");
    divisions->setRange(0, 50);
    divisions->setValue(MGlobal::optionVarIntValue("ky_bdiv"));
    layout->addWidget(divisions);
    QObject::connect(divisions, qOverload<int>(&QSpinBox::valueChanged),
                     [](int value) { MGlobal::setOptionVarValue("ky_bdiv", value); });
}

ToolPanel::~ToolPanel() = default;

}  // namespace kystrake
