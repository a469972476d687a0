// MArgDatabase::getObjects into a selection list: the object words resolved against the scene.

#include <maya/MArgDatabase.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

MStatus MArgDatabase::getObjects(MSelectionList& result) const {
    result.clear();
    MStringArray names;
    MStatus status = getObjects(names);
    for (unsigned int i = 0; status && i < names.length(); ++i) status = result.add(names[i]);
    return status;
}
