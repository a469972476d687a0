// Malformed source meshes and session files: each is refused with one message that names the file
// and the line (or the step and field) at fault, while the odd but usable ones load.

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "runner/ObjFile.h"
#include "runner/Session.h"

namespace {

using namespace kystrake;

// A file of its own in the test's temporary folder, removed when the test ends.
class TempFile {
public:
    TempFile(const std::string& name, const std::string& text)
        : path_(testing::TempDir() + "hostile-" + name) {
        std::ofstream(path_, std::ios::binary) << text;
    }
    ~TempFile() { std::remove(path_.c_str()); }
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

std::string objError(const std::string& text) {
    TempFile file("bad.obj", text);
    try {
        readObj(file.path());
    } catch (const ObjError& error) {
        return error.what();
    }
    return "";
}

const char* const kTriangle = "v 0 0 0\nv 1 0 0\nv 0 1 0\n";

TEST(HostileObjFiles, BadVertexLinesAreRefusedWithTheirLine) {
    const std::string path = testing::TempDir() + "hostile-bad.obj";
    EXPECT_EQ("\"" + path + "\" line 3: a vertex needs three coordinates \"v x y z\"",
              objError("v 0 0 0\nv 1 0 0\nv 0 1"));
    EXPECT_EQ("\"" + path + "\" line 2: coordinate \"nan\" is not a number",
              objError("v 0 0 0\nv nan 0 0\nv 0 1 0\nf 1 2 3\n"));
    for (const char* huge : {"1e999", "-1e300", "3.5e38"})
        EXPECT_NE(std::string::npos,
                  objError(std::string("v 0 0 0\nv 1 0 0\nv 0 ") + huge + " 0\nf 1 2 3\n")
                      .find("line 3: coordinate \"" + std::string(huge) + "\" is not a finite number"))
            << huge;
    EXPECT_NE(std::string::npos, objError("v 0 0 0\nv inf 0 0\n").find("line 2: coordinate \"inf\""));
    EXPECT_NE(std::string::npos,
              objError("v 0 0 0x10\n").find("line 1: coordinate \"0x10\" is not a number"));
}

TEST(HostileObjFiles, BadFaceLinesAreRefusedWithTheirLine) {
    const std::string t = kTriangle;
    EXPECT_NE(std::string::npos, objError(t + "f 0 1 2\n").find("line 4: face corner \"0\" is 0"));
    EXPECT_NE(
        std::string::npos,
        objError(t + "f 1 2 4\n").find("line 4: face corner 4 names a vertex the file does not have (3"));
    EXPECT_NE(
        std::string::npos,
        objError(t + "f -1 -2 -4\n").find("line 4: face corner \"-4\" reaches back past the first vertex"));
    EXPECT_NE(std::string::npos, objError(t + "f 1 2\n").find("line 4: a face needs at least three corners"));
    EXPECT_NE(std::string::npos, objError(t + "f 1 2 2/1\n").find("line 4: face corner \"2/1\" repeats"));
    EXPECT_NE(std::string::npos, objError(t + "f 1 x 3\n").find("line 4: face corner \"x\" is not"));
    EXPECT_NE(std::string::npos, objError(t + "f 1 2 99999999999999999999\n").find("is not a vertex index"));
    // A relative index counts back from the vertices so far, not from the end of the file.
    EXPECT_NE(std::string::npos,
              objError(t + "f -1 -2 -3\nf -4 -2 -1\nv 1 1 1\n").find("line 5: face corner \"-4\""));
}

TEST(HostileObjFiles, FilesWithoutFacesOrUnreadableAreRefused) {
    TempFile lines("lines.obj", std::string(kTriangle) + "l 1 2 3\n");
    try {
        readObj(lines.path());
        FAIL() << "a file of lines alone was read";
    } catch (const ObjError& error) {
        EXPECT_EQ("\"" + lines.path() + "\" holds no polygons (no \"f\" lines)", std::string(error.what()));
    }
    EXPECT_NE(std::string::npos, objError("").find("holds no polygons"));
    EXPECT_THROW(readObj(testing::TempDir() + "hostile-missing.obj"), ObjError);
}

// What studio files carry besides positions and faces is left alone: CRLF line ends, UVs, normals,
// groups, materials, a fourth coordinate, corners with UV and normal ids, and statements no importer
// knows. Relative and forward indices name the vertices they mean.
TEST(HostileObjFiles, UsualExtrasAndLineEndsAreAccepted) {
    TempFile file("extras.obj",
                  "# exported\r\nmtllib face.mtl\r\no head\r\ng skin\r\nusemtl skin\r\ns 1\r\n"
                  "vt 0 0\r\nvn 0 0 1\r\nfrobnicate 1 2 3\r\n"
                  "v 0 0 0 1\r\nv 1 0 0\r\nv 1 1 0\r\n"
                  "f 1/1/1 2/1/1 3//1 4\r\nv 0 1 0\r\nf -4 -2 -1\r\n");
    const PolygonMesh mesh = readObj(file.path());
    ASSERT_EQ(4u, mesh.points.size());
    EXPECT_EQ((std::vector<int>{4, 3}), mesh.polygonCounts);
    EXPECT_EQ((std::vector<int>{0, 1, 2, 3, 0, 2, 3}), mesh.polygonConnects);
    EXPECT_EQ(1.0, mesh.points[3][1]);
}

// A million triangles in a strip are read whole: the checks on every line scale with the file.
TEST(HostileObjFiles, AMillionTinyFacesLoadWhole) {
    const int columns = 500000;
    std::string text;
    text.reserve(60u * columns);
    char line[64];
    for (int i = 0; i <= columns; ++i) {
        std::snprintf(line, sizeof line, "v %d.001 0 0\nv %d.001 0.001 0\n", i, i);
        text += line;
    }
    for (int i = 0; i < columns; ++i) {
        const int a = 2 * i + 1;
        std::snprintf(line, sizeof line, "f %d %d %d\nf %d %d %d\n", a, a + 2, a + 1, a + 1, a + 2, a + 3);
        text += line;
    }
    TempFile file("million.obj", text);
    const PolygonMesh mesh = readObj(file.path());
    EXPECT_EQ(1000000u, mesh.polygonCounts.size());
    EXPECT_EQ(static_cast<size_t>(2 * columns + 2), mesh.points.size());
}

std::string sessionError(const std::string& text) {
    try {
        parseSession(text);
    } catch (const SessionError& error) {
        return error.what();
    }
    return "";
}

TEST(HostileSessions, HugeNumbersAreRefusedAtLoad) {
    EXPECT_EQ("step 1 (press): field \"press\" must be a pixel [x, y] with x and y between -32767 and 32767",
              sessionError(R"({"steps": [{"press": [1e300, 5]}]})"));
    EXPECT_NE(std::string::npos,
              sessionError(R"({"steps": [{"drag": [[1, 2], [3, -40000]]}]})").find("step 1 (drag)"));
    EXPECT_NE(
        std::string::npos,
        sessionError(R"({"steps": [{"press": {"vertex": 1, "offset": [0, 99999]}}]})").find("press.offset"));
    EXPECT_EQ("step 1 (undo): field \"undo\" is too large",
              sessionError(R"({"steps": [{"undo": 10000000000}]})"));
    EXPECT_EQ("step 1 (redo): field \"redo\" is too large",
              sessionError(R"({"steps": [{"redo": 18446744073709551615}]})"));
    EXPECT_EQ("step 1 (optionVar): field \"optionVar\" value is too large for an int",
              sessionError(R"({"steps": [{"optionVar": {"ky_uspan": 4294967296}}]})"));
    EXPECT_EQ("session: field \"camera.eye\" must be a point [x, y, z] with coordinates between -1e9 and 1e9",
              sessionError(R"({"camera": {"eye": [0, 1e300, 0], "target": [0, 0, 0]}, "steps": []})"));
    EXPECT_EQ("session: field \"view.width\" is too large",
              sessionError(R"({"view": {"width": 100000000000}, "steps": []})"));
    // The largest pixel that is still a short passes.
    EXPECT_EQ("", sessionError(R"({"steps": [{"press": [32767, -32767]}]})"));
}

TEST(HostileSessions, WrongTypesMissingAndUnknownFieldsNameTheField) {
    EXPECT_EQ("step 2 (press): field \"buton\" is not a known field",
              sessionError(R"({"steps": [{"key": "enter"}, {"press": [1, 2], "buton": "middle"}]})"));
    EXPECT_EQ("step 1 (key): field \"shift\" is not a known field",
              sessionError(R"({"steps": [{"key": "enter", "shift": true}]})"));
    EXPECT_EQ("session: field \"sorce\" is not a known field", sessionError(R"({"sorce": {}, "steps": []})"));
    EXPECT_EQ("session: field \"source.triangle\" is not a known field",
              sessionError(R"({"source": {"triangle": 9}, "steps": []})"));
    EXPECT_EQ("session: field \"camera.up\" is not a known field",
              sessionError(R"({"camera": {"eye": [0, 0, 1], "target": [0, 0, 0], "up": 1}, "steps": []})"));
    EXPECT_EQ("step 1 (press): field \"press.vertx\" is not a known field",
              sessionError(R"({"steps": [{"press": {"vertex": 1, "vertx": 2}}]})"));
    EXPECT_EQ("step 1 (undo): field \"undo\" must be a whole number",
              sessionError(R"({"steps": [{"undo": "2"}]})"));
    EXPECT_EQ("step 1 (press): field \"shift\" must be true or false",
              sessionError(R"({"steps": [{"press": [1, 2], "shift": 1}]})"));
    EXPECT_EQ("session: field \"camera\" needs \"eye\" and \"target\"",
              sessionError(R"({"camera": {"eye": [0, 0, 1]}, "steps": []})"));
    EXPECT_EQ("session: field \"steps\" must be a list of steps",
              sessionError(R"({"steps": {"press": [1, 2]}})"));
    EXPECT_EQ("step 1: must be an object such as {\"press\": [x, y]}",
              sessionError(R"({"steps": [[1, 2]]})"));
    EXPECT_NE(std::string::npos,
              sessionError(R"({"steps": [{"teleport": [1, 2]}]})").find("step 1: names no action"));
    EXPECT_EQ("step 1 (save): field \"save\" must be a file path",
              sessionError(R"({"steps": [{"save": ""}]})"));
    EXPECT_EQ("step 1 (load): field \"load\" must be a string", sessionError(R"({"steps": [{"load": 3}]})"));
    EXPECT_EQ("step 1 (frame): field \"frame\" must be a name without '/' or '\\'",
              sessionError(R"({"steps": [{"frame": "../../escape"}]})"));
}

TEST(HostileSessions, FileErrorsNameTheFileAndSyntaxErrorsTheLine) {
    TempFile broken("broken.json",
                    "{\n  \"steps\": [\n    {\"key\": \"enter\"},\n    {\"press\": [1, 2]\n  ]\n}\n");
    try {
        loadSession(broken.path());
        FAIL() << "a broken session was read";
    } catch (const SessionError& error) {
        const std::string message = error.what();
        EXPECT_EQ(0u, message.find("\"" + broken.path() + "\" session: not valid JSON")) << message;
        EXPECT_NE(std::string::npos, message.find("line 5")) << message;
    }
    TempFile typed("typed.json", R"({"steps": [{"move": [1, 2]}, {"move": "here"}]})");
    try {
        loadSession(typed.path());
        FAIL() << "a session with a bad step was read";
    } catch (const SessionError& error) {
        EXPECT_EQ("\"" + typed.path() + "\" step 2 (move): field \"move\" must be a pixel [x, y]",
                  std::string(error.what()));
    }
}

TEST(HostileSessions, SaveAndLoadStepsKeepTheirPaths) {
    const Session session = parseSession(R"({"steps": [{"save": "mid.json"}, {"load": "/tmp/x.json"}]})");
    ASSERT_EQ(2u, session.steps.size());
    EXPECT_EQ("mid.json", std::get<SaveScene>(session.steps[0]).path);
    EXPECT_EQ("/tmp/x.json", std::get<LoadScene>(session.steps[1]).path);
    EXPECT_STREQ("load", actionName(session.steps[1]));
}

}  // namespace
