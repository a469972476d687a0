#pragma once
// MFnIntArrayData: creates and edits int array data objects, the values of typed attributes of type
// MFnData::kIntArray (and of generic attributes that accept it).

#include <maya/MFnData.h>

class MIntArray;

class OPENMAYA_EXPORT MFnIntArrayData : public MFnData {
    MHOST_DECLARE_MFN(MFnIntArrayData)

    // Number of elements of the attached data; 0 with kInvalidParameter when nothing is attached.
    unsigned int length(MStatus* ReturnStatus = NULL) const;
    // Replaces one existing element; kInvalidParameter when the index is past the end.
    MStatus set(int element, unsigned int index);
    // Copies the elements into the given array, replacing its contents.
    MStatus copyTo(MIntArray&) const;
    // Replaces all elements with a copy of the given array.
    MStatus set(const MIntArray& newArray);
    // A copy of the elements; editing it leaves the data unchanged (use set to store it back).
    MIntArray array(MStatus* ReturnStatus = NULL);
    // Create a data object, empty or holding a copy of the given array, and attach the set to it.
    MObject create(MStatus* ReturnStatus = NULL);
    MObject create(const MIntArray& in, MStatus* ReturnStatus = NULL);
    // Element access; throws std::out_of_range past the end (there is no status to report it).
    int operator[](unsigned int index) const;
    int& operator[](unsigned int index);
};
