// Design note: each queued edit is a pair of closures over whole before/after facts (the node, its
// old name, its connections), so undoIt and a later doIt can flip the scene between the two states
// any number of times.

#include <maya/MDGModifier.h>
#include <maya/MFnDependencyNode.h>

#include <algorithm>

#include "commands/UndoCapture.h"
#include "graph/ApiBridge.h"

using mhost::NodePtr;

MDGModifier::MDGModifier() = default;
MDGModifier::~MDGModifier() = default;
const char* MDGModifier::className() { return "MDGModifier"; }

MStatus MDGModifier::queue(Edit edit) {
    fEdits.push_back(std::move(edit));
    return MS::kSuccess;
}

MObject MDGModifier::queueCreation(const MString& type, const MObject& parent, MStatus* ReturnStatus) {
    auto report = [&](MStatus s) {
        if (ReturnStatus) *ReturnStatus = s;
    };
    auto typeInfo = mhost::nodeTypes().find(type.asChar());
    NodePtr parentNode = mhost::liveNodeOf(parent);
    if (!typeInfo || (!parent.isNull() && !parentNode)) {
        report(MS::kInvalidParameter);
        return MObject();
    }
    NodePtr top;
    try {
        NodePtr node = mhost::scene().makeNode(typeInfo, "", parentNode.get());
        top = node;
        if (typeInfo->isShape && !parentNode) {
            top = mhost::scene().makeNode(mhost::nodeTypes().find("transform"), "transform1");
            node->parent = top.get();
            top->children.push_back(node);
        }
    } catch (const std::exception&) {
        report(MS::kFailure);
        return MObject();
    }
    queue({[top] {
               mhost::scene().restoreNode(top, {});
               return MStatus(MS::kSuccess);
           },
           [top] {
               mhost::scene().deleteNode(top);
               return MStatus(MS::kSuccess);
           }});
    report(MS::kSuccess);
    return mhost::wrapNode(top);
}

MObject MDGModifier::createNode(const MTypeId& typeId, MStatus* ReturnStatus) {
    auto type = mhost::nodeTypes().findById(typeId.id());
    return createNode(MString(type ? type->name.c_str() : ""), ReturnStatus);
}

MObject MDGModifier::createNode(const MString& type, MStatus* ReturnStatus) {
    auto typeInfo = mhost::nodeTypes().find(type.asChar());
    if (typeInfo && typeInfo->isDag) {
        // DAG nodes need an MDagModifier, as in Maya.
        if (ReturnStatus) *ReturnStatus = MS::kInvalidParameter;
        return MObject();
    }
    return queueCreation(type, MObject(), ReturnStatus);
}

namespace {

// A DAG node goes with its children, and so do their connections: undo must bring back all of them.
std::vector<mhost::Connection> connectionsOfSubtree(const mhost::Node& node) {
    std::vector<mhost::Connection> found = mhost::scene().connectionsOf(node);
    for (const auto& child : node.children) {
        for (const mhost::Connection& c : connectionsOfSubtree(*child)) {
            const bool known = std::any_of(found.begin(), found.end(), [&](const mhost::Connection& k) {
                return k.source == c.source && k.destination == c.destination;
            });
            if (!known) found.push_back(c);
        }
    }
    return found;
}

}  // namespace

MStatus MDGModifier::deleteNode(const MObject& node) {
    NodePtr host = mhost::nodeOf(node);
    if (!host) return MS::kInvalidParameter;
    auto connections = std::make_shared<std::vector<mhost::Connection>>();
    return queue({[host, connections] {
                      if (!host->alive) return MStatus(MS::kInvalidParameter);
                      *connections = connectionsOfSubtree(*host);
                      mhost::scene().deleteNode(host);
                      return MStatus(MS::kSuccess);
                  },
                  [host, connections] {
                      mhost::scene().restoreNode(host, *connections);
                      return MStatus(MS::kSuccess);
                  }});
}

MStatus MDGModifier::renameNode(const MObject& node, const MString& newName) {
    NodePtr host = mhost::nodeOf(node);
    if (!host || newName.length() == 0) return MS::kInvalidParameter;
    auto oldName = std::make_shared<std::string>();
    std::string wanted = newName.asChar();
    return queue({[host, oldName, wanted] {
                      *oldName = host->name;
                      mhost::scene().rename(host, wanted);
                      return MStatus(MS::kSuccess);
                  },
                  [host, oldName] {
                      mhost::scene().rename(host, *oldName);
                      return MStatus(MS::kSuccess);
                  }});
}

MStatus MDGModifier::connect(const MObject& sourceNode, const MObject& sourceAttr, const MObject& destNode,
                             const MObject& destAttr) {
    return connect(MPlug(sourceNode, sourceAttr), MPlug(destNode, destAttr));
}

MStatus MDGModifier::disconnect(const MObject& sourceNode, const MObject& sourceAttr, const MObject& destNode,
                                const MObject& destAttr) {
    return disconnect(MPlug(sourceNode, sourceAttr), MPlug(destNode, destAttr));
}

MStatus MDGModifier::connect(const MPlug& source, const MPlug& dest) {
    if (source.isNull() || dest.isNull()) return MS::kInvalidParameter;
    mhost::PlugRef from = source.hostPlug(), to = dest.hostPlug();
    return queue({[from, to] { return mhost::scene().connect(from, to, false); },
                  [from, to] { return mhost::scene().disconnect(from, to); }});
}

MStatus MDGModifier::disconnect(const MPlug& source, const MPlug& dest) {
    if (source.isNull() || dest.isNull()) return MS::kInvalidParameter;
    mhost::PlugRef from = source.hostPlug(), to = dest.hostPlug();
    return queue({[from, to] { return mhost::scene().disconnect(from, to); },
                  [from, to] { return mhost::scene().connect(from, to, false); }});
}

MStatus MDGModifier::commandToExecute(const MString& command) {
    if (command.length() == 0) return MS::kInvalidParameter;
    auto steps = std::make_shared<mhost::CapturedCommands>();
    std::string text = command.asChar();
    return queue({[steps, text] { return mhost::runScriptCapturingUndo(text, *steps); },
                  [steps] { return steps->undoAll(); }});
}

MStatus MDGModifier::doIt() {
    for (; fDone < fEdits.size(); ++fDone) {
        MStatus status = fEdits[fDone].apply();
        if (!status) return status;
    }
    return MS::kSuccess;
}

MStatus MDGModifier::undoIt() {
    for (; fDone > 0; --fDone) {
        MStatus status = fEdits[fDone - 1].revert();
        if (!status) return status;
    }
    return MS::kSuccess;
}
