#include <gtest/gtest.h>
#include <maya/MColorArray.h>
#include <maya/MUIDrawManager.h>
#include <maya/MUintArray.h>

#include "drawing/DisplayList.h"
#include "drawing/DrawRecorder.h"

namespace {

using mhost::DrawCall;
using MHWRender::MUIDrawManager;

std::vector<DrawCall> callsOf(const mhost::DisplayList& list) {
    std::vector<DrawCall> calls;
    for (const auto& r : list.records) calls.push_back(r.call);
    return calls;
}

MPointArray pointsOf(std::initializer_list<MPoint> points) {
    MPointArray array;
    for (const auto& p : points) array.append(p);
    return array;
}

TEST(DrawManager, RecordsCallsInOrderWithTheStateTheyLeave) {
    mhost::DisplayList list;
    mhost::DrawRecorder recorder(list);
    MHWRender::MUIDrawManager& manager = recorder.manager();
    manager.beginDrawable();
    manager.setColor(MColor(1, 0, 0));
    manager.setLineWidth(2.5f);
    manager.setDepthPriority(990);
    manager.line(MPoint(0, 0, 0), MPoint(1, 1, 1));
    manager.setFontSize(16);
    manager.setFontName("Arial");
    manager.text2d(MPoint(10, 20), "1", MUIDrawManager::kCenter);
    manager.endDrawable();

    EXPECT_EQ((std::vector<DrawCall>{DrawCall::kBeginDrawable, DrawCall::kSetColor, DrawCall::kSetLineWidth,
                                     DrawCall::kSetDepthPriority, DrawCall::kLine, DrawCall::kSetFontSize,
                                     DrawCall::kSetFontName, DrawCall::kText, DrawCall::kEndDrawable}),
              callsOf(list));
    const auto& line = list.records[4];
    EXPECT_EQ(MColor(1, 0, 0), line.state.color);
    EXPECT_EQ(2.5f, line.state.lineWidth);
    EXPECT_EQ(990u, line.state.depthPriority);
    EXPECT_TRUE(line.state.inDrawable);
    EXPECT_FALSE(line.is2D);
    EXPECT_EQ(MPoint(1, 1, 1), line.points[1]);
    const auto& text = list.records[7];
    EXPECT_TRUE(text.is2D);
    EXPECT_EQ("1", text.text);
    EXPECT_EQ(MUIDrawManager::kCenter, text.alignment);
    EXPECT_EQ(16u, text.state.fontSize);
    EXPECT_EQ("Arial", text.state.fontName);
    EXPECT_EQ(0u, manager.depthPriority()) << "endDrawable resets the priority";
    EXPECT_EQ(2u, list.primitives().size());
}

TEST(DrawManager, BeginAndEndResetTheStateAndXrayMarksItsPrimitives) {
    mhost::DisplayList list;
    mhost::DrawRecorder recorder(list);
    MHWRender::MUIDrawManager& manager = recorder.manager();
    manager.setColor(MColor(0, 1, 0));
    manager.point(MPoint(1, 2, 3));  // outside any drawable: drawn with the state set so far
    manager.beginDrawInXray();
    manager.circle2d(MPoint(5, 5), 4.0, true);
    manager.endDrawInXray();
    manager.beginDrawable(7, true);
    manager.setLineStyle(MUIDrawManager::kDashed);
    manager.setLineStyle(1, 0xFF00);
    manager.arc(MPoint(), MVector(1, 0, 0), MVector(0, 1, 0), MVector(0, 0, 1), 2.0, 12, false);

    const auto prims = list.primitives();
    ASSERT_EQ(3u, prims.size());
    EXPECT_EQ(MColor(0, 1, 0), prims[0]->state.color);
    EXPECT_FALSE(prims[0]->state.inDrawable);
    EXPECT_TRUE(prims[1]->state.xray);
    EXPECT_EQ(MColor(), prims[1]->state.color) << "beginDrawInXray resets the colour";
    EXPECT_TRUE(prims[1]->filled);
    EXPECT_EQ(4.0, prims[1]->radius);
    EXPECT_FALSE(prims[2]->state.xray);
    EXPECT_EQ(MUIDrawManager::kSelectable, prims[2]->state.selectability);
    EXPECT_EQ(7u, prims[2]->state.selectionName);
    EXPECT_EQ(1u, prims[2]->state.stippleFactor);
    EXPECT_EQ(0xFF00, prims[2]->state.stipplePattern);
    EXPECT_EQ(MUIDrawManager::kDashed, prims[2]->state.lineStyle);
    EXPECT_EQ(12, prims[2]->subdivisions);
    EXPECT_EQ(MVector(0, 1, 0), prims[2]->arcEnd);
}

TEST(DrawManager, RefusesLineListsOfOddCountsAndEmptyPointSets) {
    mhost::DisplayList list;
    mhost::DrawRecorder recorder(list);
    MHWRender::MUIDrawManager& manager = recorder.manager();
    const MPointArray three = pointsOf({MPoint(0, 0), MPoint(1, 0), MPoint(2, 0)});
    EXPECT_EQ(MS::kInvalidParameter, manager.lineList(three, false).statusCode());
    EXPECT_EQ(MS::kInvalidParameter, manager.lineStrip(pointsOf({MPoint(0, 0)}), true).statusCode());
    EXPECT_EQ(MS::kInvalidParameter, manager.points(MPointArray(), false).statusCode());
    EXPECT_TRUE(list.records.empty());
    EXPECT_TRUE(manager.lineStrip(three, true));
    EXPECT_TRUE(manager.points(three, false));
    ASSERT_EQ(2u, list.records.size());
    EXPECT_TRUE(list.records[0].is2D);
    EXPECT_EQ(3u, list.records[1].points.size());
}

TEST(DrawManager, RecordsMeshIndicesAndColours) {
    mhost::DisplayList list;
    mhost::DrawRecorder recorder(list);
    MHWRender::MUIDrawManager& manager = recorder.manager();
    const MPointArray corners = pointsOf({MPoint(0, 0), MPoint(10, 0), MPoint(0, 10)});
    MUintArray indices;
    for (unsigned int i : {2u, 1u, 0u}) indices.append(i);
    MColorArray colors(3, MColor(0, 0, 1));
    manager.mesh(MUIDrawManager::kTriangles, corners, nullptr, &colors, &indices);
    manager.mesh2d(MUIDrawManager::kTriStrip, corners);

    ASSERT_EQ(2u, list.records.size());
    EXPECT_EQ((std::vector<unsigned int>{2, 1, 0}), list.records[0].indices);
    EXPECT_EQ(3u, list.records[0].colors.size());
    EXPECT_FALSE(list.records[0].is2D);
    EXPECT_EQ(MUIDrawManager::kTriStrip, list.records[1].primitive);
    EXPECT_TRUE(list.records[1].is2D);
    EXPECT_TRUE(list.records[1].indices.empty());
}

}  // namespace
