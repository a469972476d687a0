#include "studio/LiveSession.h"

#include <maya/MGlobal.h>
#include <mhost/SceneFile.h>

#include "runner/SessionPlayer.h"
#include "runner/SourceMeshes.h"

namespace kystrake {
namespace {

bool continuesDrag(const Step& recorded, const Drag& next) {
    const Drag* last = std::get_if<Drag>(&recorded);
    return last && last->button == next.button && last->modifiers.shift == next.modifiers.shift &&
           last->modifiers.ctrl == next.modifiers.ctrl;
}

std::string linesOf(const char* optionVar) {
    std::string text = MGlobal::optionVarStringValue(optionVar).asChar();
    for (char& c : text)
        if (c == ',') c = '\n';
    return text;
}

}  // namespace

LiveSession::LiveSession(const Session& start, const std::string& pluginPath)
    : pluginPath_(pluginPath), log_(std::make_unique<RunLog>(true)) {
    restart(start);
}

void LiveSession::restart(const Session& start) {
    const PolygonMesh source = loadSourceMesh(start.source);
    session_ = start;
    session_.steps.clear();
    sourcePolygons_ = source.polygonCounts.size();
    if (!session_.camera) session_.camera = framingCamera(source);
    scene_ = setUpScene(session_, source, pluginPath_);
    recording_ = true;
}

bool LiveSession::perform(const Step& step) {
    Session single;
    single.steps.push_back(step);
    performing_ = true;
    const PlaybackResult result = playSession(single, scene_, "", *log_);
    performing_ = false;
    record(step);
    return result.stepsFailed == 0;
}

void LiveSession::record(const Step& step) {
    if (!recording_) return;
    const Drag* drag = std::get_if<Drag>(&step);
    if (drag && !session_.steps.empty() && continuesDrag(session_.steps.back(), *drag)) {
        auto& path = std::get<Drag>(session_.steps.back()).path;
        path.insert(path.end(), drag->path.begin(), drag->path.end());
        return;
    }
    session_.steps.push_back(step);
}

bool LiveSession::loadScene(const std::string& path, std::string& error) {
    if (!mhost::driver::loadScene(path, &error)) return false;
    recording_ = false;
    return true;
}

std::string statusText() { return linesOf("kyStrake_info1"); }
std::string helpText() { return linesOf("kyStrake_info2"); }

}  // namespace kystrake
