#pragma once
// Scenes for the draw override's tests: a kyStrake locator seen by a camera, its attributes set
// directly, one frame run through the host, and the primitives the override recorded picked out
// by kind, text or colour.

#include <gtest/gtest.h>
#include <maya/M3dView.h>
#include <maya/MColor.h>
#include <maya/MGlobal.h>
#include <mhost/Frames.h>
#include <mhost/Interaction.h>

#include <string>
#include <vector>

#include "drawing/DisplayList.h"
#include "geometry/functions.h"
#include "tests/plugin/geometryScene.h"

namespace kytest {

using mhost::DrawCall;
using mhost::DrawRecord;
using MHWRender::MUIDrawManager;
using Records = std::vector<const DrawRecord*>;

class DrawOverrideScene : public GeometryScene {
protected:
    void SetUp() override {
        GeometryScene::SetUp();
        ASSERT_TRUE(mhost::driver::setViewSize(640, 480));
        ASSERT_TRUE(mhost::driver::placeCamera(MPoint(5.0, -20.0, 15.0), MPoint(5.0, 0.0, 5.0)));
        locator = makeLocator();
    }

    // Runs a frame and returns the primitives the locator's override drew, in call order.
    Records drawFrame() {
        EXPECT_TRUE(mhost::driver::runFrame());
        list.reset();
        for (const auto& drawing : mhost::driver::frameDrawings())
            if (drawing.drawer == mhost::driver::FrameDrawing::Drawer::kDrawOverride) list = drawing.list;
        EXPECT_TRUE(list) << "the locator's override drew nothing";
        return list ? list->primitives() : Records();
    }

    // The primitives of one call, 2D or 3D as asked.
    static Records ofCall(const Records& records, DrawCall call, bool is2D) {
        Records found;
        for (const DrawRecord* record : records)
            if (record->call == call && record->is2D == is2D) found.push_back(record);
        return found;
    }

    // The primitives drawn in `color`.
    static Records inColor(const Records& records, const MColor& color) {
        Records found;
        for (const DrawRecord* record : records)
            if (record->state.color == color) found.push_back(record);
        return found;
    }

    // The text primitive reading `text`, or null.
    static const DrawRecord* textRecord(const Records& records, const std::string& text) {
        for (const DrawRecord* record : records)
            if (record->call == DrawCall::kText && record->text == text) return record;
        return nullptr;
    }

    // The texts drawn, in order.
    static std::vector<std::string> texts(const Records& records) {
        std::vector<std::string> found;
        for (const DrawRecord* record : records)
            if (record->call == DrawCall::kText) found.push_back(record->text);
        return found;
    }

    // Points of a polyline, none on the z = 0 plane (which markers take for view pixels).
    static MPointArray polyline(std::initializer_list<MPoint> points) {
        MPointArray array;
        for (const MPoint& point : points) array.append(point);
        return array;
    }

    void setInt(const char* name, int value) { ASSERT_TRUE(setIntAttr(name, locator, value)); }
    void setDouble(const char* name, double value) { ASSERT_TRUE(setDoubleAttr(name, locator, value)); }
    void setPoints(const char* name, const MPointArray& points) {
        ASSERT_TRUE(setPointArrayAttr(name, locator, points));
    }
    void setInts(const char* name, std::initializer_list<int> values) {
        MIntArray array;
        for (int value : values) array.append(value);
        ASSERT_TRUE(setIntArrayAttr(name, locator, array));
    }
    // Strokes and their sizes, as one stroke set.
    void setStrokeSet(const char* pointsName, const char* sizesName, const std::vector<MPointArray>& lines) {
        MPointArray points;
        MIntArray counts;
        for (const MPointArray& line : lines) {
            counts.append(static_cast<int>(line.length()));
            for (unsigned int i = 0; i < line.length(); ++i) points.append(line[i]);
        }
        setPoints(pointsName, points);
        ASSERT_TRUE(setIntArrayAttr(sizesName, locator, counts));
    }

    MObject locator;
    std::shared_ptr<const mhost::DisplayList> list;
};

// Whether two view positions agree to a hundredth of a pixel.
inline bool samePixel(const MPoint& a, const MPoint& b) {
    return std::abs(a.x - b.x) < 0.01 && std::abs(a.y - b.y) < 0.01;
}

}  // namespace kytest
