#pragma once
// MHWRender::MUIDrawManager: what the host hands a draw override or a tool context to draw simple UI
// primitives (lines, circles, text, small meshes) in the viewport. The headless host records every
// call, in order and with the draw state it leaves, and draws the record when it renders a frame.

#include <maya/MColor.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypes.h>
#include <maya/MVector.h>

class MColorArray;
class MUintArray;
class MVectorArray;

namespace mhost {
struct DisplayList;
class DrawRecorder;
}  // namespace mhost

namespace MHWRender {

class OPENMAYARENDER_EXPORT MUIDrawManager {
public:
    enum FontSize { kDefaultFontSize = 12, kSmallFontSize = 9 };
    enum TextAlignment { kLeft, kCenter, kRight };
    enum LineStyle { kSolid, kShortDotted, kShortDashed, kDashed, kDotted };
    enum Primitive { kPoints, kLines, kLineStrip, kClosedLine, kTriangles, kTriStrip };
    enum Selectability { kNonSelectable, kSelectable, kAutomatic };

    // Opens a drawable and resets the draw state (colour, widths, style, priority, font) to its
    // defaults. Drawing between begin and end belongs to that drawable.
    void beginDrawable(Selectability selectability = kAutomatic, unsigned int selectionName = 0);
    // The older manipulator form: `name` is the selection name, selectable when `nameIsPickable`.
    void beginDrawable(unsigned int name, bool nameIsPickable);
    // Closes the drawable and resets the draw state.
    void endDrawable();
    // Like beginDrawable, for drawing that shows through all geometry (X-ray).
    void beginDrawInXray();
    void endDrawInXray();

    // State setters: they apply to every primitive drawn after them until the next reset.
    void setColor(const MColor& color);
    void setPointSize(float value);
    void setLineWidth(float value);
    void setLineStyle(LineStyle style);
    // A custom stipple: a 16-bit on/off `pattern`, each bit repeated `factor` pixels.
    void setLineStyle(unsigned int factor, unsigned short pattern);
    // Higher priorities are drawn over lower ones; the current priority.
    unsigned int depthPriority() const;
    void setDepthPriority(unsigned int priority);

    // One segment, in world space or (2d) in view pixels with the origin at the bottom left.
    void line(const MPoint& startPoint, const MPoint& endPoint);
    void line2d(const MPoint& startPoint, const MPoint& endPoint);
    // Separate segments from consecutive pairs: kInvalidParameter (nothing drawn) for an odd count.
    MStatus lineList(const MPointArray& points, bool draw2D);
    // A polyline through the points: kInvalidParameter (nothing drawn) for fewer than two.
    MStatus lineStrip(const MPointArray& points, bool draw2D);

    void point(const MPoint& point);
    void point2d(const MPoint& point);
    // kInvalidParameter (nothing drawn) for an empty array.
    MStatus points(const MPointArray& points, bool draw2D);

    // A rectangle around `center`, its height along `up` and facing `normal`; the scales are
    // half-extents (world units, or pixels for rect2d).
    void rect(const MPoint& center, const MVector& up, const MVector& normal, double scaleX, double scaleY,
              bool filled = false);
    void rect2d(const MPoint& center, const MVector& up, double scaleX, double scaleY, bool filled = false);

    // A circle in the plane through `center` facing `normal`; circle2d's radius is in pixels.
    void circle(const MPoint& center, const MVector& normal, double radius, bool filled = false);
    void circle2d(const MPoint& center, double radius, bool filled = false);
    void circle(const MPoint& center, const MVector& normal, double radius, int numSubdivision, bool filled);
    void circle2d(const MPoint& center, double radius, int numSubdivision, bool filled);

    // The arc of a circle from the direction `start` to the direction `end`, counter-clockwise about
    // `normal` (2d: about the view's z axis); filled arcs are pie slices.
    void arc(const MPoint& center, const MVector& start, const MVector& end, const MVector& normal,
             double radius, bool filled = false);
    void arc2d(const MPoint& center, const MVector& start, const MVector& end, double radius,
               bool filled = false);
    void arc(const MPoint& center, const MVector& start, const MVector& end, const MVector& normal,
             double radius, int numSubdivisions, bool filled);
    void arc2d(const MPoint& center, const MVector& start, const MVector& end, double radius,
               int numSubdivisions, bool filled);

    // Triangles, strips, lines or points through `position`, optionally indexed and coloured per
    // position. The host ignores normals and texture coordinates.
    void mesh(Primitive mode, const MPointArray& position, const MVectorArray* normal = NULL,
              const MColorArray* color = NULL, const MUintArray* index = NULL,
              const MPointArray* texcoord = NULL);
    void mesh2d(Primitive mode, const MPointArray& position, const MColorArray* color = NULL,
                const MUintArray* index = NULL, const MPointArray* texcoord = NULL);

    // Font of later text: size in points, and the face name (empty = the default face).
    void setFontSize(const unsigned int fontSize);
    void setFontName(const MString& faceName);
    // Text at a world position, or (2d) at view pixels. The host ignores the background and dynamic
    // arguments.
    void text(const MPoint& position, const MString& text, TextAlignment alignment = kLeft,
              const int* backgroundSize = NULL, const MColor* backgroundColor = NULL, bool dynamic = false);
    void text2d(const MPoint& position, const MString& text, TextAlignment alignment = kLeft,
                const int* backgroundSize = NULL, const MColor* backgroundColor = NULL, bool dynamic = false);

private:
    // Host side: only mhost::DrawRecorder makes and ends a manager, recording into `list`. The
    // destructor is private as in Maya, where a plug-in never owns a draw manager.
    friend class mhost::DrawRecorder;
    explicit MUIDrawManager(mhost::DisplayList& list);
    ~MUIDrawManager();

    MUIDrawManager(const MUIDrawManager&);
    MUIDrawManager& operator=(const MUIDrawManager&);

    mhost::DisplayList* fList;
};

}  // namespace MHWRender
