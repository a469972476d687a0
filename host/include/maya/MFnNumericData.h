#pragma once
// MFnNumericData: creates and edits numeric data objects, tuples of two to four numbers (or a single
// number) of one element type. Generic attributes take numbers only in this form.

#include <maya/MFnData.h>

class OPENMAYA_EXPORT MFnNumericData : public MFnData {
    MHOST_DECLARE_MFN(MFnNumericData)

    // Numeric types, numbered as in Maya; "Long" and "Int" name the same 32-bit types.
    enum Type {
        kInvalid,
        kBoolean,
        kByte,
        kChar,
        kShort,
        k2Short,
        k3Short,
        kLong,
        kInt = kLong,
        k2Long,
        k2Int = k2Long,
        k3Long,
        k3Int = k3Long,
        kInt64,
        kFloat,
        k2Float,
        k3Float,
        kDouble,
        k2Double,
        k3Double,
        k4Double,
        kAddr,
        kLast
    };

    // Creates a zeroed data object of the given type and attaches the set to it. kInvalid, kAddr
    // and kLast fail with kInvalidParameter and a null object.
    MObject create(Type dataType, MStatus* ReturnStatus = NULL);
    // The numeric type of the attached data; kInvalid when nothing is attached.
    Type numericType(MStatus* ReturnStatus = NULL);

    // Read the components of the attached data. The number of values must equal the data's
    // component count (kInvalidParameter otherwise); values convert to the requested type.
    MStatus getData(short& val1, short& val2);
    MStatus getData(int& val1, int& val2);
    MStatus getData(float& val1, float& val2);
    MStatus getData(double& val1, double& val2);
    MStatus getData(short& val1, short& val2, short& val3);
    MStatus getData(int& val1, int& val2, int& val3);
    MStatus getData(float& val1, float& val2, float& val3);
    MStatus getData(double& val1, double& val2, double& val3);
    MStatus getData(double& val1, double& val2, double& val3, double& val4);

    // Write the components of the attached data, rounded as its element type stores them. The
    // number of values must equal the data's component count (kInvalidParameter otherwise).
    MStatus setData(short val1, short val2);
    MStatus setData(int val1, int val2);
    MStatus setData(float val1, float val2);
    MStatus setData(double val1, double val2);
    MStatus setData(short val1, short val2, short val3);
    MStatus setData(int val1, int val2, int val3);
    MStatus setData(float val1, float val2, float val3);
    MStatus setData(double val1, double val2, double val3);
    MStatus setData(double val1, double val2, double val3, double val4);

    // Named forms of getData, same rules.
    MStatus getData2Short(short& val1, short& val2);
    MStatus getData2Int(int& val1, int& val2);
    MStatus getData2Float(float& val1, float& val2);
    MStatus getData2Double(double& val1, double& val2);
    MStatus getData3Short(short& val1, short& val2, short& val3);
    MStatus getData3Int(int& val1, int& val2, int& val3);
    MStatus getData3Float(float& val1, float& val2, float& val3);
    MStatus getData3Double(double& val1, double& val2, double& val3);
    MStatus getData4Double(double& val1, double& val2, double& val3, double& val4);

    // Named forms of setData, same rules.
    MStatus setData2Short(short val1, short val2);
    MStatus setData2Int(int val1, int val2);
    MStatus setData2Float(float val1, float val2);
    MStatus setData2Double(double val1, double val2);
    MStatus setData3Short(short val1, short val2, short val3);
    MStatus setData3Int(int val1, int val2, int val3);
    MStatus setData3Float(float val1, float val2, float val3);
    MStatus setData3Double(double val1, double val2, double val3);
    MStatus setData4Double(double val1, double val2, double val3, double val4);
};
