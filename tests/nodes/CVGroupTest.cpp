#include "support/CVActionTestSupport.h"
#include "nodes/CVGroup.h"

namespace {

using cvtest::Log;

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
    ~CVGroupTest() override { root->Unref(); }

    CVGroup* root = new CVGroup;
    CVChild* a = new CVChild;
    CVGroup* b = new CVGroup;
    CVChild* c = new CVChild;
    CVChild* d = new CVChild;
    CVChild* e = new CVChild;
    cvtest::LogAction action;
};

TEST_F(CVGroupTest, FreeWalkBracketsEveryGroupAndAClearedFlagStillClosesThem) {
    action.Apply(root);
    EXPECT_EQ(action.log, (Log{"push", "pre root", "pre a", "post a", "push", "pre b", "pre c", "post c", "pre d",
                               "post d", "post b", "pop", "pre e", "post e", "post root", "pop"}));
    action.log.clear();
    action.onPre = [&](CVNode* n) {
        if (n == c) action.Stop();
    };
    action.Apply(root);
    EXPECT_EQ(action.log, (Log{"push", "pre root", "pre a", "post a", "push", "pre b", "pre c", "post c", "post b",
                               "pop", "post root", "pop"}));
    EXPECT_EQ(action.GetState()->m_nDepth, -1);
}

TEST_F(CVGroupTest, PathWalkVisitsOnlyThePath) {
    CVChild stranger;
    action.labels[&stranger] = "stranger";
    const struct {
        const char* name;
        std::initializer_list<CVNode*> path;
        Log log;
    } cases[] = {
        {"ToALeaf", {root, b, d}, {"push", "pre root", "push", "pre b", "pre d", "post d", "post b", "pop", "post root", "pop"}},
        {"EndingAtAGroupDoesNotOpenIt", {root, b}, {"push", "pre root", "push", "pre b", "post b", "pop", "post root", "pop"}},
        {"LeavingTheChildren", {root, &stranger}, {"push", "pre root", "pre stranger", "post stranger", "post root", "pop"}},
    };
    for (const auto& t : cases) {
        SCOPED_TRACE(t.name);
        action.log.clear();
        auto path = cvtest::Path(t.path);
        root->Traverse(&action, &path, 0);
        EXPECT_EQ(action.log, t.log);
    }
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
    EXPECT_EQ(seen, (std::vector<std::vector<CVNode*>>{{root, b}, {root}}));
}

}  // namespace
