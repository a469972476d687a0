#pragma once
// MObjectArray: an ordered array of MObject handles.

#include <maya/MObject.h>
#include <maya/MStatus.h>

#include <vector>

class OPENMAYA_EXPORT MObjectArray {
public:
    MObjectArray();
    MObjectArray(const MObjectArray& other);
    MObjectArray(unsigned int initialSize, const MObject& initialValue = MObject::kNullObj);
    ~MObjectArray();
    const MObject& operator[](unsigned int index) const;
    MObject& operator[](unsigned int index);
    MObjectArray& operator=(const MObjectArray& other);
    MStatus set(const MObject& element, unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(const MObject& element, unsigned int index);
    MStatus append(const MObject& element);
    MStatus clear();

private:
    std::vector<MObject> fItems;
};
