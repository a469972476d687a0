#pragma once
// kyStrakeContextCmd: the scripted face of the tool. The panel makes a kyStrakeContext with it and
// reaches the running tool through its edit flags (one small action each, several per call, tested
// in a fixed order) and its query flags.

#include <maya/MArgParser.h>
#include <maya/MObject.h>
#include <maya/MPxContext.h>
#include <maya/MPxContextCommand.h>
#include <maya/MStatus.h>

class kyStrakeContext;

class kyStrakeContextCmd : public MPxContextCommand {
public:
    kyStrakeContextCmd();
    ~kyStrakeContextCmd() override;

    // Runs the handlers of the flags set on the line, in their fixed order; the status of the last
    // handler that gives one, or success.
    MStatus doEditFlags() override;
    // "-v", "-u" and "-fig" by short name only: the spans (12 when unset, 1 for a stored 0) and the
    // context's figure. Any other query gives nothing and success.
    MStatus doQueryFlags() override;
    // A new context, kept for the flags; the host owns it.
    MPxContext* makeObj() override;
    // Declares the 23 flags of the command.
    MStatus appendSyntax() override;

    static void* creator();

private:
    // One handler per edit flag (or pair of flags), in the order doEditFlags tests them.
    void editSpans(const MArgParser& flags);
    void refreshAnchors();
    void refreshPlayerRow();
    MStatus setFreezeBorder(const MArgParser& flags);
    MStatus setFreezeMedian(const MArgParser& flags);
    void armRelaxBrush(const MArgParser& flags);
    void setMoveBrush(const MArgParser& flags);
    MStatus reverseBridge();
    MStatus setPinchFromFlag(const MArgParser& flags);
    MStatus setInteractiveValue(const MArgParser& flags, const char* flag, const MObject& locator,
                                const char* attribute, const char* label);

    kyStrakeContext* context_ = nullptr;
};
