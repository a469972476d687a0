#pragma once
// Scenes for the tool context's tests: a source grid connected to a locator, a view of it, and a
// context made in-process (so its fields can be read) that gets tool commands as a registered
// context would. Gestures are sent to that context directly, as the host would send them.
//
// The grid of GeometryScene lies in the XZ plane with its normals facing -Y, so the camera looks at
// it from below.

#include <gtest/gtest.h>
#include <maya/M3dView.h>
#include <maya/MEvent.h>
#include <maya/MGlobal.h>
#include <maya/MUIDrawManager.h>
#include <mhost/Interaction.h>

#include <initializer_list>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "drawing/DisplayList.h"
#include "drawing/DrawRecorder.h"
#include "drawing/HostFrameContext.h"
#include "geometry/functions.h"
#include "interaction/ContextState.h"
#include "tests/plugin/geometryScene.h"
#include "tool/kyStrake.h"

namespace kytest {

enum Modifier {
    kNoKey = 0,
    kShift = MEvent::shiftKey,
    kCtrl = MEvent::controlKey,
    kShiftCtrl = kShift | kCtrl
};
constexpr int kLeft = MEvent::kLeftMouse;
// The entries of an id array, for comparing.
inline std::vector<int> asVector(const MIntArray& array) {
    std::vector<int> entries;
    for (unsigned i = 0; i < array.length(); ++i) entries.push_back(array[i]);
    return entries;
}
using Ids = std::vector<int>;
// An id array from a list.
inline MIntArray idArray(std::initializer_list<int> ids) {
    MIntArray array;
    for (int id : ids) array.append(id);
    return array;
}

constexpr int kMiddle = MEvent::kMiddleMouse;

class ContextScene : public GeometryScene {
protected:
    void SetUp() override {
        GeometryScene::SetUp();
        ASSERT_TRUE(mhost::driver::setViewSize(640, 480));
        ASSERT_TRUE(mhost::driver::placeCamera(MPoint(5.0, -20.0, 15.0), MPoint(5.0, 0.0, 5.0)));
    }

    // A locator with a 10 x 10 source grid (y = 0, x and z from 0 to 10) connected to it.
    void makeSourceScene() {
        locator = makeLocator();
        source = makeGrid(10, 10);
        connectSource(source, locator);
    }

    void TearDown() override {
        // An active context must be switched off before it goes, or its event callbacks outlive it.
        for (kyStrakeContext* context : active) context->toolOffCleanup();
        active.clear();
        contexts.clear();
        GeometryScene::TearDown();
    }

    // A context as the context command makes it, so that newToolCommand gives kyStrakeToolCmd.
    // The scene owns it until the test ends.
    kyStrakeContext* makeContext() {
        contexts.push_back(std::make_unique<kyStrakeContext>());
        mhost::ContextState::of(*contexts.back()).contextCommand = "kyStrakeContext";
        return contexts.back().get();
    }
    void activate(kyStrakeContext& context) {
        MEvent setup;
        context.toolOnSetup(setup);
        active.insert(&context);
    }
    void deactivate(kyStrakeContext& context) {
        context.toolOffCleanup();
        active.erase(&context);
    }

    // The view pixel of a world point in the active view.
    static MEvent eventAt(const MPoint& world, int button, int modifiers = kNoKey) {
        short x = 0, y = 0;
        M3dView::active3dView().worldToView(world, x, y);
        return mhost::makeEvent(x, y, button, modifiers);
    }

    MStatus press(kyStrakeContext& context, const MPoint& world, int button, int modifiers = kNoKey) {
        MEvent event = eventAt(world, button, modifiers);
        return context.doPress(event, drawManager, frameContext);
    }
    MStatus drag(kyStrakeContext& context, const MPoint& world, int button, int modifiers = kNoKey) {
        MEvent event = eventAt(world, button, modifiers);
        return context.doDrag(event, drawManager, frameContext);
    }
    MStatus release(kyStrakeContext& context, const MPoint& world, int button, int modifiers = kNoKey) {
        MEvent event = eventAt(world, button, modifiers);
        return context.doRelease(event, drawManager, frameContext);
    }
    // Press at the first point, drag through all, release at the last.
    void stroke(kyStrakeContext& context, std::initializer_list<MPoint> points, int button = kLeft,
                int modifiers = kNoKey) {
        press(context, *points.begin(), button, modifiers);
        for (const MPoint& point : points) drag(context, point, button, modifiers);
        release(context, *(points.end() - 1), button, modifiers);
    }

    static void setOption(const std::string& name, int value) {
        ASSERT_TRUE(mhost::driver::runCommand("optionVar -iv " + name + " " + std::to_string(value)));
    }
    static std::string option(const std::string& name) {
        std::string value;
        mhost::driver::runCommand("optionVar -q " + name, &value);
        return value;
    }
    static std::vector<int> intArray(const char* attribute, const MObject& node) {
        MIntArray values;
        getIntArrayAttr(attribute, node, values);
        return asVector(values);
    }
    static MPointArray pointArray(const char* attribute, const MObject& node) {
        MPointArray values;
        getPointArrayAttr(attribute, node, values);
        return values;
    }

    std::vector<std::unique_ptr<kyStrakeContext>> contexts;
    std::set<kyStrakeContext*> active;
    MObject locator;
    MDagPath source;
    mhost::DisplayList displayList;
    mhost::DrawRecorder drawRecorder{displayList};
    MHWRender::MUIDrawManager& drawManager = drawRecorder.manager();
    mhost::HostFrameContext frameContext{MDagPath(), 640, 480};
};

}  // namespace kytest
