// Mouse events and keys: MEvent's decoding of buttons and modifiers, and the delivery of gestures
// and keys to the current context in order.

#include <gtest/gtest.h>
#include <maya/MEvent.h>

#include "interaction/EventDispatch.h"
#include "support/RecordingTool.h"

using mhost::driver::Key;
using mhost::driver::Modifiers;
using mhost::driver::MouseButton;

TEST(EventDecoding, ButtonsAndModifiersHaveMayasValues) {
    EXPECT_EQ(MEvent::kLeftMouse, 64);
    EXPECT_EQ(MEvent::kMiddleMouse, 128);
    const MEvent both = mhost::makeEvent(3, 4, MEvent::kMiddleMouse, MEvent::shiftKey | MEvent::controlKey);
    EXPECT_EQ(both.mouseButton(), MEvent::kMiddleMouse);
    EXPECT_EQ(both.modifiers(), 5);
    EXPECT_TRUE(both.isModifierShift());
    EXPECT_TRUE(both.isModifierControl());
    EXPECT_FALSE(both.isModifierNone());
    const MEvent control = mhost::makeEvent(0, 0, MEvent::kLeftMouse, MEvent::controlKey);
    EXPECT_FALSE(control.isModifierShift());
    EXPECT_TRUE(control.isModifierControl());
    MEvent plain;
    EXPECT_TRUE(plain.isModifierNone());
    EXPECT_EQ(plain.mouseButton(), 0);
    plain.setModifiers(MEvent::shiftKey);
    plain.setPosition(-7, 300);
    short x = 0, y = 0;
    plain.getWindowPosition(x, y);
    EXPECT_EQ(x, -7);
    EXPECT_EQ(y, 300);
    EXPECT_TRUE(plain.isModifierShift());
}

using GestureDelivery = RecordingToolFixture;

TEST_F(GestureDelivery, GesturesAndKeysReachTheContextInOrder) {
    activate("brush");
    recording::log().clear();
    const Modifiers shift{true, false};
    const Modifiers both{true, true};
    EXPECT_TRUE(mhost::driver::movePointer(1, 2));
    EXPECT_TRUE(mhost::driver::press(10, 20, MouseButton::kMiddle, both));
    EXPECT_TRUE(mhost::driver::drag(11, 21, MouseButton::kMiddle, shift));
    EXPECT_TRUE(mhost::driver::drag(12, 22, MouseButton::kMiddle));
    EXPECT_TRUE(mhost::driver::release(13, 23, MouseButton::kMiddle));
    EXPECT_TRUE(mhost::driver::sendKey(Key::kBackspace));
    EXPECT_TRUE(mhost::driver::sendKey(Key::kEnter));
    EXPECT_TRUE(mhost::driver::sendKey(Key::kEscape));
    EXPECT_EQ(recording::log(),
              (std::vector<std::string>{"move 1 2 b0 m0", "press 10 20 b128 m5", "drag 11 21 b128 m1",
                                        "drag 12 22 b128 m0", "release 13 23 b128 m0", "delete", "complete",
                                        "abort"}));
}

TEST_F(GestureDelivery, EventsOutOfGestureOrderReachNoContext) {
    activate("brush");
    recording::log().clear();
    EXPECT_EQ(mhost::driver::drag(1, 1, MouseButton::kLeft), MS::kInvalidParameter);
    EXPECT_EQ(mhost::driver::release(1, 1, MouseButton::kLeft), MS::kInvalidParameter);
    ASSERT_TRUE(mhost::driver::press(1, 1, MouseButton::kLeft));
    EXPECT_EQ(mhost::driver::press(1, 1, MouseButton::kLeft), MS::kInvalidParameter);
    EXPECT_EQ(mhost::driver::drag(1, 1, MouseButton::kMiddle), MS::kInvalidParameter);
    EXPECT_EQ(mhost::driver::press(40000, 1, MouseButton::kLeft), MS::kInvalidParameter);
    EXPECT_TRUE(mhost::driver::release(2, 2, MouseButton::kLeft));
    EXPECT_EQ(recording::log(), (std::vector<std::string>{"press 1 1 b64 m0", "release 2 2 b64 m0"}));
}

TEST_F(GestureDelivery, WhatAHandlerDrawsLastsUntilTheNextEvent) {
    activate("brush");
    ASSERT_TRUE(mhost::driver::press(3, 3, MouseButton::kLeft));
    ASSERT_TRUE(mhost::driver::drag(30, 40, MouseButton::kLeft));
    const auto lines = mhost::eventDrawing()->primitives();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_TRUE(lines[0]->is2D);
    EXPECT_EQ(lines[0]->points.at(1), MPoint(30, 40));
    ASSERT_TRUE(mhost::driver::release(30, 40, MouseButton::kLeft));
    EXPECT_TRUE(mhost::eventDrawing()->primitives().empty());
}
