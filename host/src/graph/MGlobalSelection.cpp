// The selection part of MGlobal, over the scene's active selection list.

#include <maya/MDagPath.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>

#include "graph/Scene.h"

namespace {

const MSelectionList& active() { return mhost::scene().settings.activeSelection; }

MStatus adjust(const MSelectionList& items, MGlobal::ListAdjustment how) {
    MSelectionList list = active();
    switch (how) {
        case MGlobal::kReplaceList:
            list = items;
            break;
        case MGlobal::kXORWithList:
            list.merge(items, MSelectionList::kXORWithList);
            break;
        case MGlobal::kAddToList:
            list.merge(items);
            break;
        case MGlobal::kRemoveFromList:
            list.merge(items, MSelectionList::kRemoveFromList);
            break;
        case MGlobal::kAddToHeadOfList: {
            MSelectionList head = items;
            head.merge(list);
            list = head;
            break;
        }
    }
    mhost::scene().setActiveSelection(list);
    return MS::kSuccess;
}

}  // namespace

MStatus MGlobal::getActiveSelectionList(MSelectionList& dest, bool) {
    dest = active();
    return MS::kSuccess;
}

MStatus MGlobal::setActiveSelectionList(const MSelectionList& src, ListAdjustment how) {
    return adjust(src, how);
}

MStatus MGlobal::getSelectionListByName(const MString& name, MSelectionList& list) {
    list.clear();
    return list.add(name);
}

MStatus MGlobal::selectByName(const MString& name, ListAdjustment how) {
    MSelectionList items;
    MStatus status = items.add(name);
    return status ? adjust(items, how) : status;
}

MStatus MGlobal::unselectByName(const MString& name) { return selectByName(name, kRemoveFromList); }

MStatus MGlobal::select(MObject& object, ListAdjustment how) {
    MSelectionList items;
    MStatus status = items.add(object);
    return status ? adjust(items, how) : status;
}

MStatus MGlobal::select(const MDagPath& object, const MObject& component, ListAdjustment how) {
    MSelectionList items;
    MStatus status = items.add(object, component);
    return status ? adjust(items, how) : status;
}

MStatus MGlobal::unselect(MObject& object) { return select(object, kRemoveFromList); }

MStatus MGlobal::clearSelectionList() {
    mhost::scene().setActiveSelection(MSelectionList());
    return MS::kSuccess;
}

bool MGlobal::isSelected(MObject& object, MStatus* ReturnStatus) {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return active().hasItem(object);
}
