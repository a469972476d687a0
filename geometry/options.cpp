// Settings kept in the host's option variables, read afresh each time with their defaults, and the
// two text channels through which messages reach the artist.

#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>

#include "geometry/functionsInternal.h"

namespace {

const int kDefaultSpans = 12;
// A source mesh above this many polygons, not referenced, gets a hint to decimate or reference it.
const int kDensePolygonCount = 500000;

int readSpans(const char* key) {
    bool exists = false;
    const int spans = MGlobal::optionVarIntValue(key, &exists);
    if (!exists) return kDefaultSpans;
    // A stored 0 reads as 1, and so does a negative count a script may have stored: a patch
    // needs at least one span each way.
    return spans < 1 ? 1 : spans;
}

bool storeSpans(const char* key, int spans) { return MGlobal::setOptionVarValue(key, spans < 1 ? 1 : spans); }

// The density hint for the source mesh, or "" when the mesh is missing, light or referenced. The
// hint starts with its own comma: the display breaks lines at commas.
MString densityWarning() {
    MDagPath source = getSourceMeshPath();
    if (!source.isValid()) return "";
    MStatus status;
    MFnMesh mesh(source, &status);
    if (!status) return "";
    const int polygons = mesh.numPolygons();
    if (polygons <= kDensePolygonCount || MFnDependencyNode(source.node()).isFromReferencedFile()) return "";
    MString warning = ",The source mesh density is high (";
    warning += polygons;
    warning +=
        " polys) you may decimate and/or split then import the mesh as a reference for a better performance.";
    return warning;
}

// Every message reads the locator's "displayInfo"; the value decides nothing here (the display
// reads it for itself), the read is simply part of posting a message.
void touchDisplayInfo() {
    MStatus status;
    getIntAttr("displayInfo", findStrakeLocator(), status);
}

}  // namespace

int getUSpan() { return readSpans("ky_uspan"); }

int getVSpan() { return readSpans("ky_vspan"); }

bool setUSpan(int spans) { return storeSpans("ky_uspan", spans); }

bool setVSpan(int spans) { return storeSpans("ky_vspan", spans); }

bool getGlue() {
    bool exists = false;
    const int glue = MGlobal::optionVarIntValue("ky_glue", &exists);
    return exists && glue != 0;
}

bool setGlue(bool on) { return MGlobal::setOptionVarValue("ky_glue", on ? 1 : 0); }

int optionInt(const MString& key, int fallback) {
    bool exists = false;
    const int value = MGlobal::optionVarIntValue(key, &exists);
    return exists ? value : fallback;
}

double optionDouble(const MString& key, double fallback) {
    bool exists = false;
    const double value = MGlobal::optionVarDoubleValue(key, &exists);
    return exists ? value : fallback;
}

bool optionFlag(const MString& key, int fallback) { return optionInt(key, fallback) == 1; }

void setInfoLine1(const MString& text) {
    MGlobal::setOptionVarValue("kyStrake_info1", text + densityWarning());
    touchDisplayInfo();
}

void setInfoLine2(const MString& text) {
    MGlobal::setOptionVarValue("kyStrake_info2", text);
    touchDisplayInfo();
}

void setInfoLines(const MString& line2, const MString& line1) {
    setInfoLine2(line2);
    setInfoLine1(line1);
}
