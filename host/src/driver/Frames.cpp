#include <mhost/Frames.h>

#include "drawing/DrawDirtyRequests.h"
#include "drawing/FramePicture.h"
#include "drawing/FrameRunner.h"
#include "drawing/HostFrameContext.h"

namespace mhost {
namespace driver {
namespace {

MStatus failure(std::string* error, const std::string& why) {
    if (error) *error = why;
    return MS::kFailure;
}

}  // namespace

MStatus runFrame(std::string* error) {
    try {
        mhost::runFrame();
    } catch (const std::exception& e) {
        return failure(error, e.what());
    }
    return MS::kSuccess;
}

std::vector<FrameDrawing> frameDrawings() {
    return lastFrame() ? lastFrame()->layers : std::vector<FrameDrawing>();
}

std::vector<DrawDirtyRequest> drawDirtyRequests() { return mhost::drawDirtyRequests(); }

MStatus writeFramePicture(const std::string& path, std::string* error) {
    if (!lastFrame()) return failure(error, "frames: no frame has been run yet");
    try {
        const QImage image = renderFrame(*lastFrame(), pictureMeshes());
        if (!image.save(QString::fromStdString(path), "PNG")) return failure(error, "cannot write " + path);
    } catch (const std::exception& e) {
        return failure(error, e.what());
    }
    return MS::kSuccess;
}

void setUserChangingView(bool changing) { mhost::setUserChangingView(changing); }

}  // namespace driver
}  // namespace mhost
