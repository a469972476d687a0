#pragma once
// MFnDependencyNode: names, type, attributes and plugs of any dependency node.

#include <maya/MFnBase.h>
#include <maya/MPlug.h>
#include <maya/MString.h>
#include <maya/MTypeId.h>
#include <maya/MUuid.h>

class MPxNode;
class MPlugArray;

class OPENMAYA_EXPORT MFnDependencyNode : public MFnBase {
    MHOST_DECLARE_MFN(MFnDependencyNode)

    // Creates a node of the type (by id or name) in the scene, optionally named, and attaches to it.
    MObject create(const MTypeId& typeId, MStatus* ReturnStatus = NULL);
    MObject create(const MTypeId& typeId, const MString& name, MStatus* ReturnStatus = NULL);
    MObject create(const MString& type, MStatus* ReturnStatus = NULL);
    MObject create(const MString& type, const MString& name, MStatus* ReturnStatus = NULL);
    MTypeId typeId(MStatus* ReturnStatus = NULL) const;
    MString typeName(MStatus* ReturnStatus = NULL) const;
    MString name(MStatus* ReturnStatus = NULL) const;
    MString absoluteName(MStatus* ReturnStatus = NULL) const;
    // The name of the plug-in that registered the node's type; empty for built-in types.
    MString pluginName(MStatus* ReturnStatus = NULL) const;
    // Renames the node; the name is made unique. Returns the name given.
    MString setName(const MString& name, bool createNamespace = false, MStatus* ReturnStatus = NULL);
    MUuid uuid(MStatus* ReturnStatus = NULL) const;
    // Every plug of the node that takes part in a connection.
    MStatus getConnections(MPlugArray& array) const;
    unsigned int attributeCount(MStatus* ReturnStatus = NULL) const;
    MObject attribute(unsigned int index, MStatus* ReturnStatus = NULL) const;
    MObject attribute(const MString& attrName, MStatus* ReturnStatus = NULL) const;
    // The plug of an attribute, given by object or by long or short name; a null plug with
    // kInvalidParameter when the node has no such attribute.
    MPlug findPlug(const MObject& attr, bool wantNetworkedPlug, MStatus* ReturnStatus = NULL) const;
    MPlug findPlug(const MString& attrName, bool wantNetworkedPlug, MStatus* ReturnStatus = NULL) const;
    // The plug-in's node object for nodes of plug-in types; null for built-in nodes.
    MPxNode* userNode(MStatus* ReturnStatus = NULL) const;
    bool isFromReferencedFile(MStatus* ReturnStatus = NULL) const;
    bool hasUniqueName(MStatus* ReturnStatus = NULL) const;
    bool hasAttribute(const MString& name, MStatus* ReturnStatus = NULL) const;
    // The classification string a node type was registered with.
    static MString classification(const MString& nodeTypeName);
};
