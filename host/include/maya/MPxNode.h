#pragma once
// MPxNode: the base of plug-in dependency nodes. The host creates one per node through the type's
// creator; its static attributes are added in the type's initialiser with addAttribute and
// attributeAffects.

#include <maya/MDataBlock.h>
#include <maya/MDataHandle.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypeId.h>

class MPlugArray;
class MDGContext;
class MEvaluationNode;
class MPxNode;

namespace mhost {
class Node;
void attachBehaviour(MPxNode&, Node&);
}  // namespace mhost

class OPENMAYA_EXPORT MPxNode {
public:
    enum Type {
        kDependNode,
        kLocatorNode,
        kDeformerNode,
        kManipContainer,
        kSurfaceShape,
        kFieldNode,
        kEmitterNode,
        kSpringNode,
        kIkSolverNode,
        kHardwareShader,
        kHwShaderNode,
        kTransformNode,
        kObjectSet,
        kFluidEmitterNode,
        kImagePlaneNode,
        kParticleAttributeMapperNode,
        kCameraSetNode,
        kConstraintNode,
        kManipulatorNode,
        kMotionPathNode,
        kClientDeviceNode,
        kThreadedDeviceNode,
        kAssembly,
        kSkinCluster,
        kGeometryFilter,
        kBlendShape,
        kLast
    };

    MPxNode();
    virtual ~MPxNode();
    // Called once the node exists in the scene, so thisMObject() is valid.
    virtual void postConstructor();
    // Computes the value of an output plug into the data block. kUnknownParameter means the plug is
    // not handled, and the host keeps the stored value.
    virtual MStatus compute(const MPlug&, MDataBlock&);
    // Called when `plug` becomes dirty; the node may add further plugs of its own to dirty.
    virtual MStatus setDependentsDirty(const MPlug& plug, MPlugArray& plugArray);
    virtual MStatus preEvaluation(const MDGContext& context, const MEvaluationNode& evaluationNode);
    virtual MStatus connectionMade(const MPlug&, const MPlug&, bool asSrc);
    virtual MStatus connectionBroken(const MPlug&, const MPlug&, bool asSrc);
    virtual Type type() const;
    virtual bool isAbstractClass() const;

    // The node this object serves, its name and its type. Virtual as in Maya, which asks plug-ins not
    // to override them.
    virtual MObject thisMObject() const;
    virtual MString name() const;
    virtual MTypeId typeId() const;
    virtual MString typeName() const;

    // Adds a static attribute to the node type being initialised.
    static MStatus addAttribute(const MObject& attr);
    // Declares that a change of `whenChanges` dirties `isAffected` (both of the type being initialised).
    static MStatus attributeAffects(const MObject& whenChanges, const MObject& isAffected);
    static MStatus attributeAffects(const MObject& whenChanges, const MObject& isAffected,
                                    bool affectsTopology);

    static MObject message;
    static MObject isHistoricallyInteresting;
    static MObject caching;
    static MObject state;
    static MObject frozen;

private:
    friend void mhost::attachBehaviour(MPxNode&, mhost::Node&);
    mhost::Node* fHostNode = nullptr;
};
