// The kystrake program on bad input files: exit code 2, one line on the standard error stream naming
// the file and the place at fault, and no output folder.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

struct ProgramRun {
    int exitCode = -1;
    std::string errorText;
};

std::string folderFor(const std::string& name) { return testing::TempDir() + "kystrake-exit-" + name; }

std::string writeFile(const std::string& name, const std::string& text) {
    const std::string path = testing::TempDir() + "kystrake-exit-" + name;
    std::ofstream(path, std::ios::binary) << text;
    return path;
}

// Runs `kystrake run` on a session, writing into the test's own folder.
ProgramRun runProgram(const std::string& name, const std::string& sessionPath,
                      const std::string& extra = "") {
    const std::string errorPath = folderFor(name) + ".stderr";
    std::filesystem::remove_all(folderFor(name));
    const std::string command = std::string(KY_RUNNER_PROGRAM) + " run " + sessionPath + " --out " +
                                folderFor(name) + " " + extra + " >/dev/null 2>" + errorPath;
    const int status = std::system(command.c_str());
    ProgramRun run;
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    std::ifstream file(errorPath);
    std::stringstream text;
    text << file.rdbuf();
    run.errorText = text.str();
    return run;
}

void expectRefused(const ProgramRun& run, const std::string& name, const std::string& fragment) {
    EXPECT_EQ(2, run.exitCode) << run.errorText;
    EXPECT_EQ(1, std::count(run.errorText.begin(), run.errorText.end(), '\n')) << run.errorText;
    EXPECT_NE(std::string::npos, run.errorText.find(fragment)) << run.errorText;
    EXPECT_FALSE(std::filesystem::exists(folderFor(name))) << "the run wrote its output folder";
}

const char* const kSmallPlane = R"("source": {"procedural": "plane", "triangles": 200})";

TEST(ProgramExit, BadSourceMeshesEndWithCodeTwoAndWriteNothing) {
    const std::string session = writeFile("plain.json", R"({"steps": [{"key": "enter"}]})");
    const std::string nan = writeFile("nan.obj", "v 0 0 0\nv 1 nan 0\nv 0 1 0\nf 1 2 3\n");
    expectRefused(runProgram("nan", session, "--source " + nan), "nan", "\"" + nan + "\" line 2: coordinate");
    const std::string faces = writeFile("faces.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 7\n");
    expectRefused(runProgram("faces", session, "--source " + faces), "faces",
                  "\"" + faces + "\" line 4: face");
}

TEST(ProgramExit, BadSessionsEndWithCodeTwoAndWriteNothing) {
    const std::string huge =
        writeFile("huge.json", std::string("{") + kSmallPlane +
                                   R"(, "steps": [{"key": "enter"}, {"press": [1e300, 0]}]})");
    expectRefused(runProgram("huge", huge), "huge", "\"" + huge + "\" step 2 (press): field \"press\"");
    const std::string kind = writeFile("kind.json", R"({"steps": [{"jump": 1}]})");
    expectRefused(runProgram("kind", kind), "kind", "step 1: names no action");
}

// A load step's scene file is checked before the first step runs, once the plug-in gives its types.
TEST(ProgramExit, ACorruptSceneFileEndsWithCodeTwoAndWritesNothing) {
    const std::string scene =
        writeFile("corrupt-scene.json", R"({"format": "mhost-scene", "version": 1, "nodes": 7})");
    const std::string session =
        writeFile("load.json", std::string("{") + kSmallPlane +
                                   R"(, "steps": [{"key": "enter"}, {"load": ")" + scene + R"("}]})");
    expectRefused(runProgram("corrupt", session), "corrupt",
                  "step 2 (load): " + scene + ": scene file: \"nodes\"");
    const std::string truncated =
        writeFile("truncated-scene.json", "{\"format\": \"mhost-scene\",\n \"nodes\": [");
    const std::string second = writeFile(
        "load2.json", std::string("{") + kSmallPlane + R"(, "steps": [{"load": ")" + truncated + R"("}]})");
    expectRefused(runProgram("truncated", second), "truncated", "line 2");
}

// A scene saved by one step and loaded by a later one is not there yet when the run starts.
TEST(ProgramExit, ASceneSavedEarlierInTheSessionLoads) {
    const std::string session =
        writeFile("saveload.json", std::string("{") + kSmallPlane +
                                       R"(, "steps": [{"save": "mid.json"}, {"load": "mid.json"}]})");
    const ProgramRun run = runProgram("saveload", session);
    EXPECT_EQ(0, run.exitCode) << run.errorText;
    EXPECT_TRUE(std::filesystem::exists(folderFor("saveload") + "/mid.json"));
}

}  // namespace
