// Panel controls found by object name among live Qt widgets, and controls that are not there.

#include <gtest/gtest.h>
#include <maya/MQtUtil.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QVBoxLayout>
#include <QtWidgets/QWidget>
#include <memory>

#include "drawing/GuiApplication.h"

namespace {

// A panel window holding one control of each kind the tool looks up.
class ControlsTest : public testing::Test {
protected:
    void SetUp() override {
        mhost::ensureGuiApplication();
        panel_ = std::make_unique<QWidget>();
        panel_->setObjectName("kyStrakePanel");
        auto* layout = new QVBoxLayout(panel_.get());
        add<QPushButton>(layout, "freezeBtn");
        add<QCheckBox>(layout, "lockedPinchChk");
        add<QSlider>(layout, "pinchSlid");
        add<QSpinBox>(layout, "bridgeSpin");
    }

    template <class Control>
    void add(QVBoxLayout* layout, const char* name) {
        auto* control = new Control;
        control->setObjectName(name);
        layout->addWidget(control);
    }

    std::unique_ptr<QWidget> panel_;
};

}  // namespace

TEST_F(ControlsTest, FindsEachKindOfControlByName) {
    auto* button = qobject_cast<QPushButton*>(MQtUtil::findControl("freezeBtn"));
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->window(), panel_.get());
    EXPECT_NE(qobject_cast<QCheckBox*>(MQtUtil::findControl("lockedPinchChk")), nullptr);
    EXPECT_NE(qobject_cast<QSlider*>(MQtUtil::findControl("pinchSlid")), nullptr);
    EXPECT_NE(qobject_cast<QSpinBox*>(MQtUtil::findControl("bridgeSpin")), nullptr);
    EXPECT_EQ(MQtUtil::findControl("kyStrakePanel"), panel_.get());
    EXPECT_EQ(MQtUtil::findControl("kyStrakePanel|freezeBtn"), button)
        << "a path is matched on its last part";
}

TEST_F(ControlsTest, MissingControlsAreNullNeverErrors) {
    EXPECT_EQ(MQtUtil::findControl("kyStrakeLaunchBtn"), nullptr);
    EXPECT_EQ(MQtUtil::findControl(""), nullptr);
    QWidget elsewhere;
    EXPECT_EQ(MQtUtil::findControl("freezeBtn", &elsewhere), nullptr) << "not below the ancestor given";
    EXPECT_NE(MQtUtil::findControl("freezeBtn", panel_.get()), nullptr);
    panel_.reset();
    EXPECT_EQ(MQtUtil::findControl("freezeBtn"), nullptr) << "a control deleted with its panel";
}

TEST(QtStrings, ConvertBothWaysAsUtf8) {
    const MString text("Pinch value: 0,95 \xC3\xA9");
    EXPECT_EQ(MQtUtil::toMString(MQtUtil::toQString(text)), text);
    EXPECT_EQ(MQtUtil::toQString(text).right(1), QString(QChar(0xE9)));
}
