#pragma once
// MFnDoubleArrayData: creates and edits double array data objects, the values of typed attributes of type
// MFnData::kDoubleArray (and of generic attributes that accept it).

#include <maya/MFnData.h>

class MDoubleArray;

class OPENMAYA_EXPORT MFnDoubleArrayData : public MFnData {
    MHOST_DECLARE_MFN(MFnDoubleArrayData)

    // Number of elements of the attached data; 0 with kInvalidParameter when nothing is attached.
    unsigned int length(MStatus* ReturnStatus = NULL) const;
    // Replaces one existing element; kInvalidParameter when the index is past the end.
    MStatus set(double element, unsigned int index);
    // Copies the elements into the given array, replacing its contents.
    MStatus copyTo(MDoubleArray&) const;
    // Replaces all elements with a copy of the given array.
    MStatus set(const MDoubleArray& newArray);
    // A copy of the elements; editing it leaves the data unchanged (use set to store it back).
    MDoubleArray array(MStatus* ReturnStatus = NULL);
    // Create a data object, empty or holding a copy of the given array, and attach the set to it.
    MObject create(MStatus* ReturnStatus = NULL);
    MObject create(const MDoubleArray& in, MStatus* ReturnStatus = NULL);
    // Element access; throws std::out_of_range past the end (there is no status to report it).
    double operator[](unsigned int index) const;
    double& operator[](unsigned int index);
};
