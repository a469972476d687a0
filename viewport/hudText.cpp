// The two text blocks of the viewport: help at the top left, read from top down, and status at the
// bottom left, read from the bottom up. Each channel is one option string cut into lines at commas.

#include <maya/MGlobal.h>
#include <maya/MStringArray.h>

#include "viewport/feedbackDepth.h"
#include "viewport/kyStrakeDrawOverride.h"
#include "viewport/palette.h"

namespace {

using MHWRender::MUIDrawManager;

// The option string `key`, or `fallback` when it cannot be read.
MString channelText(const char* key, const char* fallback) {
    bool exists = false;
    const MString text = MGlobal::optionVarStringValue(key, &exists);
    return exists ? text : MString(fallback);
}

// The help channel; empty while the display of information is off.
MString helpText(int displayInfo) {
    if (displayInfo == 0) return MString();
    return channelText("kyStrake_info2", "... 2");
}

// The status channel; empty while the display of information is off.
MString statusText(int displayInfo) {
    if (displayInfo == 0) return MString();
    return channelText("kyStrake_info1", "... 1");
}

// The text's pieces between commas, as MString::split gives them.
MStringArray textLines(const MString& text) {
    MStringArray lines;
    text.split(',', lines);
    return lines;
}

}  // namespace

void kyStrakeDrawOverride::drawHudText(MUIDrawManager& manager, int viewportHeight) const {
    manager.beginDrawInXray();
    manager.setDepthPriority(kOnTopPriority);
    manager.setFontSize(9);
    manager.setFontName("Arial");
    manager.setColor(MColor(colorGrey.r, colorGrey.g, colorGrey.b, 0.25f));

    const MStringArray help = textLines(helpText(displayInfo));
    for (unsigned int i = 0; i < help.length(); ++i)
        manager.text2d(MPoint(10.0, viewportHeight - 20.0 - 16.0 * i), help[i]);
    const MStringArray status = textLines(statusText(displayInfo));
    for (unsigned int i = 0; i < status.length(); ++i)
        manager.text2d(MPoint(10.0, 55.0 + 16.0 * i), status[i]);
    manager.endDrawInXray();
}
