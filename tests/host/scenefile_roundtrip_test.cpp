#include <gtest/gtest.h>
#include <maya/MDoubleArray.h>
#include <maya/MFloatArray.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnDoubleArrayData.h>
#include <maya/MFnFloatArrayData.h>
#include <maya/MFnIntArrayData.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MFnPointArrayData.h>
#include <maya/MFnStringArrayData.h>
#include <maya/MFnStringData.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MFnVectorArrayData.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MPointArray.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>
#include <maya/MVectorArray.h>
#include <mhost/Driver.h>
#include <mhost/Interaction.h>
#include <mhost/SceneFile.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <nlohmann/json.hpp>
#include <sstream>

#include "interaction/ActiveView.h"
#include "support/TestPlugin.h"

namespace {

using namespace mhost;

constexpr unsigned int kVaultId = 0x7201;

// A node with one storable attribute of each kind the scene file stores, and one that is not stored.
class VaultNode : public MPxNode {
public:
    static void* creator() { return new VaultNode; }
    static MStatus initialize() {
        MFnNumericAttribute numeric;
        weight = numeric.create("weight", "w", MFnNumericData::kDouble, 0.5);
        offset = numeric.create("offset", "off", MFnNumericData::k3Double, 0.0);
        items = numeric.create("items", "it", MFnNumericData::kInt, 0);
        numeric.setArray(true);
        scratch = numeric.create("scratch", "scr", MFnNumericData::kDouble, 0.0);
        numeric.setStorable(false);
        MFnTypedAttribute typed;
        ids = typed.create("ids", "ids", MFnData::kIntArray);
        sizes = typed.create("sizes", "szs", MFnData::kDoubleArray);
        radii = typed.create("radii", "rad", MFnData::kFloatArray);
        points = typed.create("points", "pts", MFnData::kPointArray);
        normals = typed.create("normals", "nrm", MFnData::kVectorArray);
        labels = typed.create("labels", "lbl", MFnData::kStringArray);
        title = typed.create("title", "ttl", MFnData::kString);
        for (MObject* a :
             {&weight, &offset, &items, &scratch, &ids, &sizes, &radii, &points, &normals, &labels, &title})
            if (!addAttribute(*a)) return MS::kFailure;
        return MS::kSuccess;
    }
    static MObject weight, offset, items, scratch, ids, sizes, radii, points, normals, labels, title;
};
MObject VaultNode::weight, VaultNode::offset, VaultNode::items, VaultNode::scratch, VaultNode::ids,
    VaultNode::sizes, VaultNode::radii, VaultNode::points, VaultNode::normals, VaultNode::labels,
    VaultNode::title;

class SceneFileRoundTrip : public TestPluginFixture {
protected:
    void SetUp() override {
        ASSERT_TRUE(registerNode("vault", kVaultId, VaultNode::creator, VaultNode::initialize));
        driver::resetScene();
        // CTest runs tests in parallel processes: each gets a file of its own.
        path_ = ::testing::TempDir() + "scenefile_" +
                ::testing::UnitTest::GetInstance()->current_test_info()->name() + ".json";
    }
    void TearDown() override {
        std::remove(path_.c_str());
        driver::resetScene();
    }

    static void run(const std::string& text) { ASSERT_TRUE(driver::runCommand(text)) << text; }
    static MPlug plug(const char* node, const char* attribute) {
        MSelectionList list;
        list.add(node);
        MObject object;
        list.getDependNode(0, object);
        return MFnDependencyNode(object).findPlug(attribute, false);
    }
    std::string savedText() {
        std::ifstream file(path_);
        std::stringstream text;
        text << file.rdbuf();
        return text.str();
    }

    // A vault full of values, a small DAG, a connection, a selection and option variables.
    void buildScene() {
        run("createNode vault -n vaultA");
        run("createNode vault -n vaultB");
        run("createNode transform -n top");
        run("createNode transform -n child -p top");
        plug("vaultA", "weight").setDouble(2.25);
        plug("vaultA", "offsetY").setDouble(-4.0);
        plug("vaultA", "items").elementByLogicalIndex(3).setInt(7);
        plug("vaultA", "scratch").setDouble(9.0);
        MPointArray points;
        points.append(MPoint(1, 2, 3));
        points.append(MPoint(0.1, 0.2, 0.3, 0.5));
        plug("vaultA", "points").setMObject(MFnPointArrayData().create(points));
        MIntArray ids;
        for (int i : {4, -1, 9}) ids.append(i);
        plug("vaultA", "ids").setMObject(MFnIntArrayData().create(ids));
        MDoubleArray sizes;
        sizes.append(1.0 / 3.0);
        plug("vaultA", "sizes").setMObject(MFnDoubleArrayData().create(sizes));
        MFloatArray radii;
        radii.append(0.1f);
        plug("vaultA", "radii").setMObject(MFnFloatArrayData().create(radii));
        MVectorArray normals;
        normals.append(MVector(0, 0, -1));
        plug("vaultA", "normals").setMObject(MFnVectorArrayData().create(normals));
        MStringArray labels;
        labels.append("first");
        labels.append("se\"cond, with comma");
        plug("vaultA", "labels").setMObject(MFnStringArrayData().create(labels));
        plug("vaultA", "title").setMObject(MFnStringData().create("kyStrake"));
        run("connectAttr vaultA.weight child.translateX");
        run("select -r child vaultB");
        run("optionVar -iv ky_uspan 4 -fv ky_strakeRadius 2.5 -sv kyStrake_info1 \"1 stroke(s),\"");
    }

