#pragma once
// MRichSelection: a selection with soft-selection weights and a symmetry part. The headless host has
// neither soft selection nor symmetry: a rich selection is a plain selection list, and its symmetry
// part is always empty.

#include <maya/MObject.h>
#include <maya/MStatus.h>

#include <memory>

class MSelectionList;

class OPENMAYA_EXPORT MRichSelection {
public:
    MRichSelection();
    MRichSelection(const MRichSelection& src);
    virtual ~MRichSelection();
    // The selected items.
    MStatus getSelection(MSelectionList& selection) const;
    // The symmetric counterpart of the selection: always an empty list.
    MStatus getSymmetry(MSelectionList& symmetry) const;
    MStatus clear();
    MStatus setSelection(const MSelectionList& selection);
    static const char* className();

private:
    // Never changed in place, so that copies sharing it stay independent values.
    std::shared_ptr<const MSelectionList> fSelection;
};
