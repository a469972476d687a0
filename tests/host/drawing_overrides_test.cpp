#include <gtest/gtest.h>
#include <maya/MDGContext.h>
#include <maya/MDrawRegistry.h>
#include <maya/MEvaluationNode.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MPxDrawOverride.h>
#include <maya/MPxLocatorNode.h>
#include <mhost/Driver.h>
#include <mhost/Frames.h>
#include <mhost/Interaction.h>

#include "drawing/DisplayList.h"
#include "drawing/DrawOverrideRegistry.h"
#include "support/TestPlugin.h"

namespace {

using namespace mhost;
using MHWRender::MDrawRegistry;

const MString kClassification("drawdb/geometry/probe");
const MString kRegistrant("probeTest");

// What the probe overrides saw, reset by each test.
struct ProbeLog {
    int created = 0;
    int destroyed = 0;
    int dataDeleted = 0;
    std::vector<std::string> calls;
    std::vector<const MUserData*> oldData;
    const MUserData* prepared = nullptr;
    MDagPath lastCamera;
    int viewport[4] = {0, 0, 0, 0};
    // What the overrides answer.
    MHWRender::DrawAPI api = MHWRender::kAllDevices;
    bool bounded = false;
    bool deleteAfterUse = false;
};
ProbeLog probe;

// Records the node's draw dirty request in preEvaluation, as the plug-in's locator does when `size`
// changed.
class ProbeLocator : public MPxLocatorNode {
public:
    static void* creator() { return new ProbeLocator; }
    static MStatus initialize() {
        MFnNumericAttribute numeric;
        size = numeric.create("size", "sz", MFnNumericData::kDouble, 1.0);
        return addAttribute(size);
    }
    MStatus preEvaluation(const MDGContext& context, const MEvaluationNode& node) override {
        if (context.isNormal() && node.dirtyPlugExists(size))
            MHWRender::MRenderer::setGeometryDrawDirty(thisMObject(), true);
        return MS::kSuccess;
    }
    static MObject size;
};
MObject ProbeLocator::size;

class ProbeData : public MUserData {
public:
    ProbeData() : MUserData(probe.deleteAfterUse) {}
    ~ProbeData() override { ++probe.dataDeleted; }
};

class ProbeOverride : public MHWRender::MPxDrawOverride {
public:
    static MPxDrawOverride* creator(const MObject& node) { return new ProbeOverride(node); }
    explicit ProbeOverride(const MObject& node) : MPxDrawOverride(node, nullptr, false) { ++probe.created; }
    ~ProbeOverride() override { ++probe.destroyed; }
    MHWRender::DrawAPI supportedDrawAPIs() const override { return probe.api; }
    bool hasUIDrawables() const override { return true; }
    bool isBounded(const MDagPath&, const MDagPath&) const override { return probe.bounded; }
    MBoundingBox boundingBox(const MDagPath&, const MDagPath&) const override {
        return MBoundingBox(MPoint(-1, -1, -1), MPoint(1, 1, 1));
    }
    MUserData* prepareForDraw(const MDagPath& path, const MDagPath& camera, const MHWRender::MFrameContext&,
                              MUserData* oldData) override {
        probe.calls.push_back(std::string("prepare ") + path.partialPathName().asChar());
        probe.oldData.push_back(oldData);
        probe.lastCamera = camera;
        MUserData* data = oldData ? oldData : new ProbeData;
        probe.prepared = data;
        return data;
    }
    void addUIDrawables(const MDagPath& path, MHWRender::MUIDrawManager& manager,
                        const MHWRender::MFrameContext& frame, const MUserData* data) override {
        probe.calls.push_back(std::string("add ") + path.partialPathName().asChar());
        EXPECT_EQ(probe.prepared, data);
        frame.getViewportDimensions(probe.viewport[0], probe.viewport[1], probe.viewport[2],
                                    probe.viewport[3]);
        manager.beginDrawable();
        manager.line(MPoint(0, 0, 0), MPoint(1, 0, 0));
        manager.endDrawable();
    }
};

class DrawOverrides : public TestPluginFixture {
protected:
    void SetUp() override {
        probe = ProbeLog();
        MFnPlugin plugin(pluginObject());
        ASSERT_TRUE(plugin.registerNode("probeLocator", 0x7101, ProbeLocator::creator,
                                        ProbeLocator::initialize, MPxNode::kLocatorNode, &kClassification));
        ASSERT_TRUE(
            MDrawRegistry::registerDrawOverrideCreator(kClassification, kRegistrant, ProbeOverride::creator));
        ASSERT_TRUE(driver::setViewSize(320, 240));
        ASSERT_TRUE(driver::placeCamera(MPoint(0, 0, 10), MPoint(0, 0, 0)));
    }
    void TearDown() override {
        MDrawRegistry::deregisterDrawOverrideCreator(kClassification, kRegistrant);
        scene().clear();
        MFnPlugin(pluginObject()).deregisterNode(MTypeId(0x7101));
    }
    static void run(const std::string& text) { ASSERT_TRUE(driver::runCommand(text)) << text; }
    static void frame() { ASSERT_TRUE(driver::runFrame()); }
};

TEST_F(DrawOverrides, AreMadeOncePerNodeAndCalledEveryFrameInOrder) {
    run("createNode probeLocator -n probeA");
    run("createNode probeLocator -n probeB");
    frame();
    frame();
    EXPECT_EQ(2, probe.created);
    EXPECT_EQ((std::vector<std::string>{"prepare probeA", "add probeA", "prepare probeB", "add probeB",
                                        "prepare probeA", "add probeA", "prepare probeB", "add probeB"}),
              probe.calls);
    EXPECT_EQ("perspShape", std::string(probe.lastCamera.partialPathName().asChar()));
    EXPECT_EQ(320, probe.viewport[2]);
    EXPECT_EQ(240, probe.viewport[3]);

    const auto drawings = driver::frameDrawings();
    ASSERT_EQ(2u, drawings.size());
    EXPECT_EQ(driver::FrameDrawing::Drawer::kDrawOverride, drawings[0].drawer);
    EXPECT_EQ("probeA", drawings[0].node);
    EXPECT_EQ(1u, drawings[0].list->primitives().size());
}

TEST_F(DrawOverrides, KeepUserDataAcrossFramesUnlessDeletedAfterUse) {
    run("createNode probeLocator -n probeA");
    frame();
    frame();
    ASSERT_EQ(2u, probe.oldData.size());
    EXPECT_EQ(nullptr, probe.oldData[0]);
    EXPECT_NE(nullptr, probe.oldData[1]) << "the data of the first frame comes back as the old data";
    EXPECT_EQ(0, probe.dataDeleted);

    probe.deleteAfterUse = true;
    run("createNode probeLocator -n probeB");
    frame();
    frame();
    EXPECT_EQ(2, probe.dataDeleted) << "probeB's data is deleted after each frame";
    EXPECT_EQ(nullptr, probe.oldData.back());
}

TEST_F(DrawOverrides, GoWithTheirNodeAndTheirRegistration) {
    run("createNode probeLocator -n probeA");
    run("createNode probeLocator -n probeB");
    frame();
    run("delete probeA");
    EXPECT_EQ(1, probe.destroyed) << "at once, so no callback of the override outlives its node";
    EXPECT_EQ(1, probe.dataDeleted);
    frame();
    EXPECT_EQ(1, probe.destroyed);
    ASSERT_TRUE(driver::undo());
    frame();
    EXPECT_EQ(3, probe.created) << "a node brought back by undo gets a new override";

    ASSERT_TRUE(MDrawRegistry::deregisterDrawOverrideCreator(kClassification, kRegistrant));
    EXPECT_EQ(3, probe.destroyed) << "deregistering destroys the overrides at once";
    frame();
    EXPECT_TRUE(driver::frameDrawings().empty());
}

TEST_F(DrawOverrides, GoWithTheSceneWhenItIsReset) {
    run("createNode probeLocator -n probeA");
    frame();
    ASSERT_EQ(1, probe.created);
    driver::resetScene();
    EXPECT_EQ(1, probe.destroyed);
}

TEST_F(DrawOverrides, SkipHiddenNodesUnsupportedDevicesAndBoundsOutOfView) {
    run("createNode transform -n holder");
    run("createNode probeLocator -n probeA -p holder");
    run("setAttr holder.visibility 0");
    frame();
    EXPECT_TRUE(probe.calls.empty());

    run("setAttr holder.visibility 1");
    probe.api = MHWRender::kOpenGL;
    frame();
    EXPECT_EQ(1, probe.created);
    EXPECT_TRUE(probe.calls.empty()) << "the host draws as a core profile device";

    probe.api = MHWRender::kOpenGLCoreProfile;
    probe.bounded = true;
    run("setAttr holder.translateZ 20");  // behind the camera at z = 10
    frame();
    EXPECT_TRUE(probe.calls.empty());
    run("setAttr holder.translateZ 0");
    frame();
    EXPECT_EQ(2u, probe.calls.size());
}

TEST_F(DrawOverrides, PreEvaluationSeesDirtyPlugsAndDrawDirtyRequestsAreKeptPerFrame) {
    run("createNode probeLocator -n probeA");
    frame();
    run("setAttr probeA.size 2");
    frame();
    EXPECT_TRUE(driver::drawDirtyRequests().empty()) << "size is not dirty after setAttr stores it";

    // A connection into size leaves it dirty until it is pulled.
    run("createNode probeLocator -n probeB");
    run("connectAttr probeB.size probeA.size");
    frame();
    const auto requests = driver::drawDirtyRequests();
    ASSERT_EQ(1u, requests.size());
    EXPECT_EQ("probeA", requests[0].node);
    EXPECT_TRUE(requests[0].topologyChanged);
}

TEST_F(DrawOverrides, RegistryRefusesDuplicatesAndMatchesClassificationsByPath) {
    EXPECT_EQ(MS::kFailure,
              MDrawRegistry::registerDrawOverrideCreator(kClassification, kRegistrant, ProbeOverride::creator)
                  .statusCode());
    EXPECT_EQ(MS::kInvalidParameter,
              MDrawRegistry::registerDrawOverrideCreator("", "other", ProbeOverride::creator).statusCode());
    EXPECT_EQ(MS::kFailure,
              MDrawRegistry::deregisterDrawOverrideCreator(kClassification, "other").statusCode());

    const auto& registry = drawOverrideRegistry();
    EXPECT_NE(nullptr, registry.creatorFor("drawdb/geometry/probe"));
    EXPECT_NE(nullptr, registry.creatorFor("drawdb/geometry/probe/isTransparent"));
    EXPECT_NE(nullptr, registry.creatorFor("shader/surface:drawdb/geometry/probe"));
    EXPECT_EQ(nullptr, registry.creatorFor("drawdb/geometry/probeX"));
    EXPECT_EQ(nullptr, registry.creatorFor("drawdb/geometry"));
}

TEST_F(DrawOverrides, FrameContextReportsTheUserChangingTheView) {
    EXPECT_FALSE(MHWRender::MFrameContext::userChangingViewContext());
    driver::setUserChangingView(true);
    EXPECT_TRUE(MHWRender::MFrameContext::userChangingViewContext());
    driver::setUserChangingView(false);
    EXPECT_FALSE(MHWRender::MFrameContext::userChangingViewContext());
}

}  // namespace
