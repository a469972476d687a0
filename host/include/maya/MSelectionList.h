#pragma once
// MSelectionList: an ordered list of selected items: dependency nodes, DAG paths (with an optional
// component) and plugs. Names are resolved when they are added.

#include <maya/MDagPath.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <vector>

class MStringArray;
class MUuid;

class OPENMAYA_EXPORT MSelectionList {
public:
    enum MergeStrategy { kMergeNormal = 0, kXORWithList, kRemoveFromList };

    MSelectionList();
    MSelectionList(const MSelectionList& src);
    virtual ~MSelectionList();
    MStatus clear();
    bool isEmpty(MStatus* ReturnStatus = NULL) const;
    unsigned int length(MStatus* ReturnStatus = NULL) const;
    // The node of an item (for a DAG item, its end node; for a plug, its node).
    MStatus getDependNode(unsigned int index, MObject& depNode) const;
    // The path (and component) of a DAG item; kFailure for a non-DAG item.
    MStatus getDagPath(unsigned int index, MDagPath& dagPath, MObject& component = MObject::kNullObj) const;
    MStatus getPlug(unsigned int index, MPlug& plug) const;
    MStatus add(const MObject& object, const bool mergeWithExisting = false);
    MStatus add(const MDagPath& object, const MObject& component = MObject::kNullObj,
                const bool mergeWithExisting = false);
    // Adds what the text names: a node name, a DAG path "|a|b", a plug "node.attr" or a component
    // "shape.vtx[2]". kInvalidParameter when nothing matches.
    MStatus add(const MString& matchString, const bool searchChildNamespacesToo = false);
    MStatus add(const MPlug& plug, const bool mergeWithExisting = false);
    MStatus remove(unsigned int index);
    MStatus replace(unsigned int index, const MObject& item);
    bool hasItem(const MObject& item, MStatus* ReturnStatus = NULL) const;
    bool hasItem(const MDagPath& item, const MObject& component = MObject::kNullObj,
                 MStatus* ReturnStatus = NULL) const;
    MStatus toggle(const MDagPath& item, const MObject& component = MObject::kNullObj);
    MSelectionList& operator=(const MSelectionList& other);
    MStatus merge(const MSelectionList& other, const MergeStrategy strategy = kMergeNormal);
    // The items as the names that select them again.
    MStatus getSelectionStrings(MStringArray& array) const;
    static const char* className();

private:
    struct Item {
        MObject node;
        MDagPath path;
        MObject component;
        MPlug plug;
        bool isDag = false;
        bool isPlug = false;
    };
    bool sameItem(const Item& a, const Item& b) const;
    MStatus addItem(const Item& item, bool mergeWithExisting);

    std::vector<Item> fItems;
};
