// Settings in option variables, the status line's density warning, and the panel's controls,
// present or not.

#include <gtest/gtest.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QVBoxLayout>
#include <QtWidgets/QWidget>
#include <memory>
#include <string>

#include "drawing/GuiApplication.h"
#include "geometry/functions.h"
#include "tests/plugin/geometryScene.h"

namespace {

using Options = kytest::GeometryScene;

// The artist's panel with the controls the pinch and freeze code look up.
class PanelControls : public kytest::GeometryScene {
protected:
    void SetUp() override {
        kytest::GeometryScene::SetUp();
        mhost::ensureGuiApplication();
        panel_ = std::make_unique<QWidget>();
        auto* layout = new QVBoxLayout(panel_.get());
        freeze_ = add<QPushButton>(layout, "freezeBtn");
        freeze_->setCheckable(true);
        lock_ = add<QCheckBox>(layout, "lockedPinchChk");
        slider_ = add<QSlider>(layout, "pinchSlid");
    }
    template <class Control>
    Control* add(QVBoxLayout* layout, const char* name) {
        auto* control = new Control;
        control->setObjectName(name);
        layout->addWidget(control);
        return control;
    }
    std::unique_ptr<QWidget> panel_;
    QPushButton* freeze_ = nullptr;
    QCheckBox* lock_ = nullptr;
    QSlider* slider_ = nullptr;
};

}  // namespace

TEST_F(Options, SpansDefaultToTwelveReadBelowOneAsOneAndStoreAtLeastOne) {
    EXPECT_EQ(getUSpan(), 12);
    MGlobal::setOptionVarValue("ky_uspan", 0);
    EXPECT_EQ(getUSpan(), 1);
    MGlobal::setOptionVarValue("ky_vspan", -4);
    EXPECT_EQ(getVSpan(), 1) << "a negative count a script stored reads as 1 too";
    EXPECT_TRUE(setUSpan(-3));
    EXPECT_EQ(MGlobal::optionVarIntValue("ky_uspan"), 1);
}

TEST_F(Options, DensityWarningStartsAboveHalfAMillionPolygons) {
    MObject locator = makeLocator();
    MDagPath source = makeGrid(1000, 500);
    connectSource(source, locator);
    setInfoLines("help", "Activated");
    EXPECT_EQ(std::string(MGlobal::optionVarStringValue("kyStrake_info1").asChar()), "Activated") << "500000";

    MPointArray triangle;
    for (const MPoint& p : {MPoint(0, 5, 0), MPoint(1, 5, 0), MPoint(1, 5, 1)}) triangle.append(p);
    MFnMesh(source).addPolygon(triangle);
    setInfoLines("help", "Activated");
    EXPECT_EQ(
        std::string(MGlobal::optionVarStringValue("kyStrake_info1").asChar()),
        "Activated,The source mesh density is high (500001 polys) you may decimate and/or split then import "
        "the mesh as a reference for a better performance.");
    EXPECT_EQ(std::string(MGlobal::optionVarStringValue("kyStrake_info2").asChar()), "help");
}

TEST_F(PanelControls, SliderGovernsPinchOnlyWhileTheLockBoxIsClear) {
    makeLocator();
    ASSERT_TRUE(setPinch(0.3));
    slider_->setValue(40);
    lock_->setChecked(false);
    EXPECT_DOUBLE_EQ(getPinch(), 0.4);
    lock_->setChecked(true);
    EXPECT_DOUBLE_EQ(getPinch(), 0.3);
    lock_->setChecked(false);
    delete slider_;
    EXPECT_DOUBLE_EQ(getPinch(), 0.3) << "unlocked but no slider: the stored value";
    panel_.reset();
    EXPECT_TRUE(isCheckBoxChecked("lockedPinchChk")) << "a missing box counts as checked";
    setButtonChecked("freezeBtn", true);
}

TEST_F(PanelControls, ClearingFrozenPointsReleasesTheFreezeButton) {
    setButtonChecked("freezeBtn", true);
    EXPECT_TRUE(freeze_->isChecked());
    makeLocator();
    ASSERT_TRUE(clearFreePoints());
    EXPECT_FALSE(freeze_->isChecked());
}
