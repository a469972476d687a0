// The tunable depth priority of the viewport feedback.

#include "viewport/feedbackDepth.h"

#include "geometry/functions.h"

double depthOffset() { return optionDouble("kyCutDp", 2.5) + 50.0; }

unsigned int feedbackPriority(double extra) {
    // Truncated through a signed integer first: the option may make the sum negative.
    return static_cast<unsigned int>(static_cast<int>(depthOffset() + extra));
}
