#pragma once
// MFnPlugin: what a plug-in's initializePlugin and uninitializePlugin use to register and deregister
// its node types, commands and context commands. Including this header in one source file of a
// plug-in also defines the plug-in's exported MApiVersion (define MNoVersionString elsewhere).

#include <maya/MApiVersion.h>
#include <maya/MFnBase.h>
#include <maya/MPxNode.h>
#include <maya/MString.h>
#include <maya/MTypeId.h>

PLUGIN_EXPORT MStatus initializePlugin(MObject obj);
PLUGIN_EXPORT MStatus uninitializePlugin(MObject obj);

class OPENMAYA_EXPORT MFnPlugin : public MFnBase {
public:
    MFnPlugin();
    // Attaches to the plug-in object the host passes to initializePlugin/uninitializePlugin and
    // records the vendor and version.
    MFnPlugin(MObject& object, const char* vendor = "Unknown", const char* version = "Unknown",
              const char* requiredApiVersion = "Any", MStatus* ReturnStatus = 0L);
    ~MFnPlugin() override;
    MFn::Type type() const override;
    MString vendor(MStatus* ReturnStatus = NULL) const;
    MString version(MStatus* ReturnStatus = NULL) const;
    MString apiVersion(MStatus* ReturnStatus = NULL) const;
    MString name(MStatus* ReturnStatus = NULL) const;
    MString loadPath(MStatus* ReturnStatus = NULL) const;
    MStatus setName(const MString& newName, bool allowRename = true);
    MStatus setVersion(const MString& newVersion);
    // Adds a command run through scripts; kFailure when the name is taken.
    MStatus registerCommand(const MString& commandName, MCreatorFunction creatorFunction,
                            MCreateSyntaxFunction createSyntaxFunction = NULL);
    MStatus deregisterCommand(const MString& commandName);
    MStatus registerContextCommand(const MString& commandName, MCreatorFunction creatorFunction);
    // Adds a context command and the tool command its contexts create.
    MStatus registerContextCommand(const MString& commandName, MCreatorFunction creatorFunction,
                                   const MString& toolCmdName, MCreatorFunction toolCmdCreator,
                                   MCreateSyntaxFunction toolCmdSyntax = NULL);
    MStatus deregisterContextCommand(const MString& commandName);
    MStatus deregisterContextCommand(const MString& commandName, const MString& toolCmdName);
    // Adds a node type; runs its initialiser, which adds the static attributes. kFailure when the
    // name or id is taken or the initialiser fails (the type is then not registered).
    MStatus registerNode(const MString& typeName, const MTypeId& typeId, MCreatorFunction creatorFunction,
                         MInitializeFunction initFunction, MPxNode::Type type = MPxNode::kDependNode,
                         const MString* classification = NULL);
    // Removes a node type of this plug-in; kFailure while nodes of the type exist.
    MStatus deregisterNode(const MTypeId& typeId);
    static const char* className();

private:
    MFnPlugin(const MFnPlugin&);
    MFnPlugin& operator=(const MFnPlugin&);
};
