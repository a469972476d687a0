#pragma once
// The studio's camera moves, as Maya's Alt-drags make them: tumble around the target, track across
// the view, dolly towards the target. Pure arithmetic on an eye and a target with world +Y up, so that
// the viewport only has to place the host's camera where this says.

#include "runner/Session.h"

namespace kystrake {

class OrbitCamera {
public:
    explicit OrbitCamera(const CameraPlacement& placement) : placement_(placement) {}

    const CameraPlacement& placement() const { return placement_; }

    // Turns the eye around the target: `dx` pixels to the right turn it left around world Y, `dy`
    // pixels up tilt it down. The tilt stops short of the poles, where "up" would flip.
    void tumble(int dx, int dy);
    // Moves eye and target together across the view, so that the scene follows the pointer; the
    // step scales with the distance to the target and the view's height in pixels.
    void track(int dx, int dy, int viewHeight);
    // Moves the eye towards the target for a drag to the right (or up), away for one to the left (or
    // down); the eye never reaches the target.
    void dolly(int dx, int dy);

private:
    CameraPlacement placement_;
};

}  // namespace kystrake
