#include "runner/SessionPlayer.h"

#include <maya/MDagPath.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MItDag.h>
#include <maya/MPointArray.h>
#include <maya/MSelectionList.h>
#include <mhost/Driver.h>
#include <mhost/Frames.h>
#include <mhost/Interaction.h>

#include <cstdio>

namespace kystrake {
namespace {

namespace driver = mhost::driver;

driver::MouseButton hostButton(MouseButton button) {
    return button == MouseButton::kMiddle ? driver::MouseButton::kMiddle : driver::MouseButton::kLeft;
}

driver::Modifiers hostModifiers(Modifiers m) { return {m.shift, m.ctrl}; }

// One step's work; returns the status of the host call it made.
class StepRunner {
public:
    StepRunner(const std::string& outDir, PlaybackResult& result, RunLog& log, int index)
        : outDir_(outDir), result_(result), log_(log), index_(index) {}

    MStatus operator()(const Press& s) {
        return driver::press(s.at[0], s.at[1], hostButton(s.button), hostModifiers(s.modifiers));
    }
    MStatus operator()(const Drag& s) {
        MStatus status;
        for (const Pixel& p : s.path) {
            status = driver::drag(p[0], p[1], hostButton(s.button), hostModifiers(s.modifiers));
            if (!status) break;
        }
        return status;
    }
    MStatus operator()(const Release& s) {
        return driver::release(s.at[0], s.at[1], hostButton(s.button), hostModifiers(s.modifiers));
    }
    MStatus operator()(const PointerMove& s) { return driver::movePointer(s.at[0], s.at[1]); }
    MStatus operator()(const Key& s) {
        static const driver::Key keys[] = {driver::Key::kEnter, driver::Key::kEscape,
                                           driver::Key::kBackspace};
        return driver::sendKey(keys[static_cast<int>(s.name)]);
    }
    // The command's result goes to the log, so that the answer of a query can be read there.
    MStatus operator()(const Command& s) {
        std::string result;
        const MStatus status = driver::runCommand(s.text, &result);
        if (status) log_.note("result: " + (result.empty() ? std::string("(empty)") : result));
        return status;
    }
    MStatus operator()(const SetOptionVar& s) {
        std::visit([&](const auto& value) { setOption(s.name, value); }, s.value);
        return MS::kSuccess;
    }
    MStatus operator()(const Select& s) {
        std::string script = "select -r";
        for (const auto& name : s.names) script += " \"" + name + "\"";
        return driver::runCommand(s.names.empty() ? "select -cl" : script);
    }
    MStatus operator()(const Undo& s) { return repeat(s.times, driver::undo); }
    MStatus operator()(const Redo& s) { return repeat(s.times, driver::redo); }
    MStatus operator()(const CameraPlacement& s) {
        return driver::placeCamera(MPoint(s.eye[0], s.eye[1], s.eye[2]),
                                   MPoint(s.target[0], s.target[1], s.target[2]));
    }
    MStatus operator()(const Frame& s) {
        std::string error;
        MStatus status = driver::runFrame(&error);
        char file[64];
        std::snprintf(file, sizeof file, "frame_%03d_", index_ + 1);
        const std::string path = outDir_ + "/" + file + (s.name.empty() ? "frame" : s.name) + ".png";
        if (status) status = driver::writeFramePicture(path, &error);
        if (status) result_.frames.push_back(path);
        return status;
    }

private:
    static void setOption(const std::string& name, int value) {
        MGlobal::setOptionVarValue(name.c_str(), value);
    }
    static void setOption(const std::string& name, double value) {
        MGlobal::setOptionVarValue(name.c_str(), value);
    }
    static void setOption(const std::string& name, const std::string& value) {
        MGlobal::setOptionVarValue(name.c_str(), MString(value.c_str()));
    }
    static MStatus repeat(int times, MStatus (*action)()) {
        MStatus status;
        for (int i = 0; i < times && status; ++i) status = action();
        return status;
    }

    const std::string& outDir_;
    PlaybackResult& result_;
    RunLog& log_;
    int index_;
};

const char* stepName(const Step& step) {
    static const char* const names[] = {"press",     "drag",   "release", "move", "key",   "command",
                                        "optionVar", "select", "undo",    "redo", "frame", "camera"};
    return names[step.index()];
}

MDagPath retopoMeshPath(const SceneNames& scene) {
    MSelectionList active;
    MGlobal::getActiveSelectionList(active);
    MDagPath path;
    if (active.length() && active.getDagPath(0, path) && path.extendToShape() && path.hasFn(MFn::kMesh))
        return path;
    for (MItDag it(MItDag::kDepthFirst, MFn::kMesh); !it.isDone(); it.next()) {
        it.getPath(path);
        MFnMesh mesh(path);
        if (path.partialPathName() != scene.sourceShape.c_str() && !mesh.isIntermediateObject()) return path;
    }
    return MDagPath();
}

}  // namespace

PlaybackResult playSession(const Session& session, const SceneNames&, const std::string& outDir,
                           RunLog& log) {
    PlaybackResult result;
    log.checkTextChannels();
    for (size_t i = 0; i < session.steps.size(); ++i) {
        const Step& step = session.steps[i];
        log.beginStep("step " + std::to_string(i + 1) + " " + stepName(step));
        StepRunner run(outDir, result, log, static_cast<int>(i));
        const MStatus status = std::visit(run, step);
        ++result.stepsRun;
        if (!status) {
            ++result.stepsFailed;
            log.note(std::string("failed: ") + status.errorString().asChar());
        }
        log.checkTextChannels();
    }
    return result;
}

bool writeRetopoMesh(const SceneNames& scene, const std::string& path) {
    MDagPath meshPath = retopoMeshPath(scene);
    if (!meshPath.isValid()) return false;
    MFnMesh mesh(meshPath);
    MPointArray points;
    mesh.getPoints(points, MSpace::kWorld);
    PolygonMesh out;
    for (unsigned int i = 0; i < points.length(); ++i)
        out.points.push_back({points[i].x, points[i].y, points[i].z});
    MIntArray counts, connects;
    mesh.getVertices(counts, connects);
    for (unsigned int i = 0; i < counts.length(); ++i) out.polygonCounts.push_back(counts[i]);
    for (unsigned int i = 0; i < connects.length(); ++i) out.polygonConnects.push_back(connects[i]);
    writeObj(out, path);
    return true;
}

}  // namespace kystrake
