#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

#include <algorithm>

#include "graph/ApiBridge.h"
#include "graph/NameLookup.h"

MSelectionList::MSelectionList() = default;
MSelectionList::MSelectionList(const MSelectionList& src) = default;
MSelectionList::~MSelectionList() = default;
MSelectionList& MSelectionList::operator=(const MSelectionList& other) = default;
const char* MSelectionList::className() { return "MSelectionList"; }

MStatus MSelectionList::clear() {
    fItems.clear();
    return MS::kSuccess;
}

bool MSelectionList::isEmpty(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return fItems.empty();
}

unsigned int MSelectionList::length(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return static_cast<unsigned int>(fItems.size());
}

MStatus MSelectionList::getDependNode(unsigned int index, MObject& depNode) const {
    if (index >= fItems.size()) return MS::kInvalidParameter;
    depNode = fItems[index].node;
    return MS::kSuccess;
}

MStatus MSelectionList::getDagPath(unsigned int index, MDagPath& dagPath, MObject& component) const {
    if (index >= fItems.size() || !fItems[index].isDag) return MS::kFailure;
    dagPath = fItems[index].path;
    // The caller's default argument is the shared null object: never write into it.
    if (&component != &MObject::kNullObj) component = fItems[index].component;
    return MS::kSuccess;
}

MStatus MSelectionList::getPlug(unsigned int index, MPlug& plug) const {
    if (index >= fItems.size() || !fItems[index].isPlug) return MS::kFailure;
    plug = fItems[index].plug;
    return MS::kSuccess;
}

bool MSelectionList::sameItem(const Item& a, const Item& b) const {
    return a.node == b.node && a.component == b.component && a.plug == b.plug && a.isPlug == b.isPlug;
}

MStatus MSelectionList::addItem(const Item& item, bool mergeWithExisting) {
    auto same = [&](const Item& other) { return sameItem(other, item); };
    if (mergeWithExisting && std::any_of(fItems.begin(), fItems.end(), same)) return MS::kSuccess;
    fItems.push_back(item);
    return MS::kSuccess;
}

MStatus MSelectionList::add(const MObject& object, const bool mergeWithExisting) {
    auto node = mhost::liveNodeOf(object);
    if (!node) return MS::kInvalidParameter;
    Item item;
    item.node = object;
    if (node->type->isDag) {
        item.isDag = true;
        item.path = MDagPath::fromHostNode(node);
    }
    return addItem(item, mergeWithExisting);
}

MStatus MSelectionList::add(const MDagPath& object, const MObject& component, const bool mergeWithExisting) {
    if (!object.isValid()) return MS::kInvalidParameter;
    Item item;
    item.node = object.node();
    item.path = object;
    item.component = component;
    item.isDag = true;
    return addItem(item, mergeWithExisting);
}

MStatus MSelectionList::add(const MPlug& plug, const bool mergeWithExisting) {
    if (plug.isNull()) return MS::kInvalidParameter;
    Item item;
    item.node = plug.node();
    item.plug = plug;
    item.isPlug = true;
    return addItem(item, mergeWithExisting);
}

MStatus MSelectionList::add(const MString& matchString, const bool) {
    mhost::NameMatch match = mhost::lookUpName(matchString.asChar());
    if (!match.node) return MS::kInvalidParameter;
    if (!match.plug.isNull()) return add(match.plug);
    if (!match.component.isNull()) return add(MDagPath::fromHostNode(match.node), match.component);
    return add(mhost::wrapNode(match.node));
}

MStatus MSelectionList::remove(unsigned int index) {
    if (index >= fItems.size()) return MS::kInvalidParameter;
    fItems.erase(fItems.begin() + index);
    return MS::kSuccess;
}

MStatus MSelectionList::replace(unsigned int index, const MObject& item) {
    if (index >= fItems.size()) return MS::kInvalidParameter;
    MSelectionList single;
    MStatus status = single.add(item);
    if (status) fItems[index] = single.fItems.front();
    return status;
}

bool MSelectionList::hasItem(const MObject& item, MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return std::any_of(fItems.begin(), fItems.end(),
                       [&](const Item& i) { return i.node == item && !i.isPlug && i.component.isNull(); });
}

bool MSelectionList::hasItem(const MDagPath& item, const MObject& component, MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return std::any_of(fItems.begin(), fItems.end(),
                       [&](const Item& i) { return i.isDag && i.path == item && i.component == component; });
}

MStatus MSelectionList::toggle(const MDagPath& item, const MObject& component) {
    for (size_t i = 0; i < fItems.size(); ++i)
        if (fItems[i].isDag && fItems[i].path == item && fItems[i].component == component) return remove(i);
    return add(item, component);
}

MStatus MSelectionList::merge(const MSelectionList& other, const MergeStrategy strategy) {
    for (const Item& item : other.fItems) {
        auto it =
            std::find_if(fItems.begin(), fItems.end(), [&](const Item& i) { return sameItem(i, item); });
        const bool present = it != fItems.end();
        if (strategy == kMergeNormal && !present)
            fItems.push_back(item);
        else if (strategy == kXORWithList)
            present ? (void)fItems.erase(it) : fItems.push_back(item);
        else if (strategy == kRemoveFromList && present)
            fItems.erase(it);
    }
    return MS::kSuccess;
}

MStatus MSelectionList::getSelectionStrings(MStringArray& array) const {
    array.clear();
    for (const Item& item : fItems) {
        if (item.isPlug)
            array.append(item.plug.name());
        else if (auto node = mhost::liveNodeOf(item.node))
            array.append(MString((node->name + mhost::componentSuffix(item.component)).c_str()));
    }
    return MS::kSuccess;
}
