// The row sweep of a bridge patch: the rows between a player row and the stroke that leaves it do
// not exist yet, so a straight segment as long as the player row's chord is carried along the
// stroke, turned at each stroke point by the angle between chord and travel, and sampled.

#include <maya/MPoint.h>
#include <maya/MVector.h>

#include "patch/kyStrakeToolCmd.h"

namespace {

// The tool's own figure for a quarter turn; close to pi / 2 but not equal, and kept as it is.
constexpr double kQuarterTurn = 1.5757;

}  // namespace

PolylineList kyStrakeToolCmd::sweepRows(MPointArray profile, MPointArray spine) {
    PolylineList rows;
    const unsigned int n = profile.length();
    if (n == 0) return rows;
    rows.push_back(profile);

    MPoint left = profile[0];
    MPoint right = profile[n - 1];
    for (unsigned int i = 0; i < spine.length(); ++i) {
        const MVector chord = right - left;
        const MPoint middle = left + chord * 0.5;
        const MVector travel = spine[i] - middle;
        // About 0 when travelling along the chord, 1 across it and 2 against it.
        const double turn = chord.angle(travel) / kQuarterTurn;
        const MVector reach = travel * (chord.length() / travel.length());
        const MPoint movedRight = right + reach * turn;
        const MPoint movedLeft = left + reach + reach * (1.0 - turn);
        const MVector turned = movedRight - movedLeft;
        // Back to the chord's old length, centred on the spine point.
        const MVector halfChord = turned * 0.5 * (chord.length() / turned.length());
        left = spine[i] - halfChord;
        right = spine[i] + halfChord;
        rows.push_back(sampleRow(left, right, static_cast<int>(n)));
    }
    return rows;
}

MPointArray kyStrakeToolCmd::sampleRow(const MPoint& a, const MPoint& b, int n) {
    MPointArray row;
    if (n < 1) return row;
    // The step divides by n, not n - 1, so the row stops one step short of b. Sweeps are shaped by
    // this; the next chord starts from the unsampled ends, so the shortfall does not add up.
    const MVector step = (b - a) / n;
    for (int i = 0; i < n; ++i) row.append(a + step * i);
    return row;
}
