#pragma once
// State-free helpers of the anchor rows and their bridge preview: vertex positions by id and the
// triangles between two rows of equal length.

#include <maya/MDagPath.h>
#include <maya/MPoint.h>
#include <maya/MUintArray.h>

// World position of vertex `id` of the mesh at `path`, found by walking a vertex iterator from its
// start; the origin for an id the mesh does not have. O(vertices).
MPoint vertexPosition(const MDagPath& path, int id);

// Triangle corners joining two rows of `rowLength` points stored one after the other: two
// triangles per pair of neighbouring columns, empty for a row of one point. O(rowLength).
MUintArray quadIndices(int rowLength);
