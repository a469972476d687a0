#pragma once
// The host's side of an MPxContext: the texts, images and cursor the context sets, and the context
// command that made it (which names its tool command).

#include <maya/MCursor.h>
#include <maya/MPxContext.h>
#include <maya/MString.h>

#include <array>
#include <string>

namespace mhost {

struct ContextState {
    MString title;
    MString help;
    std::array<MString, 3> images;
    MCursor cursor = MCursor::defaultCursor;
    // The registered context command that made the context; empty for a context made otherwise.
    std::string contextCommand;

    static ContextState& of(MPxContext& context) { return *context.fState; }
    static const ContextState& of(const MPxContext& context) { return *context.fState; }
};

}  // namespace mhost
