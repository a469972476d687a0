#include "runner/SessionPlayer.h"

#include <maya/M3dView.h>
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
#include <mhost/SceneFile.h>

#include <cstdio>

namespace kystrake {
namespace {

namespace driver = mhost::driver;

driver::MouseButton hostButton(MouseButton button) {
    return button == MouseButton::kMiddle ? driver::MouseButton::kMiddle : driver::MouseButton::kLeft;
}

driver::Modifiers hostModifiers(Modifiers m) { return {m.shift, m.ctrl}; }

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

// The shape called `name`, or the retopo mesh when the name is empty.
MDagPath meshNamed(const std::string& name, const SceneNames& scene) {
    if (name.empty()) return retopoMeshPath(scene);
    MSelectionList list;
    MDagPath path;
    if (!list.add(name.c_str()) || !list.getDagPath(0, path) || !path.extendToShape()) return MDagPath();
    return path;
}

// One step's work; returns the status of the host call it made.
class StepRunner {
public:
    StepRunner(const SceneNames& scene, const std::string& outDir, PlaybackResult& result, RunLog& log,
               int index)
        : scene_(scene), outDir_(outDir), result_(result), log_(log), index_(index) {}

    MStatus operator()(const Press& s) {
        Pixel at;
        const MStatus status = pixelOf(s.at, at);
        if (!status) return status;
        return driver::press(at[0], at[1], hostButton(s.button), hostModifiers(s.modifiers));
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
        Pixel at;
        const MStatus status = pixelOf(s.at, at);
        if (!status) return status;
        return driver::release(at[0], at[1], hostButton(s.button), hostModifiers(s.modifiers));
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
    // Through the script commands, so that the log shows each step undone or redone.
    MStatus operator()(const Undo& s) { return repeat(s.times, "undo"); }
    MStatus operator()(const Redo& s) { return repeat(s.times, "redo"); }
    MStatus operator()(const CameraPlacement& s) {
        return driver::placeCamera(MPoint(s.eye[0], s.eye[1], s.eye[2]),
                                   MPoint(s.target[0], s.target[1], s.target[2]));
    }
    MStatus operator()(const SaveScene& s) {
        std::string error;
        const MStatus status = driver::saveScene(scenePath(s.path, outDir_), &error);
        if (!status) log_.note(error);
        return status;
    }
    MStatus operator()(const LoadScene& s) {
        std::string error;
        const MStatus status = reopenScene(scenePath(s.path, outDir_), scene_, &error);
        if (!status) log_.note(error);
        return status;
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
    // The pixel of a place: itself, or where the vertex shows in the active view now. A missing mesh
    // or vertex is logged and fails the step.
    MStatus pixelOf(const Place& place, Pixel& at) {
        if (const Pixel* pixel = std::get_if<Pixel>(&place)) {
            at = *pixel;
            return MS::kSuccess;
        }
        const VertexPlace& vertex = std::get<VertexPlace>(place);
        const MDagPath mesh = meshNamed(vertex.mesh, scene_);
        MPoint point;
        if (!mesh.isValid() || vertex.vertex >= MFnMesh(mesh).numVertices() ||
            !MFnMesh(mesh).getPoint(vertex.vertex, point, MSpace::kWorld)) {
            log_.note("no vertex " + std::to_string(vertex.vertex) + " on " +
                      (vertex.mesh.empty() ? std::string("the retopo mesh") : vertex.mesh));
            return MS::kInvalidParameter;
        }
        short x = 0, y = 0;
        M3dView::active3dView().worldToView(point, x, y);
        at = {x + vertex.offset[0], y + vertex.offset[1]};
        return MS::kSuccess;
    }

    static void setOption(const std::string& name, int value) {
        MGlobal::setOptionVarValue(name.c_str(), value);
    }
    static void setOption(const std::string& name, double value) {
        MGlobal::setOptionVarValue(name.c_str(), value);
    }
    static void setOption(const std::string& name, const std::string& value) {
        MGlobal::setOptionVarValue(name.c_str(), MString(value.c_str()));
    }
    // Every one of the steps is tried: a step whose undo or redo fails is still off the queue, as
    // in Maya, and the next one goes on from there. The first failure is the step's status.
    static MStatus repeat(int times, const std::string& command) {
        MStatus first;
        for (int i = 0; i < times; ++i) {
            const MStatus status = driver::runCommand(command);
            if (first && !status) first = status;
        }
        return first;
    }

    const SceneNames& scene_;
    const std::string& outDir_;
    PlaybackResult& result_;
    RunLog& log_;
    int index_;
};

}  // namespace

PlaybackResult playSession(const Session& session, const SceneNames& scene, const std::string& outDir,
                           RunLog& log) {
    PlaybackResult result;
    log.checkTextChannels();
    for (size_t i = 0; i < session.steps.size(); ++i) {
        const MStatus status = playStep(session.steps[i], static_cast<int>(i), scene, outDir, result, log);
        ++result.stepsRun;
        if (!status) ++result.stepsFailed;
    }
    return result;
}

MStatus playStep(const Step& step, int index, const SceneNames& scene, const std::string& outDir,
                 PlaybackResult& result, RunLog& log) {
    log.beginStep("step " + std::to_string(index + 1) + " " + actionName(step));
    StepRunner run(scene, outDir, result, log, index);
    const MStatus status = std::visit(run, step);
    if (!status) log.note(std::string("failed: ") + status.errorString().asChar());
    log.checkTextChannels();
    return status;
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
