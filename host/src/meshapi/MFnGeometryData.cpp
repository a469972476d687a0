#include <maya/MFnGeometryData.h>
#include <maya/MMatrix.h>

#include "attributes/ApiCall.h"
#include "attributes/DataAccess.h"
#include "core/FunctionSet.h"
#include "meshnode/MeshData.h"

MHOST_DEFINE_MFN(MFnGeometryData, MFn::kGeometryData)

namespace {

MMatrix& matrixOf(const MObject& object) {
    return mhost::attachedData<mhost::MeshData>(object, "MFnGeometryData").matrix;
}

}  // namespace

MStatus MFnGeometryData::setMatrix(const MMatrix& matrix) {
    return mhost::guardStatus([&] { matrixOf(fObject) = matrix; });
}

MStatus MFnGeometryData::getMatrix(MMatrix& matrix) const {
    return mhost::guardStatus([&] { matrix = matrixOf(fObject); });
}

bool MFnGeometryData::matrixIsIdentity(MStatus* ReturnStatus) const {
    return mhost::guardValue(ReturnStatus, [&] { return matrixOf(fObject) == MMatrix::identity; });
}

bool MFnGeometryData::matrixIsNotIdentity(MStatus* ReturnStatus) const {
    return mhost::guardValue(ReturnStatus, [&] { return !(matrixOf(fObject) == MMatrix::identity); });
}
