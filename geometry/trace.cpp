// Trace lines and dropped messages. Both are seams: the lines are composed but go to no output,
// and the texts handed to failWith never reach the artist. Neither is to grow an output.

#include "geometry/functionsInternal.h"

MString traceIds(const MIntArray& ids, const MString& label) {
    MString line = label + " (len: ";
    line += static_cast<int>(ids.length());
    line += ")";
    if (ids.length() == 0) line += " o-o empty o-o";
    for (unsigned int k = 0; k < ids.length(); ++k) {
        line += " ";
        line += ids[k];
    }
    return line;
}

MString tracePoints(const MPointArray& points, const MString& label) {
    MString line = label + " (len: ";
    line += static_cast<int>(points.length());
    line += ") [";
    if (points.length() == 0) line += " o-o empty o-o";
    for (unsigned int k = 0; k < points.length(); ++k) {
        line += " (";
        line += points[k].x;
        line += ", ";
        line += points[k].y;
        line += ", ";
        line += points[k].z;
        line += "), ";
    }
    return line;
}

MStatus failWith(MStatus& status, const MString& text) {
    (void)text;
    status = MS::kInvalidParameter;
    return status;
}
