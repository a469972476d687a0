#pragma once
// MBoundingBox: an axis-aligned box. A new or cleared box is empty: it contains nothing, measures 0 on
// every side, reports the origin as min, max and center, and takes the first point it is expanded by
// as its only point.

#include <maya/MPoint.h>
#include <maya/MTypes.h>

class MMatrix;

class OPENMAYA_EXPORT MBoundingBox {
public:
    // An empty box.
    MBoundingBox();
    MBoundingBox(const MBoundingBox& src);
    // The smallest box holding both corners, whichever way round they are given.
    MBoundingBox(const MPoint& corner1, const MPoint& corner2);
    ~MBoundingBox();
    // Makes the box empty.
    void clear();
    // Replaces the box by the box around its eight corners transformed by the matrix (row vectors,
    // each corner cartesianized). An empty box stays empty.
    void transformUsing(const MMatrix& matrix);
    // Grows the box to hold the point (its cartesian form), or the other box; an empty other box
    // changes nothing.
    void expand(const MPoint& point);
    void expand(const MBoundingBox& box);
    // True when the point lies inside or on the surface; an empty box contains nothing.
    bool contains(const MPoint& point) const;
    // True when the boxes overlap or touch, or their gap is at most `tol` along every axis. Empty
    // boxes intersect nothing.
    bool intersects(const MBoundingBox& box, double tol = 0.0) const;
    // Extent along x, y and z; 0 for an empty box.
    double width() const;
    double height() const;
    double depth() const;
    // The middle of the box; the origin for an empty box.
    MPoint center() const;
    // The corners with the smallest and the largest coordinates; the origin for an empty box.
    MPoint min() const;
    MPoint max() const;
    MBoundingBox& operator=(const MBoundingBox& other);

private:
    bool isEmpty() const;

    // An empty box keeps min above max (+infinity and -infinity) so that expanding needs no special case.
    MPoint fMin;
    MPoint fMax;
};
