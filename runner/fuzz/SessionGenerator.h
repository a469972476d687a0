#pragma once
// Random but valid gesture sessions: what an artist could do with the mouse, the keys, the panel and
// the script editor, in any order, drawn from a seed so that a seed always gives the same steps.

#include <cstdint>
#include <vector>

#include "runner/Session.h"

namespace kystrake {

// A small deterministic generator (splitmix64), the same on every platform and library, unlike the
// standard distributions.
class FuzzRandom {
public:
    explicit FuzzRandom(std::uint64_t seed) : state_(seed) {}
    // The next 64 random bits.
    std::uint64_t next();
    // A whole number in [low, high].
    int between(int low, int high);
    // A number in [low, high).
    double real(double low, double high);
    // True with the given probability.
    bool chance(double probability);

private:
    std::uint64_t state_;
};

// What the generator needs to know of the scene: the view's size and the camera that frames the
// source, around which camera moves orbit.
struct FuzzView {
    int width = 960;
    int height = 640;
    CameraPlacement home;
};

// The scene file of the generated save and load steps, in the fuzz pass's output folder.
extern const char* const kFuzzSceneFile;

// About `count` steps (a gesture is never cut short, so the last may run a few over) for the context
// "kyStrakeContext1". Every undo followed at once by a redo of the same count is a pair whose redo
// must give back the state before the undo; every save followed at once by a load of the same file
// must give back the scene as it was saved.
std::vector<Step> generateSteps(std::uint64_t seed, int count, const FuzzView& view);

}  // namespace kystrake
