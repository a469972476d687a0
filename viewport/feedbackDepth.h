#pragma once
// Depth priorities of the viewport feedback. Text and markers that must stay on top of everything
// use a fixed priority; lines of rows and previews sit at an offset the artist can tune.

// The fixed priority of text and markers that stay on top.
constexpr unsigned int kOnTopPriority = 990;

// The option "kyCutDp" (2.5 when unset) plus 50.0: the base priority of row and preview lines.
double depthOffset();

// depthOffset() + `extra`, truncated to an integer, as setDepthPriority takes it.
unsigned int feedbackPriority(double extra = 0.0);
