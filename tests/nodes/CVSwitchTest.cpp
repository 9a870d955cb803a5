#include "support/CVActionTestSupport.h"
#include "nodes/CVGroup.h"
#include "nodes/CVSwitch.h"
#include "platform/CException.h"

namespace {

using cvtest::Log;
using cvtest::Path;

// sw [x, g [y]]
class CVSwitchTest : public ::testing::Test {
protected:
    CVSwitchTest() {
        sw->Ref();
        sw->choice.Add(x);
        sw->choice.Add(g);
        g->children.Add(y);
        action.labels = {{sw, "sw"}, {x, "x"}, {g, "g"}, {y, "y"}};
    }
    ~CVSwitchTest() override { sw->Unref(); }

    CVSwitch* sw = new CVSwitch;
    CVChild* x = new CVChild;
    CVGroup* g = new CVGroup;
    CVChild* y = new CVChild;
    cvtest::LogAction action;
};

TEST_F(CVSwitchTest, NoChoiceIsInvisibleToFreeAndPathWalks) {
    ASSERT_EQ(sw->whichChoice.GetValue(), -1);
    action.Apply(sw);
    auto path = Path({sw, x});
    sw->Traverse(&action, &path, 0);
    EXPECT_TRUE(action.log.empty());
}

TEST_F(CVSwitchTest, WalksOnlyTheChosenChildWhateverTheFlagOrThePathSay) {
    sw->whichChoice.SetValue(1);
    action.onPre = [&](CVNode* n) {
        if (n == sw) action.Stop();
    };
    action.Apply(sw);
    // The group below honours the cleared flag; the switch itself does not.
    EXPECT_EQ(action.log, (Log{"push", "pre sw", "push", "pre g", "post g", "pop", "post sw", "pop"}));

    action.log.clear();
    action.onPre = nullptr;
    auto path = Path({sw, x, y});  // g gets index 1 and follows the path to y
    sw->Traverse(&action, &path, 0);
    EXPECT_EQ(action.log,
              (Log{"push", "pre sw", "push", "pre g", "pre y", "post y", "post g", "pop", "post sw", "pop"}));
}

TEST_F(CVSwitchTest, ChoiceOutOfRangeThrowsBeforeTouchingTheAction) {
    sw->whichChoice.SetValue(2);
    EXPECT_THROW(action.Apply(sw), CInvalidArgException);
    EXPECT_TRUE(action.log.empty());
    EXPECT_EQ(action.GetState()->m_nDepth, -1);

    // An empty choice list is skipped in a free walk only.
    CVSwitch* empty = new CVSwitch;
    empty->Ref();
    empty->whichChoice.SetValue(0);
    action.labels[empty] = "empty";
    action.Apply(empty);
    EXPECT_EQ(action.log, (Log{"push", "pre empty", "post empty", "pop"}));
    auto path = Path({empty});
    EXPECT_THROW(empty->Traverse(&action, &path, 0), CInvalidArgException);
    empty->Unref();
}

}  // namespace
