#pragma once
// How a frame reaches the current tool context: the tool layer installs a function that calls the
// current context's drawFeedback and says whether there was a context to call. Until one is
// installed, frames have no feedback.

#include <maya/MFrameContext.h>
#include <maya/MUIDrawManager.h>

#include <functional>

namespace mhost {

using FeedbackDrawer = std::function<bool(MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&)>;

FeedbackDrawer& contextFeedbackHook();

}  // namespace mhost
