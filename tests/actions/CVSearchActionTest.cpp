#include <gtest/gtest.h>

#include <vector>

#include "actions/CVGroup.h"
#include "actions/CVSearchAction.h"
#include "actions/CVShape.h"
#include "actions/CVSwitch.h"
#include "actions/CVTransform.h"
#include "platform/CException.h"

namespace {

using Chain = std::vector<CVNode*>;

// root [g [s1, s2], xf [s3]], every shape named "hit" except s3 ("miss").
class CVSearchActionTest : public ::testing::Test {
protected:
    CVSearchActionTest() {
        root->Ref();
        root->children.Add(g);
        root->children.Add(xf);
        g->children.Add(s1);
        g->children.Add(s2);
        xf->children.Add(s3);
        s1->SetName(L"hit");
        s2->SetName(L"hit");
        s3->SetName(L"miss");
    }
    ~CVSearchActionTest() noexcept override { root->Unref(); }

    std::vector<Chain> Found() const {
        std::vector<Chain> out;
        const auto& list = search.GetPathList();
        for (INT_PTR i = 0; i < list.GetSize(); ++i) {
            Chain c;
            for (INT_PTR j = 0; j < list[i]->GetSize(); ++j) c.push_back((*list[i])[j]);
            out.push_back(c);
        }
        return out;
    }

    CVGroup* root = new CVGroup;
    CVGroup* g = new CVGroup;
    CVTransform* xf = new CVTransform;
    CVShape* s1 = new CVShape;
    CVShape* s2 = new CVShape;
    CVShape* s3 = new CVShape;
    CVSearchAction search;
};

TEST_F(CVSearchActionTest, FindsByNodeNameAndClassWithPathsFromTheRoot) {
    search.SetNode(s3);
    ASSERT_EQ(search.Apply(root), 1);
    EXPECT_EQ(Found(), (std::vector<Chain>{{root, xf, s3}}));

    CVSearchAction byName;
    byName.SetName(L"hit");
    byName.Apply(root);
    EXPECT_EQ(byName.GetNumPathsFound(), 2);

    CVSearchAction byClass;
    byClass.SetType(RUNTIME_CLASS(CVGroup));  // the transform is a group too
    byClass.Apply(root);
    ASSERT_EQ(byClass.GetPathList().GetSize(), 3);
    EXPECT_EQ(byClass.GetPathList()[0]->GetSize(), 1);  // the root itself
    EXPECT_EQ((*byClass.GetPathList()[2])[1], xf);
    EXPECT_EQ(byClass.GetState()->m_bRecordPath, 0);
}

TEST_F(CVSearchActionTest, InterestFirstStopsAtTheFirstMatch) {
    search.SetName(L"hit");
    search.SetInterest(CVSearchAction::First);
    search.Apply(root);
    EXPECT_EQ(Found(), (std::vector<Chain>{{root, g, s1}}));
    // Applying again forgets the earlier paths.
    search.Apply(root);
    EXPECT_EQ(search.GetNumPathsFound(), 1);
}

TEST_F(CVSearchActionTest, CriteriaAccumulate) {
    search.SetNode(s3);
    search.SetType(RUNTIME_CLASS(CVTransform));
    search.Apply(root);
    EXPECT_EQ(Found(), (std::vector<Chain>{{root, xf}, {root, xf, s3}}));
    EXPECT_EQ(search.GetCriteria(), CVSearchAction::ByNode | CVSearchAction::ByType);
}

TEST_F(CVSearchActionTest, NamesMatchExactlyAndUnnamedNodesNever) {
    search.SetName(L"Hit");
    search.Apply(root);
    EXPECT_EQ(search.GetNumPathsFound(), 0);
    search.SetName(L"");
    search.Apply(root);
    EXPECT_EQ(search.GetNumPathsFound(), 0);  // groups have no name at all
}

TEST_F(CVSearchActionTest, SwitchesAppearInPathsAndCanBeFound) {
    CVSwitch* sw = new CVSwitch;
    CVShape* inside = new CVShape;
    sw->choice.Add(inside);
    sw->whichChoice.SetValue(0);
    g->children.Add(sw);
    search.SetNode(inside);
    search.SetType(RUNTIME_CLASS(CVSwitch));
    search.Apply(root);
    EXPECT_EQ(Found(), (std::vector<Chain>{{root, g, sw}, {root, g, sw, inside}}));
}

TEST_F(CVSearchActionTest, MatchingLeafWithoutAGroupAboveThrows) {
    search.SetNode(s1);
    EXPECT_THROW(search.Apply(s1), CInvalidArgException);
    EXPECT_EQ(search.GetState()->m_bRecordPath, 0);
    // The action is still usable.
    EXPECT_EQ(search.Apply(root), 1);
    EXPECT_EQ(Found(), (std::vector<Chain>{{root, g, s1}}));
    EXPECT_EQ(search.Apply(nullptr), 0);
    EXPECT_EQ(search.GetNumPathsFound(), 0);
}

}  // namespace