    std::string path_;
};

TEST_F(SceneFileRoundTrip, StorableValuesConnectionsSelectionAndOptionVarsSurvive) {
    buildScene();
    const std::string uuid = MFnDependencyNode(plug("vaultA", "weight").node()).uuid().asString().asChar();
    std::string error;
    ASSERT_TRUE(driver::saveScene(path_, &error)) << error;
    driver::resetScene();
    ASSERT_TRUE(driver::loadScene(path_, &error)) << error;

    EXPECT_EQ(2.25, plug("vaultA", "weight").asDouble());
    EXPECT_EQ(-4.0, plug("vaultA", "offsetY").asDouble());
    EXPECT_EQ(7, plug("vaultA", "items").elementByLogicalIndex(3).asInt());
    EXPECT_EQ(0.0, plug("vaultA", "scratch").asDouble()) << "non-storable values are not saved";
    MPointArray points = MFnPointArrayData(plug("vaultA", "points").asMObject()).array();
    ASSERT_EQ(2u, points.length());
    EXPECT_EQ(0.5, points[1].w);
    EXPECT_EQ(0.2, points[1].y);
    EXPECT_EQ(1.0 / 3.0, MFnDoubleArrayData(plug("vaultA", "sizes").asMObject()).array()[0]);
    EXPECT_EQ(0.1f, MFnFloatArrayData(plug("vaultA", "radii").asMObject()).array()[0]);
    EXPECT_EQ(-1, MFnIntArrayData(plug("vaultA", "ids").asMObject()).array()[1]);
    EXPECT_EQ(MVector(0, 0, -1), MFnVectorArrayData(plug("vaultA", "normals").asMObject()).array()[0]);
    EXPECT_STREQ("se\"cond, with comma",
                 MFnStringArrayData(plug("vaultA", "labels").asMObject()).array()[1].asChar());
    EXPECT_STREQ("kyStrake", MFnStringData(plug("vaultA", "title").asMObject()).string().asChar());
    EXPECT_EQ(uuid, MFnDependencyNode(plug("vaultA", "weight").node()).uuid().asString().asChar());

    EXPECT_EQ(2.25, plug("child", "translateX").asDouble()) << "the connection feeds the child again";
    plug("vaultA", "weight").setDouble(3.0);
    EXPECT_EQ(3.0, plug("child", "translateX").asDouble());
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    MStringArray selected;
    selection.getSelectionStrings(selected);
    ASSERT_EQ(2u, selected.length());
    EXPECT_STREQ("child", selected[0].asChar());
    EXPECT_STREQ("vaultB", selected[1].asChar());
    EXPECT_EQ("|top|child",
              std::string(MFnDagNode(plug("child", "translateX").node()).fullPathName().asChar()));
    EXPECT_EQ(4, MGlobal::optionVarIntValue("ky_uspan"));
    EXPECT_EQ(2.5, MGlobal::optionVarDoubleValue("ky_strakeRadius"));
    EXPECT_STREQ("1 stroke(s),", MGlobal::optionVarStringValue("kyStrake_info1").asChar());
    EXPECT_TRUE(driver::undoJournal().empty());
}

TEST_F(SceneFileRoundTrip, SavingALoadedSceneGivesTheSameFile) {
    buildScene();
    ASSERT_TRUE(driver::saveScene(path_));
    const std::string first = savedText();
    ASSERT_TRUE(driver::loadScene(path_));
    ASSERT_TRUE(driver::saveScene(path_));
    EXPECT_EQ(first, savedText());
}

TEST_F(SceneFileRoundTrip, UnknownTypesAndBrokenFilesLeaveTheSceneAsItWas) {
    buildScene();
    ASSERT_TRUE(driver::saveScene(path_));
    driver::resetScene();
    ASSERT_TRUE(MFnPlugin(pluginObject()).deregisterNode(MTypeId(kVaultId)));
    run("createNode transform -n keeper");
    std::string error;
    EXPECT_FALSE(driver::loadScene(path_, &error));
    EXPECT_NE(std::string::npos, error.find("'vault'")) << error;
    EXPECT_EQ("1", driver::runCommandForWords("objExists keeper").front());

    std::ofstream(path_) << "{\"format\": \"mhost-scene\", \"nodes\": [";
    EXPECT_FALSE(driver::loadScene(path_, &error));
    EXPECT_NE(std::string::npos, error.find("not JSON")) << error;
    EXPECT_FALSE(driver::loadScene(path_ + ".missing", &error));
    EXPECT_EQ("1", driver::runCommandForWords("objExists keeper").front());
}

// The camera the view looks through comes back with the scene.
TEST_F(SceneFileRoundTrip, TheViewLooksThroughItsCameraAgain) {
    ASSERT_TRUE(driver::placeCamera(MPoint(0, 0, 10), MPoint(0, 0, 0), "shotCam"));
    ASSERT_TRUE(driver::placeCamera(MPoint(0, 5, 10), MPoint(0, 0, 0), "persp"));
    ASSERT_TRUE(driver::setViewCamera("shotCam"));
    ASSERT_TRUE(driver::saveScene(path_));
    driver::resetScene();
    ASSERT_FALSE(activeView().camera());
    ASSERT_TRUE(driver::loadScene(path_));
    ASSERT_TRUE(activeView().camera());
    EXPECT_EQ("shotCamShape", activeView().camera()->name);
}

// Each corruption of a saved file is refused by the check and by the load alike, with a message that
// names the file and the entry at fault, and the scene stays as it was.
TEST_F(SceneFileRoundTrip, CorruptFilesAreRefusedNamingTheEntryAtFault) {
    buildScene();
    ASSERT_TRUE(driver::saveScene(path_));
    nlohmann::json saved = nlohmann::json::parse(savedText());
    driver::resetScene();
    run("createNode transform -n keeper");
    size_t vaultIndex = 0;
    while (vaultIndex < saved["nodes"].size() && saved["nodes"][vaultIndex]["name"] != "vaultA") ++vaultIndex;
    const std::string vaultEntry = "nodes[" + std::to_string(vaultIndex) + "]: ";
    const auto nodeNamed = [](nlohmann::json& document, const std::string& name) -> nlohmann::json& {
        for (auto& node : document["nodes"])
            if (node["name"] == name) return node;
        throw std::runtime_error("no node " + name);
    };
    const auto valueOf = [&](nlohmann::json& document, const std::string& attribute) -> nlohmann::json& {
        for (auto& value : nodeNamed(document, "vaultA")["values"])
            if (value["attribute"] == attribute) return value;
        throw std::runtime_error("no value of " + attribute);
    };
    const std::vector<std::pair<std::function<void(nlohmann::json&)>, std::string>> corruptions = {
        {[](nlohmann::json& d) { d["nodes"] = 7; }, "\"nodes\" must be a list"},
        {[](nlohmann::json& d) { d["nodes"][1].erase("type"); }, "nodes[1]: "},
        {[&](nlohmann::json& d) { nodeNamed(d, "top")["values"] = "none"; },
         "node 'top': \"values\" must be a list"},
        {[&](nlohmann::json& d) { valueOf(d, "weight")["numbers"] = "heavy"; }, vaultEntry},
        {[&](nlohmann::json& d) { valueOf(d, "weight")["index"] = 2; },
         "vaultA.weight has an index but is not an array element"},
        {[&](nlohmann::json& d) { valueOf(d, "items")["index"] = -1; }, "vaultA.items has an index"},
        {[&](nlohmann::json& d) { valueOf(d, "title")["data"] = valueOf(d, "ids")["data"]; },
         "vaultA.title does not take data of type 'intArray'"},
        {[&](nlohmann::json& d) {
             valueOf(d, "points")["data"]["value"] = {1, 2};
         },
         vaultEntry},
        {[](nlohmann::json& d) { d["connections"][0]["destination"]["node"] = "ghost"; },
         "unknown node 'ghost'"},
        {[](nlohmann::json& d) { d["optionVars"]["ky_uspan"]["value"] = "four"; },
         "option variable 'ky_uspan'"},
        {[](nlohmann::json& d) { d["viewCamera"] = "vaultB"; }, "the view's camera 'vaultB' is not a camera"},
        {[](nlohmann::json& d) { d["version"] = 99; }, "not a scene file of this host"},
    };
    for (const auto& [corrupt, fragment] : corruptions) {
        nlohmann::json document = saved;
        corrupt(document);
        std::ofstream(path_) << document.dump(1);
        std::string checked, loaded;
        EXPECT_FALSE(driver::checkSceneFile(path_, &checked)) << fragment;
        EXPECT_FALSE(driver::loadScene(path_, &loaded)) << fragment;
        EXPECT_EQ(checked, loaded);
        EXPECT_EQ(0u, loaded.find(path_ + ": ")) << loaded;
        EXPECT_NE(std::string::npos, loaded.find(fragment)) << loaded;
        EXPECT_EQ("1", driver::runCommandForWords("objExists keeper").front()) << fragment;
    }
    std::ofstream(path_) << saved.dump(1).substr(0, 200);
    std::string error;
    EXPECT_FALSE(driver::checkSceneFile(path_, &error));
    EXPECT_NE(std::string::npos, error.find("parse error at line")) << error;
    std::ofstream(path_) << saved.dump(1);
    EXPECT_TRUE(driver::checkSceneFile(path_, &error)) << error;
    EXPECT_EQ("1", driver::runCommandForWords("objExists keeper").front()) << "a check loads nothing";
}

}  // namespace
