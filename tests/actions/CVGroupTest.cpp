#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "actions/CVGroup.h"
#include "actions/CVActionTestSupport.h"

using cvtest::LogAction;
using Log = std::vector<std::string>;

namespace {

// root [a, b [c, d], e]
class CVGroupTest : public ::testing::Test {
protected:
    CVGroupTest() {
        root->Ref();
        root->children.Add(a);
        root->children.Add(b);
        root->children.Add(e);
        b->children.Add(c);
        b->children.Add(d);
        action.labels = {{root, "root"}, {a, "a"}, {b, "b"}, {c, "c"}, {d, "d"}, {e, "e"}};
    }
    ~CVGroupTest() noexcept override { root->Unref(); }

    CVGroup* root = new CVGroup;
    CVChild* a = new CVChild;
    CVGroup* b = new CVGroup;
    CVChild* c = new CVChild;
    CVChild* d = new CVChild;
    CVChild* e = new CVChild;
    LogAction action;
};

TEST_F(CVGroupTest, FreeWalkBracketsEveryGroupWithItsState) {
    action.Apply(root);
    EXPECT_EQ(action.log, (Log{"push", "pre root", "pre a", "post a", "push", "pre b", "pre c", "post c",
                               "pre d", "post d", "post b", "pop", "pre e", "post e", "post root", "pop"}));
    EXPECT_EQ(action.GetState()->m_nDepth, -1);
}

TEST_F(CVGroupTest, PathWalkVisitsOnlyThePathAndStopsAtItsEnd) {
    CArray<CVNode*, CVNode*> path;
    path.Add(root);
    path.Add(b);
    path.Add(d);
    root->Traverse(&action, &path, 0);
    EXPECT_EQ(action.log, (Log{"push", "pre root", "push", "pre b", "pre d", "post d", "post b", "pop",
                               "post root", "pop"}));

    // A path ending at a group does not open the group.
    action.log.clear();
    path.RemoveAt(2);
    root->Traverse(&action, &path, 0);
    EXPECT_EQ(action.log, (Log{"push", "pre root", "push", "pre b", "post b", "pop", "post root", "pop"}));
}

TEST_F(CVGroupTest, PathIsFollowedEvenWhereItLeavesTheChildren) {
    CVChild* stranger = new CVChild;
    action.labels[stranger] = "stranger";
    CArray<CVNode*, CVNode*> path;
    path.Add(root);
    path.Add(stranger);
    root->Traverse(&action, &path, 0);
    EXPECT_EQ(action.log, (Log{"push", "pre root", "pre stranger", "post stranger", "post root", "pop"}));
    delete stranger;
}

TEST_F(CVGroupTest, ClearedContinueFlagSkipsTheRestButStillClosesEveryGroup) {
    action.onPre = [&](CVNode* n) {
        if (n == c) action.Stop();
    };
    action.Apply(root);
    EXPECT_EQ(action.log, (Log{"push", "pre root", "pre a", "post a", "push", "pre b", "pre c", "post c",
                               "post b", "pop", "post root", "pop"}));
    EXPECT_EQ(action.GetState()->m_nDepth, -1);
}

TEST_F(CVGroupTest, ChildrenAddedDuringTheWalkAreVisited) {
    CVChild* late = new CVChild;
    action.labels[late] = "late";
    action.onPre = [&](CVNode* n) {
        if (n == e) root->children.Add(late);
    };
    action.Apply(root);
    ASSERT_GE(action.log.size(), 4u);
    EXPECT_EQ(Log(action.log.end() - 4, action.log.end()), (Log{"pre late", "post late", "post root", "pop"}));
}

TEST_F(CVGroupTest, RecordingGroupsLeaveTheirChainInPathZero) {
    std::vector<std::vector<CVNode*>> seen;
    action.onPre = [&](CVNode* n) {
        if (n != c && n != e) return;
        CVState* s = action.GetState();
        std::vector<CVNode*> chain;
        for (int i = 0; i <= s->m_nDepth; ++i) chain.push_back(s->GetPath(0)[i]);
        seen.push_back(chain);
    };
    action.GetState()->m_bRecordPath = 1;
    action.Apply(root);
    action.GetState()->m_bRecordPath = 0;
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen[0], (std::vector<CVNode*>{root, b}));
    EXPECT_EQ(seen[1], (std::vector<CVNode*>{root}));
}

}  // namespace
