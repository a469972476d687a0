// MRichSelection, and the rich-selection part of MGlobal.

#include <maya/MGlobal.h>
#include <maya/MRichSelection.h>
#include <maya/MSelectionList.h>

#include "graph/Scene.h"

MRichSelection::MRichSelection() : fSelection(std::make_shared<const MSelectionList>()) {}
MRichSelection::MRichSelection(const MRichSelection& src) = default;
MRichSelection::~MRichSelection() = default;
const char* MRichSelection::className() { return "MRichSelection"; }

MStatus MRichSelection::getSelection(MSelectionList& selection) const {
    selection = *fSelection;
    return MS::kSuccess;
}

MStatus MRichSelection::getSymmetry(MSelectionList& symmetry) const { return symmetry.clear(); }

MStatus MRichSelection::clear() { return setSelection(MSelectionList()); }

MStatus MRichSelection::setSelection(const MSelectionList& selection) {
    fSelection = std::make_shared<const MSelectionList>(selection);
    return MS::kSuccess;
}

MStatus MGlobal::getRichSelection(MRichSelection& dest, bool defaultToActiveSelection) {
    return dest.setSelection(defaultToActiveSelection ? mhost::scene().settings.activeSelection
                                                      : MSelectionList());
}

MStatus MGlobal::setRichSelection(const MRichSelection& src) {
    MSelectionList selection;
    src.getSelection(selection);
    return setActiveSelectionList(selection);
}
