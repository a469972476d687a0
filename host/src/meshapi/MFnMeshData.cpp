#include <maya/MFnMeshData.h>

#include "attributes/DataAccess.h"
#include "core/FunctionSet.h"
#include "meshnode/MeshData.h"

MHOST_DEFINE_MFN(MFnMeshData, MFn::kMeshData)

MObject MFnMeshData::create(MStatus* ReturnStatus) {
    return mhost::createData<mhost::MeshData>(fObject, ReturnStatus);
}
