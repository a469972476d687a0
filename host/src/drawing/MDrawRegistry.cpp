#include <maya/MDrawRegistry.h>

#include "drawing/DrawOverrideCache.h"
#include "drawing/DrawOverrideRegistry.h"

namespace MHWRender {

MStatus MDrawRegistry::registerDrawOverrideCreator(const MString& drawClassification,
                                                   const MString& registrantId, DrawOverrideCreator creator) {
    if (drawClassification.length() == 0 || !creator) return MS::kInvalidParameter;
    const bool added =
        mhost::drawOverrideRegistry().add({drawClassification.asChar(), registrantId.asChar(), creator});
    return added ? MS::kSuccess : MS::kFailure;
}

MStatus MDrawRegistry::deregisterDrawOverrideCreator(const MString& drawClassification,
                                                     const MString& registrantId) {
    DrawOverrideCreator creator =
        mhost::drawOverrideRegistry().remove(drawClassification.asChar(), registrantId.asChar());
    if (!creator) return MS::kFailure;
    // The overrides run code of the plug-in, which may be unloaded right after this call.
    mhost::drawOverrideCache().dropMadeBy(creator);
    return MS::kSuccess;
}

const char* MDrawRegistry::className() { return "MDrawRegistry"; }

}  // namespace MHWRender
