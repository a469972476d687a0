#pragma once
// Delta debugging over a failing session's steps: the shortest list of steps that still fails,
// found by leaving out ever smaller runs of steps and keeping every cut that still fails.

#include <functional>
#include <vector>

#include "runner/Session.h"

namespace kystrake {

// Whether a list of steps still shows the failure being shrunk.
using StillFails = std::function<bool(const std::vector<Step>&)>;

// A sub-list of `steps`, in their order, that still fails and from which no single step can be left
// out without the failure going (1-minimal). `steps` must fail. `maxTrials` bounds the replays.
std::vector<Step> shrinkSteps(std::vector<Step> steps, const StillFails& stillFails, int maxTrials = 2000);

}  // namespace kystrake
