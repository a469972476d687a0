#include <maya/MDagPath.h>
#include <maya/MMatrix.h>

#include <array>
#include <cmath>

#include "core/ReturnStatus.h"
#include "graph/ApiBridge.h"

using mhost::Node;
using mhost::NodePtr;

namespace {

using mhost::report;

bool isIntermediate(const Node& node) {
    const mhost::Attribute* io = node.type->findAttribute("intermediateObject");
    return io && node.storedValue({io, -1}).numbers[0] != 0;
}

std::vector<NodePtr> shapesBelow(const Node& transform) {
    std::vector<NodePtr> shapes;
    for (const auto& child : transform.children)
        if (child->type->isShape && !isIntermediate(*child)) shapes.push_back(child);
    return shapes;
}

std::array<double, 3> vectorAttribute(const NodePtr& node, const char* name) {
    std::array<double, 3> v = {0, 0, 0};
    if (const mhost::Attribute* a = node->type->findAttribute(name)) {
        auto value = mhost::scene().evaluate({node, {a, -1}});
        for (int i = 0; i < 3; ++i) v[i] = value.numbers[i];
    }
    return v;
}

// Local matrix of a transform: scale, then rotation about X, Y, Z (radians), then translation,
// composed for row vectors.
MMatrix composeLocalMatrix(const NodePtr& node) {
    const auto t = vectorAttribute(node, "translate");
    const auto r = vectorAttribute(node, "rotate");
    const auto s = vectorAttribute(node, "scale");
    const double cx = std::cos(r[0]), sx = std::sin(r[0]), cy = std::cos(r[1]), sy = std::sin(r[1]),
                 cz = std::cos(r[2]), sz = std::sin(r[2]);
    const double scale[4][4] = {{s[0], 0, 0, 0}, {0, s[1], 0, 0}, {0, 0, s[2], 0}, {0, 0, 0, 1}};
    const double rx[4][4] = {{1, 0, 0, 0}, {0, cx, sx, 0}, {0, -sx, cx, 0}, {0, 0, 0, 1}};
    const double ry[4][4] = {{cy, 0, -sy, 0}, {0, 1, 0, 0}, {sy, 0, cy, 0}, {0, 0, 0, 1}};
    const double rz[4][4] = {{cz, sz, 0, 0}, {-sz, cz, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    const double translate[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {t[0], t[1], t[2], 1}};
    return MMatrix(scale) * MMatrix(rx) * MMatrix(ry) * MMatrix(rz) * MMatrix(translate);
}

bool isTransform(const Node& node) { return node.type->apiType == MFn::kTransform; }

// Paths are walked for their matrices on every query of a mesh in world space, so each transform
// keeps its own matrix until a transform's values change.
const Node& withCurrentMatrices(const NodePtr& node) {
    const std::uint64_t edits = mhost::transformEditCount();
    if (node->cachedLocalMatrixEdit != edits) {
        node->cachedLocalMatrix = composeLocalMatrix(node);
        node->cachedIdentityTimesLocal = MMatrix() * node->cachedLocalMatrix;
        node->cachedLocalMatrixEdit = edits;
    }
    return *node;
}

}  // namespace

MDagPath::MDagPath() = default;
MDagPath::MDagPath(const MDagPath& src) = default;
MDagPath::~MDagPath() = default;
MDagPath& MDagPath::operator=(const MDagPath& src) = default;
bool MDagPath::operator==(const MDagPath& src) const { return fNodes == src.fNodes; }
const char* MDagPath::className() { return "MDagPath"; }

MDagPath MDagPath::fromHostNode(const NodePtr& node) {
    MDagPath path;
    for (Node* n = node.get(); n; n = n->parent) path.fNodes.insert(path.fNodes.begin(), n->self());
    return path;
}

MStatus MDagPath::getAPathTo(const MObject& node, MDagPath& path) {
    NodePtr host = mhost::liveNodeOf(node);
    if (!host || !host->type->isDag) {
        path = MDagPath();
        return MS::kInvalidParameter;
    }
    path = fromHostNode(host);
    return MS::kSuccess;
}

bool MDagPath::isValid(MStatus* ReturnStatus) const {
    report(ReturnStatus, MS::kSuccess);
    if (fNodes.empty()) return false;
    for (const auto& n : fNodes)
        if (!n->alive) return false;
    return true;
}

bool MDagPath::hasFn(MFn::Type type, MStatus* ReturnStatus) const {
    report(ReturnStatus, isValid() ? MS::kSuccess : MS::kInvalidParameter);
    return isValid() && fNodes.back()->hasFn(type);
}

MFn::Type MDagPath::apiType(MStatus* ReturnStatus) const {
    report(ReturnStatus, isValid() ? MS::kSuccess : MS::kInvalidParameter);
    return isValid() ? fNodes.back()->apiType() : MFn::kInvalid;
}

MObject MDagPath::node(MStatus* ReturnStatus) const {
    report(ReturnStatus, isValid() ? MS::kSuccess : MS::kInvalidParameter);
    return isValid() ? mhost::wrapNode(fNodes.back()) : MObject();
}

MObject MDagPath::transform(MStatus* ReturnStatus) const {
    report(ReturnStatus, isValid() ? MS::kSuccess : MS::kInvalidParameter);
    for (auto it = fNodes.rbegin(); isValid() && it != fNodes.rend(); ++it)
        if ((*it)->hasFn(MFn::kTransform)) return mhost::wrapNode(*it);
    return MObject();
}

unsigned int MDagPath::length(MStatus* ReturnStatus) const {
    report(ReturnStatus, MS::kSuccess);
    return fNodes.empty() ? 0 : static_cast<unsigned int>(fNodes.size() - 1);
}

MStatus MDagPath::extendToShape() {
    if (!isValid()) return MS::kInvalidParameter;
    if (fNodes.back()->type->isShape) return MS::kSuccess;
    auto shapes = shapesBelow(*fNodes.back());
    if (shapes.size() != 1) return MS::kInvalidParameter;
    fNodes.push_back(shapes.front());
    return MS::kSuccess;
}

MStatus MDagPath::extendToShapeDirectlyBelow(unsigned int index) {
    if (!isValid()) return MS::kInvalidParameter;
    auto shapes = shapesBelow(*fNodes.back());
    if (index >= shapes.size()) return MS::kInvalidParameter;
    fNodes.push_back(shapes[index]);
    return MS::kSuccess;
}

MStatus MDagPath::numberOfShapesDirectlyBelow(unsigned int& count) const {
    count = isValid() ? static_cast<unsigned int>(shapesBelow(*fNodes.back()).size()) : 0;
    return isValid() ? MS::kSuccess : MS::kInvalidParameter;
}

MStatus MDagPath::push(const MObject& child) {
    NodePtr host = mhost::liveNodeOf(child);
    if (!isValid() || !host || host->parent != fNodes.back().get()) return MS::kInvalidParameter;
    fNodes.push_back(host);
    return MS::kSuccess;
}

MStatus MDagPath::pop(unsigned int num) {
    if (num > fNodes.size()) return MS::kInvalidParameter;
    fNodes.resize(fNodes.size() - num);
    return MS::kSuccess;
}

unsigned int MDagPath::childCount(MStatus* ReturnStatus) const {
    report(ReturnStatus, isValid() ? MS::kSuccess : MS::kInvalidParameter);
    return isValid() ? static_cast<unsigned int>(fNodes.back()->children.size()) : 0;
}

MObject MDagPath::child(unsigned int i, MStatus* ReturnStatus) const {
    const bool ok = isValid() && i < fNodes.back()->children.size();
    report(ReturnStatus, ok ? MS::kSuccess : MS::kInvalidParameter);
    return ok ? mhost::wrapNode(fNodes.back()->children[i]) : MObject();
}

MMatrix MDagPath::inclusiveMatrix(MStatus* ReturnStatus) const {
    report(ReturnStatus, isValid() ? MS::kSuccess : MS::kInvalidParameter);
    // The product starts from the identity; its first factor is kept ready made, the same bits.
    MMatrix world;
    bool first = true;
    for (auto it = fNodes.rbegin(); isValid() && it != fNodes.rend(); ++it) {
        if (!isTransform(**it)) continue;
        const Node& transform = withCurrentMatrices(*it);
        world = first ? transform.cachedIdentityTimesLocal : world * transform.cachedLocalMatrix;
        first = false;
    }
    return world;
}

MMatrix MDagPath::exclusiveMatrix(MStatus* ReturnStatus) const {
    MDagPath above(*this);
    if (above.fNodes.size() > 1)
        above.pop();
    else
        above.fNodes.clear();
    report(ReturnStatus, isValid() ? MS::kSuccess : MS::kInvalidParameter);
    return above.fNodes.empty() ? MMatrix() : above.inclusiveMatrix();
}

MMatrix MDagPath::inclusiveMatrixInverse(MStatus* s) const { return inclusiveMatrix(s).inverse(); }
MMatrix MDagPath::exclusiveMatrixInverse(MStatus* s) const { return exclusiveMatrix(s).inverse(); }

MStatus MDagPath::set(const MDagPath& src) {
    *this = src;
    return MS::kSuccess;
}

unsigned int MDagPath::pathCount(MStatus* ReturnStatus) const {
    report(ReturnStatus, MS::kSuccess);
    return isValid() ? 1 : 0;
}

MStatus MDagPath::getPath(MDagPath& path, unsigned int i) const {
    if (!isValid() || i != 0) return MS::kInvalidParameter;
    path = *this;
    return MS::kSuccess;
}

MString MDagPath::fullPathName(MStatus* ReturnStatus) const {
    report(ReturnStatus, isValid() ? MS::kSuccess : MS::kInvalidParameter);
    std::string text;
    for (const auto& n : fNodes) text += "|" + n->name;
    return isValid() ? MString(text.c_str()) : MString();
}

MString MDagPath::partialPathName(MStatus* ReturnStatus) const {
    report(ReturnStatus, isValid() ? MS::kSuccess : MS::kInvalidParameter);
    return isValid() ? MString(fNodes.back()->name.c_str()) : MString();
}

bool MDagPath::isInstanced(MStatus* ReturnStatus) const {
    report(ReturnStatus, MS::kSuccess);
    return false;
}
