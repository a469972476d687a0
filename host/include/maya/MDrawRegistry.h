#pragma once
// MHWRender::MDrawRegistry: where plug-ins register the creators of their draw overrides, under a
// draw classification ("drawdb/geometry/...") and a registrant id. A node type whose classification
// names a registered draw classification is drawn by overrides that creator makes.

#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypes.h>

namespace MHWRender {

class MPxDrawOverride;

class OPENMAYARENDER_EXPORT MDrawRegistry {
public:
    // Makes the override of one node, given the node.
    typedef MPxDrawOverride* (*DrawOverrideCreator)(const MObject&);

    // kInvalidParameter for an empty classification or a null creator; kFailure when the same
    // classification and registrant are registered already.
    static MStatus registerDrawOverrideCreator(const MString& drawClassification, const MString& registrantId,
                                               DrawOverrideCreator creator);
    // Removes the registration and destroys at once every override it made; kFailure when there is
    // no such registration.
    static MStatus deregisterDrawOverrideCreator(const MString& drawClassification,
                                                 const MString& registrantId);
    static const char* className();
};

}  // namespace MHWRender
