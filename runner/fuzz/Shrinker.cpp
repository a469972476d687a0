#include "runner/fuzz/Shrinker.h"

#include <algorithm>

namespace kystrake {
namespace {

std::vector<Step> without(const std::vector<Step>& steps, size_t from, size_t to) {
    std::vector<Step> rest(steps.begin(), steps.begin() + from);
    rest.insert(rest.end(), steps.begin() + to, steps.end());
    return rest;
}

}  // namespace

std::vector<Step> shrinkSteps(std::vector<Step> steps, const StillFails& stillFails, int maxTrials) {
    int trials = 0;
    // Runs of `chunk` steps are cut, from the end backwards (later steps depend on earlier ones, so
    // they go more often); the chunk halves when no run of its size can go.
    size_t chunk = std::max<size_t>(1, steps.size() / 2);
    while (trials < maxTrials) {
        bool cut = false;
        for (size_t end = steps.size(); end > 0 && trials < maxTrials;) {
            const size_t begin = end > chunk ? end - chunk : 0;
            std::vector<Step> shorter = without(steps, begin, end);
            ++trials;
            if (!shorter.empty() && stillFails(shorter)) {
                steps = std::move(shorter);
                cut = true;
                end = std::min(begin, steps.size());
            } else {
                end = begin;
            }
        }
        if (chunk == 1 && !cut) break;
        if (!cut) chunk = std::max<size_t>(1, chunk / 2);
    }
    return steps;
}

}  // namespace kystrake
