#include <gtest/gtest.h>

#include <vector>

#include "nodes/CVGroup.h"
#include "actions/CVSearchAction.h"
#include "geometry/CVShape.h"
#include "nodes/CVSwitch.h"
#include "nodes/CVTransform.h"
#include "platform/CException.h"

namespace {

using Chains = std::vector<std::vector<CVNode*>>;

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
    ~CVSearchActionTest() override { root->Unref(); }

    static Chains Found(const CVSearchAction& search) {
        Chains out;
        const auto& list = search.GetPathList();
        for (INT_PTR i = 0; i < list.GetSize(); ++i) {
            out.emplace_back();
            for (INT_PTR j = 0; j < list[i]->GetSize(); ++j) out.back().push_back((*list[i])[j]);
        }
        return out;
    }

    CVGroup* root = new CVGroup;
    CVGroup* g = new CVGroup;
    CVTransform* xf = new CVTransform;
    CVShape *s1 = new CVShape, *s2 = new CVShape, *s3 = new CVShape;
    CVSearchAction search;
};

TEST_F(CVSearchActionTest, FindsByNodeNameAndClassWithPathsFromTheRoot) {
    search.SetNode(s3);
    ASSERT_EQ(search.Apply(root), 1);
    EXPECT_EQ(Found(search), (Chains{{root, xf, s3}}));

    CVSearchAction byName;
    byName.SetName(L"hit");
    byName.Apply(root);
    EXPECT_EQ(Found(byName), (Chains{{root, g, s1}, {root, g, s2}}));
    byName.SetName(L"Hit");  // exact names only
    byName.Apply(root);
    EXPECT_EQ(byName.GetNumPathsFound(), 0);
    byName.SetName(L"");  // groups have no name at all
    byName.Apply(root);
    EXPECT_EQ(byName.GetNumPathsFound(), 0);

    CVSearchAction byClass;
    byClass.SetType(RUNTIME_CLASS(CVGroup));  // the transform is a group too
    byClass.Apply(root);
    EXPECT_EQ(Found(byClass), (Chains{{root}, {root, g}, {root, xf}}));
    EXPECT_EQ(byClass.GetState()->m_bRecordPath, 0);
}

TEST_F(CVSearchActionTest, InterestFirstStopsAtTheFirstMatch) {
    search.SetName(L"hit");
    search.SetInterest(CVSearchAction::First);
    search.Apply(root);
    search.Apply(root);  // applying again forgets the earlier paths
    EXPECT_EQ(Found(search), (Chains{{root, g, s1}}));
}

TEST_F(CVSearchActionTest, CriteriaAccumulateAndSwitchesAppearInPaths) {
    CVSwitch* sw = new CVSwitch;
    CVShape* inside = new CVShape;
    sw->choice.Add(inside);
    sw->whichChoice.SetValue(0);
    g->children.Add(sw);
    search.SetNode(inside);
    search.SetType(RUNTIME_CLASS(CVSwitch));
    search.Apply(root);
    EXPECT_EQ(Found(search), (Chains{{root, g, sw}, {root, g, sw, inside}}));
    EXPECT_EQ(search.GetCriteria(), CVSearchAction::ByNode | CVSearchAction::ByType);
}

TEST_F(CVSearchActionTest, MatchingLeafWithoutAGroupAboveThrows) {
    search.SetNode(s1);
    EXPECT_THROW(search.Apply(s1), CInvalidArgException);
    EXPECT_EQ(search.GetState()->m_bRecordPath, 0);
    EXPECT_EQ(search.Apply(root), 1);  // still usable
    EXPECT_EQ(Found(search), (Chains{{root, g, s1}}));
    EXPECT_EQ(search.Apply(nullptr), 0);
    EXPECT_EQ(search.GetNumPathsFound(), 0);
}

}  // namespace
