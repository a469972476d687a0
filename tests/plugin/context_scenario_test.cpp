// Whole gestures through the host, as the artist makes them: the context made by its command and
// made current, mouse gestures and keys sent by the driver, and the locator read afterwards.

#include <vector>

#include "tests/plugin/contextScene.h"

namespace kytest {
namespace {

using mhost::driver::Key;
using mhost::driver::Modifiers;
using mhost::driver::MouseButton;

class ContextScenario : public ContextScene {
protected:
    void SetUp() override {
        ContextScene::SetUp();
        makeSourceScene();
        ASSERT_TRUE(mhost::driver::runCommand("kyStrakeContext", &contextName));
        ASSERT_TRUE(mhost::driver::setToolTo(contextName));
    }
    void TearDown() override {
        mhost::driver::setToolTo("selectSuperContext");
        ContextScene::TearDown();
    }
    // A left-button gesture through the world points: press at the first, a drag event at each,
    // release at the last.
    void gesture(const std::vector<MPoint>& points, Modifiers modifiers = Modifiers()) {
        short x = 0, y = 0;
        M3dView view = M3dView::active3dView();
        view.worldToView(points.front(), x, y);
        ASSERT_TRUE(mhost::driver::press(x, y, MouseButton::kLeft, modifiers));
        for (const MPoint& point : points) {
            view.worldToView(point, x, y);
            mhost::driver::drag(x, y, MouseButton::kLeft, modifiers);
        }
        ASSERT_TRUE(mhost::driver::release(x, y, MouseButton::kLeft, modifiers));
    }
    void edit(const std::string& flags) {
        ASSERT_TRUE(mhost::driver::runCommand("kyStrakeContext -e " + flags + " " + contextName));
    }
    // A zig-zag of `count` points across the grid.
    static std::vector<MPoint> zigzag(int count) {
        std::vector<MPoint> points;
        for (int i = 0; i < count; ++i) points.push_back(MPoint(2.0 + 0.3 * i, 0.0, (i % 2) ? 5.5 : 4.5));
        return points;
    }
    MPointArray strokes() { return pointArray("strokes", locator); }

    std::string contextName;
};

TEST_F(ContextScenario, StrokesCollectOnTheLocatorAndTheKeysTakeThemBack) {
    gesture({MPoint(2, 0, 2), MPoint(3, 0, 2.5), MPoint(4, 0, 3), MPoint(5, 0, 3.5)});
    EXPECT_EQ(intArray("sizes", locator), Ids({4}));
    EXPECT_EQ(option("kyStrake_info1"), "1 stroke(s)");
    gesture({MPoint(2, 0, 6), MPoint(4, 0, 6), MPoint(6, 0, 6)});
    EXPECT_EQ(intArray("sizes", locator), Ids({4, 3}));
    EXPECT_EQ(strokes().length(), 7u);

    ASSERT_TRUE(mhost::driver::sendKey(Key::kBackspace));
    EXPECT_EQ(intArray("sizes", locator), Ids({4}));
    ASSERT_TRUE(mhost::driver::sendKey(Key::kEnter));  // one stroke is no patch
    EXPECT_EQ(intArray("sizes", locator), Ids({4}));
    EXPECT_EQ(option("kyStrake_info1"), "kyStrake activated,");
    ASSERT_TRUE(mhost::driver::sendKey(Key::kEscape));
    EXPECT_EQ(strokes().length(), 0u);
    EXPECT_EQ(option("kyStrake_info1"), "Operation cancelled");

    // Leaving the tool clears what a stroke left and both texts.
    gesture({MPoint(2, 0, 2), MPoint(4, 0, 3)});
    ASSERT_TRUE(mhost::driver::setToolTo("selectSuperContext"));
    EXPECT_EQ(strokes().length(), 0u);
    EXPECT_TRUE(option("kyStrake_info1").empty() && option("kyStrake_info2").empty());
}

TEST_F(ContextScenario, LineFigureIsEvenlySubdividedWithoutItsEndPoint) {
    edit("-figure 1");
    const MPoint end(5.05, 0, 3);
    gesture({MPoint(3, 0, 3), MPoint(4, 0, 3), end});
    const MPointArray line = strokes();
    ASSERT_GE(line.length(), 19u);
    ASSERT_LE(line.length(), 21u);  // ten points a unit along about 2.05 units
    for (unsigned i = 1; i < line.length(); ++i) EXPECT_NEAR(line[i].distanceTo(line[i - 1]), 0.1, 0.01);
    EXPECT_GT(line[line.length() - 1].distanceTo(end), 0.04);
}

TEST_F(ContextScenario, LazyFilterLagsTheTailButNeverMovesTheTip) {
    gesture(zigzag(15));
    const MPointArray plain = strokes();
    ASSERT_TRUE(mhost::driver::sendKey(Key::kEscape));
    setOption("ky_lazyActive", 1);  // window of 10 points, one pass
    gesture(zigzag(15));
    const MPointArray lazy = strokes();
    ASSERT_EQ(lazy.length(), 15u);
    ASSERT_EQ(plain.length(), 15u);
    EXPECT_TRUE(lazy[0].isEquivalent(plain[0], 1e-6));
    EXPECT_TRUE(lazy[14].isEquivalent(plain[14], 1e-6));
    EXPECT_GT(lazy[7].distanceTo(plain[7]), 0.1);

    // A stroke shorter than its window is left as drawn.
    ASSERT_TRUE(mhost::driver::sendKey(Key::kEscape));
    gesture(zigzag(9));
    const MPointArray shortLazy = strokes();
    ASSERT_EQ(shortLazy.length(), 9u);
    for (unsigned i = 0; i < 9; ++i) EXPECT_TRUE(shortLazy[i].isEquivalent(plain[i], 1e-6)) << i;
}

}  // namespace
}  // namespace kytest
