#include "studio/StudioPanel.h"

#include <maya/MGlobal.h>
#include <mhost/Interaction.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QVBoxLayout>
#include <sstream>

#include "studio/ViewportWidget.h"

namespace kystrake {
namespace {

// An option's value, or `fallback` when the option does not exist yet.
int intOption(const char* name, int fallback) {
    return MGlobal::optionVarExists(name) ? MGlobal::optionVarIntValue(name) : fallback;
}

QSpinBox* spinBox(const char* objectName, int low, int high, int value) {
    auto* box = new QSpinBox;
    box->setObjectName(objectName);
    box->setRange(low, high);
    box->setValue(value);
    return box;
}

QPushButton* button(const char* objectName, const char* label, bool checkable) {
    auto* pushButton = new QPushButton(label);
    pushButton->setObjectName(objectName);
    pushButton->setCheckable(checkable);
    return pushButton;
}

QCheckBox* checkBox(const char* objectName, const char* label, bool checked) {
    auto* box = new QCheckBox(label);
    box->setObjectName(objectName);
    box->setChecked(checked);
    return box;
}

// A value as the command language reads it back to the same double.
std::string exact(double value) {
    std::ostringstream text;
    text.precision(17);
    text << value;
    return text.str();
}

}  // namespace

StudioPanel::StudioPanel(ViewportWidget& viewport, QWidget* parent) : QWidget(parent), viewport_(viewport) {
    setObjectName("kyStrakePanel");
    setFixedWidth(300);
    auto* layout = new QVBoxLayout(this);
    addToolButtons();
    addStrokeControls();
    addPatchControls();
    addBrushButtons();
    status_ = new QLabel;
    status_->setObjectName("statusText");
    help_ = new QLabel;
    help_->setObjectName("helpText");
    help_->setWordWrap(true);
    for (QLabel* label : {status_, help_}) label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    layout->addWidget(status_);
    layout->addWidget(help_, 1);
    showToolTexts();
}

void StudioPanel::showToolTexts() {
    status_->setText(QString::fromStdString(statusText()));
    help_->setText(QString::fromStdString(helpText()));
}

void StudioPanel::editContext(const std::string& flags) {
    viewport_.perform(Command{"kyStrakeContext -e " + flags + " " + viewport_.session().scene().context});
}

void StudioPanel::setOption(const std::string& name, int value) {
    viewport_.perform(SetOptionVar{name, value});
}

void StudioPanel::addToolButtons() {
    auto* launch = button("kyStrakeLaunchBtn", "kyStrake", true);
    // The tool was made current with the scene, before this button existed to be checked by it.
    launch->setChecked(mhost::driver::currentTool() == viewport_.session().scene().context);
    connect(launch, &QPushButton::clicked, [this](bool on) {
        viewport_.perform(Command{
            "setToolTo " + (on ? viewport_.session().scene().context : std::string("selectSuperContext"))});
    });
    layout()->addWidget(launch);
}

void StudioPanel::addStrokeControls() {
    auto* group = new QGroupBox("Strokes");
    auto* form = new QFormLayout(group);
    auto* figure = new QComboBox;
    figure->setObjectName("figureCombo");
    figure->addItems({"Freehand", "Line", "Rectangle", "Circle"});
    connect(figure, qOverload<int>(&QComboBox::activated),
            [this](int index) { editContext("-figure " + std::to_string(index)); });
    form->addRow("Figure", figure);
    auto* lazy = checkBox("lazyChk", "Lazy filter", intOption("ky_lazyActive", 0) == 1);
    connect(lazy, &QCheckBox::clicked, [this](bool on) { setOption("ky_lazyActive", on ? 1 : 0); });
    form->addRow(lazy);
    auto* distance = spinBox("lazyDistanceSpin", 1, 10, intOption("ky_lazyDistance", 1));
    connect(distance, qOverload<int>(&QSpinBox::valueChanged),
            [this](int value) { setOption("ky_lazyDistance", value); });
    form->addRow("Lazy distance", distance);
    auto* strength = spinBox("lazyStrengthSpin", 1, 10, intOption("ky_lazyStrength", 1));
    connect(strength, qOverload<int>(&QSpinBox::valueChanged),
            [this](int value) { setOption("ky_lazyStrength", value); });
    form->addRow("Lazy strength", strength);
    auto* glue = checkBox("glueChk", "Glue strokes", intOption("ky_glue", 0) != 0);
    connect(glue, &QCheckBox::clicked, [this](bool on) { setOption("ky_glue", on ? 1 : 0); });
    form->addRow(glue);
    layout()->addWidget(group);
}

void StudioPanel::addPatchControls() {
    auto* group = new QGroupBox("Patch");
    auto* form = new QFormLayout(group);
    uSpans_ = spinBox("uSpanSpin", 1, 200, std::max(1, intOption("ky_uspan", 12)));
    vSpans_ = spinBox("vSpanSpin", 1, 200, std::max(1, intOption("ky_vspan", 12)));
    // The context command takes both spans at once; with one of them alone the other is undefined.
    for (QSpinBox* spans : {uSpans_, vSpans_})
        connect(spans, qOverload<int>(&QSpinBox::valueChanged), [this](int) {
            editContext("-uspan " + std::to_string(uSpans_->value()) + " -vspan " +
                        std::to_string(vSpans_->value()));
        });
    form->addRow("Spans U", uSpans_);
    form->addRow("Spans V", vSpans_);
    // The tool sets the divisions itself in its divisions drag; the panel then carries the value into
    // the option as it does for the artist's edits, but only the artist's edits are steps of their own.
    auto* divisions = spinBox("bridgeSpin", 0, 50, intOption("ky_bdiv", 0));
    connect(divisions, qOverload<int>(&QSpinBox::valueChanged), [this](int value) {
        if (viewport_.session().isPerforming())
            MGlobal::setOptionVarValue("ky_bdiv", value);
        else
            setOption("ky_bdiv", value);
    });
    form->addRow("Bridge divisions", divisions);
    // The tool reads the slider while the lock is off; the slider's edits also go to the locator's
    // pinch through the context command, so a replay without the panel reads the same value.
    auto* pinch = new QSlider(Qt::Horizontal);
    pinch->setObjectName("pinchSlid");
    pinch->setRange(-95, 95);
    connect(pinch, &QSlider::valueChanged,
            [this](int value) { editContext("-pinch " + exact(value * 0.01)); });
    form->addRow("Pinch", pinch);
    form->addRow(checkBox("lockedPinchChk", "Lock pinch", true));
    auto* symmetry = checkBox("symmetryChk", "Symmetry", false);
    connect(symmetry, &QCheckBox::clicked, [this](bool on) {
        viewport_.perform(
            Command{"setAttr " + viewport_.session().scene().locator + ".symmetry " + (on ? "1" : "0")});
    });
    form->addRow(symmetry);
    layout()->addWidget(group);
}

void StudioPanel::addBrushButtons() {
    auto* group = new QGroupBox("Freeze and brushes");
    auto* box = new QVBoxLayout(group);
    auto* freeze = button("freezeBtn", "Freeze border", true);
    connect(freeze, &QPushButton::clicked,
            [this](bool on) { editContext(std::string("-freeze ") + (on ? "1" : "0")); });
    auto* median = button("freezeSymBtn", "Freeze median", true);
    connect(median, &QPushButton::clicked,
            [this](bool on) { editContext(std::string("-freezeMedian ") + (on ? "1" : "0")); });
    auto* relax = button("relaxBrushBtn", "Relax brush", false);
    connect(relax, &QPushButton::clicked, [this] {
        const double intensity = MGlobal::optionVarExists("ky_strakeIntens")
                                     ? MGlobal::optionVarDoubleValue("ky_strakeIntens")
                                     : 50.0;
        const double radius = MGlobal::optionVarExists("ky_strakeRadius")
                                  ? MGlobal::optionVarDoubleValue("ky_strakeRadius")
                                  : 50.0;
        editContext("-relaxBrush 1 -intensity " + exact(intensity) + " -radius " + exact(radius));
    });
    auto* move = button("moveBrushBtn", "Move brush", true);
    connect(move, &QPushButton::clicked,
            [this](bool on) { editContext(std::string("-moveBrush ") + (on ? "1" : "0")); });
    for (QPushButton* pushButton : {freeze, median, relax, move}) box->addWidget(pushButton);
    layout()->addWidget(group);
}

}  // namespace kystrake
