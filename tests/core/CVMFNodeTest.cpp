// Reference counting of node arrays with real nodes.
#include <gtest/gtest.h>

#include "core/CVChild.h"
#include "core/CVMFNode.h"

namespace {

// A child that counts its own deletions.
class ProbeNode : public CVChild {
public:
    explicit ProbeNode(int* pDeaths) : m_pDeaths(pDeaths) {}
    ~ProbeNode() override { ++*m_pDeaths; }

private:
    int* m_pDeaths;
};

class CVMFNodeTest : public ::testing::Test {
protected:
    int deaths = 0;
    ProbeNode* Make() { return new ProbeNode(&deaths); }
};

TEST_F(CVMFNodeTest, AddInsertAndRemoveRefAndRelease) {
    CVMFNode<CVChild*> list;
    ProbeNode *a = Make(), *b = Make(), *c = Make(), *absent = Make();
    EXPECT_EQ(list.Add(a), 1);
    EXPECT_EQ(list.Add(nullptr), 1);  // ignored
    EXPECT_EQ(list.Find(nullptr), -1);
    list.Add(b);
    list.InsertAt(1, c);
    list.InsertAt(5, a);  // past the end: null gap
    ASSERT_EQ(list.GetNum(), 6);
    const CVChild* want[] = {a, c, b, nullptr, nullptr, a};
    for (int i = 0; i < 6; ++i) EXPECT_EQ(list[i], want[i]) << i;
    EXPECT_EQ(a->GetRef(), 2);
    EXPECT_EQ(c->GetRef(), 1);
    EXPECT_EQ(list.Find(c), 1);
    EXPECT_EQ(list.Find(absent), -1);
    list.RemoveAt(1);  // c's only reference
    EXPECT_EQ(deaths, 1);
    list.RemoveAt(2);  // an empty slot just goes
    EXPECT_EQ(list.GetNum(), 4);
    EXPECT_EQ(list.Find(b), 1);
    delete absent;
}  // the destructor steps over the null entry

TEST_F(CVMFNodeTest, SetAtOverItselfKeepsTheNodeAndPastTheEndFillsWithNulls) {
    CVMFNode<CVChild*> list;
    ProbeNode *a = Make(), *b = Make();
    list.Add(a);
    list.SetAt(0, a);
    EXPECT_EQ(deaths, 0);
    EXPECT_EQ(a->GetRef(), 1);
    list.SetAt(0, b);  // the last reference on a goes
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(b->GetRef(), 1);
    list.SetAt(3, b);
    ASSERT_EQ(list.GetNum(), 4);
    EXPECT_EQ(list[1], nullptr);
    EXPECT_EQ(list[2], nullptr);
    EXPECT_EQ(b->GetRef(), 2);
}

TEST_F(CVMFNodeTest, BadIndexThrowsAndChangesNothing) {
    CVMFNode<CVChild*> list;
    ProbeNode *a = Make(), *spare = Make();
    list.Add(a);
    try {
        list.RemoveAt(1);
        FAIL() << "RemoveAt past the end did not throw";
    } catch (const CInvalidArgException& e) {
        EXPECT_STREQ(e.what(), "CVMFNode::RemoveAt(): index 1 out of range");
    }
    EXPECT_THROW(list.RemoveAt(-1), CInvalidArgException);
    EXPECT_THROW(list[1], CInvalidArgException);
    EXPECT_THROW(list.SetAt(-1, spare), CInvalidArgException);
    EXPECT_THROW(list.InsertAt(-1, spare), CInvalidArgException);
    EXPECT_EQ(list.GetNum(), 1);
    EXPECT_EQ(a->GetRef(), 1);
    EXPECT_EQ(spare->GetRef(), 0);
    EXPECT_EQ(deaths, 0);
    delete spare;
}

TEST_F(CVMFNodeTest, CloneRefsTheNewAndLeaksTheOld) {
    CVMFNode<CVNode*> source, target;
    ProbeNode *a = Make(), *b = Make(), *old = Make();
    source.Add(a);
    source.Add(b);
    target.Add(old);
    target.Clone(source);
    EXPECT_EQ(target.GetNum(), 2);
    EXPECT_EQ(target[1], b);
    EXPECT_EQ(a->GetRef(), 2);
    EXPECT_EQ(old->GetRef(), 1);  // no longer held, never released
    old->Unref();
    EXPECT_EQ(deaths, 1);
}

TEST_F(CVMFNodeTest, RemoveAllAndDestructorReleaseEveryEntryButSetSizeDoesNot) {
    ProbeNode *shared = Make(), *once = Make(), *cut = Make();
    shared->Ref();  // held by the test too
    {
        CVMFNode<CVChild*> list;
        list.Add(shared);
        list.Add(shared);
        list.Add(once);
        EXPECT_EQ(shared->GetRef(), 3);
        list.RemoveAll();
        EXPECT_EQ(list.GetNum(), 0);
        EXPECT_EQ(shared->GetRef(), 1);
        EXPECT_EQ(deaths, 1);
        list.Add(shared);
        list.Add(cut);
        list.SetSize(1, -1);  // drops cut without a release
        EXPECT_EQ(cut->GetRef(), 1);
        list.SetSize(3, -1);
        EXPECT_EQ(list[2], nullptr);
        EXPECT_EQ(shared->GetRef(), 2);
    }
    EXPECT_EQ(shared->GetRef(), 1);
    shared->Unref();
    cut->Unref();
    EXPECT_EQ(deaths, 3);
}

}  // namespace
