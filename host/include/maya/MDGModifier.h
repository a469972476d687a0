#pragma once
// MDGModifier: a list of graph edits (create, delete, rename, connect, disconnect, commands) that
// doIt performs and undoIt reverts, for commands that must be undoable.

#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypeId.h>

#include <functional>
#include <vector>

class OPENMAYA_EXPORT MDGModifier {
public:
    MDGModifier();
    virtual ~MDGModifier();
    // Queues the creation of a node; the returned object names it, and it joins the scene at doIt.
    MObject createNode(const MTypeId& typeId, MStatus* ReturnStatus = NULL);
    MObject createNode(const MString& type, MStatus* ReturnStatus = NULL);
    MStatus deleteNode(const MObject& node);
    MStatus renameNode(const MObject& node, const MString& newName);
    MStatus connect(const MObject& sourceNode, const MObject& sourceAttr, const MObject& destNode,
                    const MObject& destAttr);
    MStatus disconnect(const MObject& sourceNode, const MObject& sourceAttr, const MObject& destNode,
                       const MObject& destAttr);
    MStatus connect(const MPlug& source, const MPlug& dest);
    MStatus disconnect(const MPlug& source, const MPlug& dest);
    // Queues a script command; its undo is the command's own.
    MStatus commandToExecute(const MString& command);
    // Performs the queued edits not yet done, in order; stops at the first failure.
    MStatus doIt();
    // Reverts the edits done, last first.
    MStatus undoIt();
    static const char* className();

protected:
    struct Edit {
        std::function<MStatus()> apply;
        std::function<MStatus()> revert;
    };
    MStatus queue(Edit edit);
    MObject queueCreation(const MString& type, const MObject& parent, MStatus* ReturnStatus);

private:
    MDGModifier(const MDGModifier&);
    MDGModifier& operator=(const MDGModifier&);

    std::vector<Edit> fEdits;
    size_t fDone = 0;
};
