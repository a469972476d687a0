#pragma once
// What an MUIDrawManager records: every call a plug-in makes on it, in call order, each with the draw
// state in force once the call has taken effect. A renderer replays the primitives among them; tests
// read the calls and their state.

#include <maya/MColor.h>
#include <maya/MPoint.h>
#include <maya/MUIDrawManager.h>
#include <maya/MVector.h>

#include <string>
#include <vector>

namespace mhost {

using DrawManager = MHWRender::MUIDrawManager;

// The state the setters of MUIDrawManager change. beginDrawable, beginDrawInXray and their end calls
// put every field back to these defaults (only X-ray and the drawable's selectability are theirs).
struct DrawState {
    MColor color;  // opaque black
    float lineWidth = 1.0f;
    float pointSize = 1.0f;
    DrawManager::LineStyle lineStyle = DrawManager::kSolid;
    // Set by the factor-and-pattern form of setLineStyle: a 16-bit pattern, each bit `factor` pixels
    // long, lowest bit first. A factor of 0 means the named lineStyle applies.
    unsigned int stippleFactor = 0;
    unsigned short stipplePattern = 0;
    unsigned int depthPriority = 0;
    unsigned int fontSize = DrawManager::kDefaultFontSize;
    std::string fontName;
    bool inDrawable = false;
    bool xray = false;
    DrawManager::Selectability selectability = DrawManager::kAutomatic;
    unsigned int selectionName = 0;
};

// One call of MUIDrawManager; the "2d" forms are the same calls with `is2D` set.
enum class DrawCall {
    kBeginDrawable,
    kEndDrawable,
    kBeginDrawInXray,
    kEndDrawInXray,
    kSetColor,
    kSetLineWidth,
    kSetLineStyle,
    kSetPointSize,
    kSetDepthPriority,
    kSetFontSize,
    kSetFontName,
    kLine,
    kLineList,
    kLineStrip,
    kPoint,
    kPoints,
    kCircle,
    kArc,
    kRect,
    kText,
    kMesh,
};

// A recorded call. Only the fields its kind uses are set:
// - kLine: points = {start, end}; kLineList, kLineStrip, kPoints: points as given; kPoint: {point}.
// - kCircle: points = {centre}, normal, radius, subdivisions (0 = the renderer's choice), filled.
// - kArc: like kCircle, plus arcStart and arcEnd, the directions from the centre that bound the arc.
// - kRect: points = {centre}, up, normal (3D only), scaleX and scaleY as half-extents, filled.
// - kText: points = {position}, text (UTF-8), alignment.
// - kMesh: primitive, points = positions, indices (empty = the positions in order), colors (per
//   position; empty = the state's colour).
// 2D positions are view pixels with the origin at the bottom left; their z is ignored.
struct DrawRecord {
    DrawCall call = DrawCall::kLine;
    DrawState state;
    bool is2D = false;
    std::vector<MPoint> points;
    MVector normal;
    MVector up;
    MVector arcStart;
    MVector arcEnd;
    double radius = 0.0;
    double scaleX = 0.0;
    double scaleY = 0.0;
    int subdivisions = 0;
    bool filled = false;
    std::string text;
    DrawManager::TextAlignment alignment = DrawManager::kLeft;
    DrawManager::Primitive primitive = DrawManager::kTriangles;
    std::vector<unsigned int> indices;
    std::vector<MColor> colors;

    // Whether the call draws something (as opposed to setting state or opening a drawable).
    bool drawsSomething() const { return call >= DrawCall::kLine; }
};

// The calls made on one MUIDrawManager, and the state they leave for the next call.
struct DisplayList {
    std::vector<DrawRecord> records;
    DrawState state;

    // The records that draw something, in call order.
    std::vector<const DrawRecord*> primitives() const;
};

}  // namespace mhost
