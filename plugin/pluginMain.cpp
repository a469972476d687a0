// The plug-in's door: the exported MApiVersion, initializePlugin and uninitializePlugin. Loading
// registers the tool's node types and commands, one after the other, and shows a banner; a failing
// registration is reported and returned at once, leaving the earlier ones in place.

// The API version text is written out below rather than taken from the headers, so that the module
// reports the same version whichever Maya headers it is built against.
#define MNoVersionString
#include <maya/MDrawRegistry.h>
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

#include "geometry/errorReporting.h"
#include "nodes/kyPatchCmd.h"
#include "nodes/kyPatchNode.h"
#include "nodes/kyStrakeLocatorNode.h"
#include "nodes/kyTweakNode.h"
#include "patch/kyStrakeToolCmd.h"
#include "tool/kyStrakeContextCmd.h"
#include "viewport/kyStrakeDrawOverride.h"

#if defined(_WIN32)
#define KY_EXPORTED_DATA __declspec(dllexport)
#else
#define KY_EXPORTED_DATA __attribute__((visibility("default")))
#endif

extern "C" {
KY_EXPORTED_DATA char MApiVersion[] = "20190300";
}

namespace {

constexpr const char* kyErrorStem = "pluginMain";

const char* const kVendor = "Brindlework";
const char* const kVersion = "0.97";
const char* const kRequiredApiVersion = "Any";

const char* const kContextCommandName = "kyStrakeContext";
const char* const kToolCommandName = "kyStrakeCmd";
const char* const kPatchCommandName = "kyPatchCmd";
const char* const kPatchNodeName = "kyPatchNode";
const char* const kTweakNodeName = "kyTweakNode";

MString banner() {
    MString text("\n");
    text += " #   #  #   #   ####  #####  ####     ###   #   #  #####\n";
    text += " #  #    # #   #        #    #   #   #   #  #  #   #\n";
    text += " ###      #     ###     #    ####    #####  ###    ####\n";
    text += " #  #     #        #    #    #  #    #   #  #  #   #\n";
    text += " #   #    #    ####     #    #   #   #   #  #   #  #####   [Brindlework 0.97]\n ";
    text += "(Beta version, use at your own risk)\n ";
    return text;
}

}  // namespace

MStatus initializePlugin(MObject obj) {
    MFnPlugin plugin(obj, kVendor, kVersion, kRequiredApiVersion);
    MStatus status;

    status = plugin.registerNode("kyStrake", kyStrake::id, kyStrake::creator, kyStrake::initialize,
                                 MPxNode::kLocatorNode, &kyStrake::drawDbClassification);
    KY_RETURN_ON_FAILURE(status);

    status = MHWRender::MDrawRegistry::registerDrawOverrideCreator(
        kyStrake::drawDbClassification, kyStrake::drawRegistrantId, kyStrakeDrawOverride::creator);
    KY_RETURN_ON_FAILURE(status);

    status = plugin.registerContextCommand(kContextCommandName, kyStrakeContextCmd::creator, kToolCommandName,
                                           kyStrakeToolCmd::creator, kyStrakeToolCmd::newSyntax);
    KY_RETURN_ON_FAILURE(status);

    status = plugin.registerNode(kTweakNodeName, kyTweakNode::id, kyTweakNode::creator,
                                 kyTweakNode::initialize, MPxNode::kDependNode);
    KY_RETURN_ON_FAILURE(status);

    status = plugin.registerCommand(kPatchCommandName, kyPatchCmd::creator, kyPatchCmd::newSyntax);
    KY_RETURN_ON_FAILURE(status);

    status = plugin.registerNode(kPatchNodeName, kyPatchNode::id, kyPatchNode::creator,
                                 kyPatchNode::initialize, MPxNode::kDependNode);
    KY_RETURN_ON_FAILURE(status);

    MGlobal::displayInfo(banner());
    return MS::kSuccess;
}

// Deliberately not the mirror image of initializePlugin: the identity given here is the default
// "Unknown" vendor and version, and the types go in an order of their own (the tweak node, registered
// before the patch command, goes last).
MStatus uninitializePlugin(MObject obj) {
    MFnPlugin plugin(obj, "Unknown", "Unknown", kRequiredApiVersion);
    MStatus status;

    status = plugin.deregisterNode(kyStrake::id);
    KY_RETURN_ON_FAILURE(status);

    status = MHWRender::MDrawRegistry::deregisterDrawOverrideCreator(kyStrake::drawDbClassification,
                                                                     kyStrake::drawRegistrantId);
    KY_RETURN_ON_FAILURE(status);

    status = plugin.deregisterContextCommand(kContextCommandName, kToolCommandName);
    KY_RETURN_ON_FAILURE(status);

    status = plugin.deregisterCommand(kPatchCommandName);
    KY_RETURN_ON_FAILURE(status);

    status = plugin.deregisterNode(kyPatchNode::id);
    KY_RETURN_ON_FAILURE(status);

    status = plugin.deregisterNode(kyTweakNode::id);
    KY_RETURN_ON_FAILURE(status);

    return MS::kSuccess;
}
