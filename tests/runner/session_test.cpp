#include "runner/Session.h"

#include <gtest/gtest.h>

namespace {

using namespace kystrake;

std::string errorOf(const std::string& text) {
    try {
        parseSession(text);
    } catch (const SessionError& error) {
        return error.what();
    }
    return "";
}

TEST(SessionParsing, ReadsEveryKindOfStep) {
    Session s = parseSession(R"({
        "source": {"procedural": "sphere", "triangles": 5000},
        "view": {"width": 800, "height": 600},
        "steps": [
            {"optionVar": {"ky_uspan": 6}}, {"optionVar": {"ky_strakeRadius": 2.5}},
            {"select": "retopo"}, {"press": [10, 20], "button": "middle", "ctrl": true},
            {"drag": [[11, 21], [12, 22]]}, {"release": [12, 22]}, {"move": [5, 5]},
            {"key": "enter"}, {"command": "select -cl"}, {"undo": 2}, {"redo": 1},
            {"frame": "after"}, {"camera": {"eye": [0, 0, 10], "target": [0, 0, 0], "fov": 30}}
        ]})");
    EXPECT_EQ("sphere", s.source.procedural);
    EXPECT_EQ(5000, s.source.triangles);
    EXPECT_EQ(800, s.viewWidth);
    ASSERT_EQ(13u, s.steps.size());
    EXPECT_EQ(6, std::get<int>(std::get<SetOptionVar>(s.steps[0]).value));
    EXPECT_DOUBLE_EQ(2.5, std::get<double>(std::get<SetOptionVar>(s.steps[1]).value));
    const auto& press = std::get<Press>(s.steps[3]);
    EXPECT_EQ(MouseButton::kMiddle, press.button);
    EXPECT_TRUE(press.modifiers.ctrl);
    EXPECT_FALSE(press.modifiers.shift);
    EXPECT_EQ(2u, std::get<Drag>(s.steps[4]).path.size());
    EXPECT_EQ(Key::Name::kEnter, std::get<Key>(s.steps[7]).name);
    EXPECT_EQ(2, std::get<Undo>(s.steps[9]).times);
    EXPECT_DOUBLE_EQ(30, std::get<CameraPlacement>(s.steps[12]).fieldOfViewDegrees);
}

TEST(SessionParsing, DefaultsNeedOnlySteps) {
    Session s = parseSession(R"({"steps": []})");
    EXPECT_EQ("limb", s.source.procedural);
    EXPECT_TRUE(s.source.objPath.empty());
    EXPECT_FALSE(s.camera.has_value());
}

TEST(SessionParsing, ErrorsNameTheStepAndTheField) {
    EXPECT_EQ("step 2 (press): field \"press\" must be a pixel [x, y]",
              errorOf(R"({"steps": [{"key": "enter"}, {"press": [1]}]})"));
    EXPECT_EQ("step 1 (press): field \"button\" must be \"left\" or \"middle\"",
              errorOf(R"({"steps": [{"press": [1, 2], "button": "right"}]})"));
    EXPECT_EQ("step 1 (undo): field \"undo\" must be at least 1", errorOf(R"({"steps": [{"undo": 0}]})"));
    EXPECT_EQ("step 1: has both \"press\" and \"release\"",
              errorOf(R"({"steps": [{"press": [1, 2], "release": [1, 2]}]})"));
    EXPECT_NE(std::string::npos,
              errorOf(R"({"steps": [{"jump": 1}]})").find("names no action; expected one of press"));
    EXPECT_EQ("session: field \"steps\" must be a list of steps", errorOf(R"({"view": {}})"));
    EXPECT_EQ("session: field \"view\" must be between 16 and 8192 pixels on each side",
              errorOf(R"({"view": {"width": 2}, "steps": []})"));
    EXPECT_EQ(
        "session: field \"source.procedural\" must be \"limb\", \"relief\", \"sphere\", \"torus\" or "
        "\"plane\"",
        errorOf(R"({"source": {"procedural": "cube"}, "steps": []})"));
    EXPECT_NE(std::string::npos, errorOf("{not json").find("session: not valid JSON"));
    EXPECT_EQ("step 1 (drag): field \"drag\" must be a non-empty list of pixels [[x, y], ...]",
              errorOf(R"({"steps": [{"drag": []}]})"));
}

TEST(SessionParsing, PressesAndReleasesCanNameAVertex) {
    Session s = parseSession(R"({"steps": [
        {"press": {"vertex": 88, "offset": [-6, -6]}, "ctrl": true, "shift": true},
        {"release": {"vertex": 3, "mesh": "kyMeshShape1"}}]})");
    const auto& press = std::get<VertexPlace>(std::get<Press>(s.steps[0]).at);
    EXPECT_EQ(88, press.vertex);
    EXPECT_TRUE(press.mesh.empty());
    EXPECT_EQ((Pixel{-6, -6}), press.offset);
    const auto& release = std::get<VertexPlace>(std::get<Release>(s.steps[1]).at);
    EXPECT_EQ("kyMeshShape1", release.mesh);
    EXPECT_EQ((Pixel{0, 0}), release.offset);
    EXPECT_EQ("step 1 (press): field \"press.vertex\" must not be negative",
              errorOf(R"({"steps": [{"press": {"vertex": -1}}]})"));
    EXPECT_EQ("step 1 (release): field \"release\" must be a pixel [x, y] or {\"vertex\": id}",
              errorOf(R"({"steps": [{"release": {"mesh": "m"}}]})"));
    EXPECT_EQ("step 1 (press): field \"press.offset\" must be a pixel [x, y]",
              errorOf(R"({"steps": [{"press": {"vertex": 1, "offset": 3}}]})"));
}

TEST(SessionParsing, MissingFileIsASessionError) {
    EXPECT_THROW(loadSession("/nonexistent/session.json"), SessionError);
}

}  // namespace
