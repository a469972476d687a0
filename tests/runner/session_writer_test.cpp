#include <gtest/gtest.h>

#include "runner/SessionWriter.h"

namespace {

using namespace kystrake;

// Every kind of step, with the fields that differ from the reader's defaults, comes back as written.
TEST(SessionWriter, WrittenSessionReadsBackStepForStep) {
    Session session;
    session.source = {"", "torus", 5000};
    session.viewWidth = 700;
    session.viewHeight = 500;
    session.camera = CameraPlacement{{0.1, 2.0 / 3.0, 9.0}, {0.0, 1e-17, -0.5}, 40.0};
    session.steps = {Press{Pixel{10, 20}, MouseButton::kMiddle, {true, true}},
                     Drag{{{11, 21}, {12, 22}}, MouseButton::kLeft, {false, true}},
                     Release{VertexPlace{"pPlane1", 3, {2, -1}}, MouseButton::kLeft, {true, false}},
                     PointerMove{{5, 6}},
                     Key{Key::Name::kBackspace},
                     Command{"kyStrakeContext -e -pinch 0.10000000000000001 kyStrakeContext1"},
                     SetOptionVar{"ky_uspan", 8},
                     SetOptionVar{"ky_strakeIntens", 12.5},
                     SetOptionVar{"label", std::string("a, b")},
                     Select{{"a", "b"}},
                     Undo{2},
                     Redo{1},
                     Frame{"end"},
                     CameraPlacement{{1, 2, 3}, {0, 0, 0}, 45.0},
                     SaveScene{"mid.json"},
                     LoadScene{"mid.json"}};
    const Session back = parseSession(sessionJson(session));
    EXPECT_EQ(back.source.procedural, "torus");
    EXPECT_EQ(back.source.triangles, 5000);
    EXPECT_EQ(back.viewWidth, 700);
    EXPECT_EQ(back.viewHeight, 500);
    ASSERT_TRUE(back.camera);
    EXPECT_EQ(back.camera->eye, session.camera->eye);  // bit for bit, or replays drift
    EXPECT_EQ(back.camera->target, session.camera->target);
    ASSERT_EQ(back.steps.size(), session.steps.size());
    for (size_t i = 0; i < back.steps.size(); ++i)
        EXPECT_EQ(back.steps[i].index(), session.steps[i].index()) << i;
    const auto& press = std::get<Press>(back.steps[0]);
    EXPECT_EQ(press.button, MouseButton::kMiddle);
    EXPECT_TRUE(press.modifiers.shift && press.modifiers.ctrl);
    const auto& drag = std::get<Drag>(back.steps[1]);
    EXPECT_EQ(drag.path, (std::vector<Pixel>{{11, 21}, {12, 22}}));
    EXPECT_TRUE(!drag.modifiers.shift && drag.modifiers.ctrl);
    const auto& release = std::get<Release>(back.steps[2]);
    const auto& place = std::get<VertexPlace>(release.at);
    EXPECT_EQ(place.mesh, "pPlane1");
    EXPECT_EQ(place.vertex, 3);
    EXPECT_EQ(place.offset, (Pixel{2, -1}));
    EXPECT_EQ(std::get<Key>(back.steps[4]).name, Key::Name::kBackspace);
    EXPECT_EQ(std::get<Command>(back.steps[5]).text, std::get<Command>(session.steps[5]).text);
    EXPECT_EQ(std::get<int>(std::get<SetOptionVar>(back.steps[6]).value), 8);
    EXPECT_EQ(std::get<double>(std::get<SetOptionVar>(back.steps[7]).value), 12.5);
    EXPECT_EQ(std::get<std::string>(std::get<SetOptionVar>(back.steps[8]).value), "a, b");
    EXPECT_EQ(std::get<Undo>(back.steps[10]).times, 2);
    EXPECT_EQ(std::get<SaveScene>(back.steps[14]).path, "mid.json");
    EXPECT_EQ(std::get<LoadScene>(back.steps[15]).path, "mid.json");
}

TEST(SessionWriter, ObjSourceIsWrittenAsAPath) {
    Session session;
    session.source.objPath = "/tmp/scan.obj";
    EXPECT_EQ(parseSession(sessionJson(session)).source.objPath, "/tmp/scan.obj");
}

}  // namespace
