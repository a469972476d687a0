#include <maya/MColorArray.h>
#include <maya/MUIDrawManager.h>
#include <maya/MUintArray.h>

#include "drawing/DisplayList.h"

namespace MHWRender {
namespace {

std::vector<MPoint> pointsOf(const MPointArray& array) {
    std::vector<MPoint> result;
    result.reserve(array.length());
    for (unsigned int i = 0; i < array.length(); ++i) result.push_back(array[i]);
    return result;
}

// Opens or closes a drawable: everything the setters changed goes back to the defaults.
void resetState(mhost::DisplayList& list, bool open, bool xray) {
    list.state = mhost::DrawState();
    list.state.inDrawable = open;
    list.state.xray = xray;
}

// Appends a record of the call with the state in force now.
mhost::DrawRecord& record(mhost::DisplayList& list, mhost::DrawCall call, bool is2D = false) {
    mhost::DrawRecord entry;
    entry.call = call;
    entry.state = list.state;
    entry.is2D = is2D;
    list.records.push_back(std::move(entry));
    return list.records.back();
}

}  // namespace

MUIDrawManager::MUIDrawManager(mhost::DisplayList& list) : fList(&list) {}
MUIDrawManager::~MUIDrawManager() = default;

void MUIDrawManager::beginDrawable(Selectability selectability, unsigned int selectionName) {
    resetState(*fList, true, false);
    fList->state.selectability = selectability;
    fList->state.selectionName = selectionName;
    record(*fList, mhost::DrawCall::kBeginDrawable);
}

void MUIDrawManager::beginDrawable(unsigned int name, bool nameIsPickable) {
    beginDrawable(nameIsPickable ? kSelectable : kNonSelectable, name);
}

void MUIDrawManager::endDrawable() {
    resetState(*fList, false, false);
    record(*fList, mhost::DrawCall::kEndDrawable);
}

void MUIDrawManager::beginDrawInXray() {
    resetState(*fList, true, true);
    record(*fList, mhost::DrawCall::kBeginDrawInXray);
}

void MUIDrawManager::endDrawInXray() {
    resetState(*fList, false, false);
    record(*fList, mhost::DrawCall::kEndDrawInXray);
}

void MUIDrawManager::setColor(const MColor& color) {
    fList->state.color = color;
    record(*fList, mhost::DrawCall::kSetColor);
}

void MUIDrawManager::setPointSize(float value) {
    fList->state.pointSize = value;
    record(*fList, mhost::DrawCall::kSetPointSize);
}

void MUIDrawManager::setLineWidth(float value) {
    fList->state.lineWidth = value;
    record(*fList, mhost::DrawCall::kSetLineWidth);
}

void MUIDrawManager::setLineStyle(LineStyle style) {
    fList->state.lineStyle = style;
    fList->state.stippleFactor = 0;
    fList->state.stipplePattern = 0;
    record(*fList, mhost::DrawCall::kSetLineStyle);
}

void MUIDrawManager::setLineStyle(unsigned int factor, unsigned short pattern) {
    fList->state.stippleFactor = factor;
    fList->state.stipplePattern = pattern;
    record(*fList, mhost::DrawCall::kSetLineStyle);
}

unsigned int MUIDrawManager::depthPriority() const { return fList->state.depthPriority; }

void MUIDrawManager::setDepthPriority(unsigned int priority) {
    fList->state.depthPriority = priority;
    record(*fList, mhost::DrawCall::kSetDepthPriority);
}

void MUIDrawManager::line(const MPoint& startPoint, const MPoint& endPoint) {
    record(*fList, mhost::DrawCall::kLine).points = {startPoint, endPoint};
}

void MUIDrawManager::line2d(const MPoint& startPoint, const MPoint& endPoint) {
    record(*fList, mhost::DrawCall::kLine, true).points = {startPoint, endPoint};
}

MStatus MUIDrawManager::lineList(const MPointArray& points, bool draw2D) {
    if (points.length() % 2 != 0) return MS::kInvalidParameter;
    record(*fList, mhost::DrawCall::kLineList, draw2D).points = pointsOf(points);
    return MS::kSuccess;
}

MStatus MUIDrawManager::lineStrip(const MPointArray& points, bool draw2D) {
    if (points.length() < 2) return MS::kInvalidParameter;
    record(*fList, mhost::DrawCall::kLineStrip, draw2D).points = pointsOf(points);
    return MS::kSuccess;
}

void MUIDrawManager::point(const MPoint& point) { record(*fList, mhost::DrawCall::kPoint).points = {point}; }

void MUIDrawManager::point2d(const MPoint& point) {
    record(*fList, mhost::DrawCall::kPoint, true).points = {point};
}

MStatus MUIDrawManager::points(const MPointArray& points, bool draw2D) {
    if (points.length() == 0) return MS::kInvalidParameter;
    record(*fList, mhost::DrawCall::kPoints, draw2D).points = pointsOf(points);
    return MS::kSuccess;
}

void MUIDrawManager::rect(const MPoint& center, const MVector& up, const MVector& normal, double scaleX,
                          double scaleY, bool filled) {
    mhost::DrawRecord& entry = record(*fList, mhost::DrawCall::kRect);
    entry.points = {center};
    entry.up = up;
    entry.normal = normal;
    entry.scaleX = scaleX;
    entry.scaleY = scaleY;
    entry.filled = filled;
}

void MUIDrawManager::rect2d(const MPoint& center, const MVector& up, double scaleX, double scaleY,
                            bool filled) {
    mhost::DrawRecord& entry = record(*fList, mhost::DrawCall::kRect, true);
    entry.points = {center};
    entry.up = up;
    entry.normal = MVector(0.0, 0.0, 1.0);
    entry.scaleX = scaleX;
    entry.scaleY = scaleY;
    entry.filled = filled;
}

void MUIDrawManager::circle(const MPoint& center, const MVector& normal, double radius, bool filled) {
    circle(center, normal, radius, 0, filled);
}

void MUIDrawManager::circle2d(const MPoint& center, double radius, bool filled) {
    circle2d(center, radius, 0, filled);
}

void MUIDrawManager::circle(const MPoint& center, const MVector& normal, double radius, int numSubdivision,
                            bool filled) {
    mhost::DrawRecord& entry = record(*fList, mhost::DrawCall::kCircle);
    entry.points = {center};
    entry.normal = normal;
    entry.radius = radius;
    entry.subdivisions = numSubdivision;
    entry.filled = filled;
}

void MUIDrawManager::circle2d(const MPoint& center, double radius, int numSubdivision, bool filled) {
    mhost::DrawRecord& entry = record(*fList, mhost::DrawCall::kCircle, true);
    entry.points = {center};
    entry.normal = MVector(0.0, 0.0, 1.0);
    entry.radius = radius;
    entry.subdivisions = numSubdivision;
    entry.filled = filled;
}

void MUIDrawManager::arc(const MPoint& center, const MVector& start, const MVector& end,
                         const MVector& normal, double radius, bool filled) {
    arc(center, start, end, normal, radius, 0, filled);
}

void MUIDrawManager::arc2d(const MPoint& center, const MVector& start, const MVector& end, double radius,
                           bool filled) {
    arc2d(center, start, end, radius, 0, filled);
}

void MUIDrawManager::arc(const MPoint& center, const MVector& start, const MVector& end,
                         const MVector& normal, double radius, int numSubdivisions, bool filled) {
    mhost::DrawRecord& entry = record(*fList, mhost::DrawCall::kArc);
    entry.points = {center};
    entry.arcStart = start;
    entry.arcEnd = end;
    entry.normal = normal;
    entry.radius = radius;
    entry.subdivisions = numSubdivisions;
    entry.filled = filled;
}

void MUIDrawManager::arc2d(const MPoint& center, const MVector& start, const MVector& end, double radius,
                           int numSubdivisions, bool filled) {
    arc(center, start, end, MVector(0.0, 0.0, 1.0), radius, numSubdivisions, filled);
    fList->records.back().is2D = true;
}

void MUIDrawManager::mesh(Primitive mode, const MPointArray& position, const MVectorArray*,
                          const MColorArray* color, const MUintArray* index, const MPointArray*) {
    mhost::DrawRecord& entry = record(*fList, mhost::DrawCall::kMesh);
    entry.primitive = mode;
    entry.points = pointsOf(position);
    if (index)
        for (unsigned int i = 0; i < index->length(); ++i) entry.indices.push_back((*index)[i]);
    if (color)
        for (unsigned int i = 0; i < color->length(); ++i) entry.colors.push_back((*color)[i]);
}

void MUIDrawManager::mesh2d(Primitive mode, const MPointArray& position, const MColorArray* color,
                            const MUintArray* index, const MPointArray* texcoord) {
    mesh(mode, position, nullptr, color, index, texcoord);
    fList->records.back().is2D = true;
}

void MUIDrawManager::setFontSize(const unsigned int fontSize) {
    fList->state.fontSize = fontSize;
    record(*fList, mhost::DrawCall::kSetFontSize);
}

void MUIDrawManager::setFontName(const MString& faceName) {
    fList->state.fontName = faceName.asChar();
    record(*fList, mhost::DrawCall::kSetFontName);
}

void MUIDrawManager::text(const MPoint& position, const MString& text, TextAlignment alignment, const int*,
                          const MColor*, bool) {
    mhost::DrawRecord& entry = record(*fList, mhost::DrawCall::kText);
    entry.points = {position};
    entry.text = text.asChar();
    entry.alignment = alignment;
}

void MUIDrawManager::text2d(const MPoint& position, const MString& text, TextAlignment alignment,
                            const int* backgroundSize, const MColor* backgroundColor, bool dynamic) {
    this->text(position, text, alignment, backgroundSize, backgroundColor, dynamic);
    fList->records.back().is2D = true;
}

}  // namespace MHWRender
