#pragma once
// The line-by-line check an OBJ file passes before its mesh is built. tinyobjloader reads what it
// cannot parse as zero and only warns about indices outside the file, so a NaN coordinate or a face
// on a missing vertex would otherwise reach the scene; this check refuses them with the line at fault.

#include <string>

namespace kystrake {

// Checks the vertex ("v") and face ("f") statements of the file at `path`: three coordinates that
// are finite numbers within float range, at least three corners per face, corner indices that are
// whole numbers naming an existing vertex (1-based, or negative counting back from the last vertex
// so far), and no vertex twice in one face. Every other statement is left alone, as importers do.
// Throws ObjError naming the file and the line.
void checkObjLines(const std::string& path);

}  // namespace kystrake
