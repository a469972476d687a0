// Mesh data in scene files: what is written comes back whole.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "mesh/ProceduralMeshes.h"
#include "meshnode/MeshData.h"
#include "scenefile/DataSerializers.h"

namespace {

using mhost::MeshData;

TEST(MeshDataSerializer, RoundTripsPointsPolygonsHardEdgesUvsAndMatrix) {
    const mhost::DataSerializer* serializer = mhost::dataSerializers().find(MFnData::kMesh);
    ASSERT_NE(nullptr, serializer);
    MeshData original(mhost::makePlaneGrid(2, 2, 2, 2));
    original.editMesh().setEdgeSmooth(3, false);
    original.editMesh().createUvSet("extra");
    original.matrix(3, 1) = 5;
    auto copy = std::dynamic_pointer_cast<MeshData>(serializer->read(serializer->write(original)));
    ASSERT_TRUE(copy);
    const mhost::MeshTopology& a = original.mesh();
    const mhost::MeshTopology& b = copy->mesh();
    EXPECT_EQ(std::vector<float>(a.rawPoints(), a.rawPoints() + 27),
              std::vector<float>(b.rawPoints(), b.rawPoints() + 27));
    EXPECT_EQ(a.faces().items, b.faces().items);
    EXPECT_FALSE(b.isEdgeSmooth(3));
    EXPECT_TRUE(b.isEdgeSmooth(2));
    EXPECT_EQ(a.uvSets().names(), b.uvSets().names());
    EXPECT_EQ(a.uvSets().get("map1").faceVertexUvIds, b.uvSets().get("map1").faceVertexUvIds);
    EXPECT_EQ(a.uvSets().get("map1").u, b.uvSets().get("map1").u);
    EXPECT_EQ(original.matrix, copy->matrix);
    nlohmann::json broken = serializer->write(original);
    broken["connects"][0] = 99;
    EXPECT_THROW(serializer->read(broken), mhost::HostError);
}

}  // namespace
