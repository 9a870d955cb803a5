// Reference counting of the single node field with real nodes.
#include <gtest/gtest.h>

#include "core/CVNode.h"
#include "core/CVSFNode.h"

namespace {

class ProbeNode : public CVNode {
public:
    explicit ProbeNode(int* pDeaths) : m_pDeaths(pDeaths) {}
    ~ProbeNode() override { ++*m_pDeaths; }

private:
    int* m_pDeaths;
};

TEST(CVSFNodeTest, SettingRefsNewAndReleasesOld) {
    int deaths = 0;
    CVSFNode<CVNode> field;
    EXPECT_EQ(field.GetValue(), nullptr);
    ProbeNode *a = new ProbeNode(&deaths), *b = new ProbeNode(&deaths);
    EXPECT_EQ(field.SetValue(a), 1);
    EXPECT_EQ(a->GetRef(), 1);
    field.SetValue(a);  // over itself
    EXPECT_EQ(deaths, 0);
    EXPECT_EQ(a->GetRef(), 1);
    field.SetValue(b);
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(field.GetValue(), b);
    field.SetValue(nullptr);
    EXPECT_EQ(deaths, 2);
}

TEST(CVSFNodeTest, CloneSharesAndDestructionReleases) {
    int deaths = 0;
    ProbeNode* a = new ProbeNode(&deaths);
    {
        CVSFNode<CVNode> first;
        first.SetValue(a);
        {
            CVSFNode<CVNode> second;
            second.Clone(first);
            EXPECT_EQ(second.GetValue(), a);
            EXPECT_EQ(a->GetRef(), 2);
        }
        EXPECT_EQ(a->GetRef(), 1);
        EXPECT_EQ(deaths, 0);
    }
    EXPECT_EQ(deaths, 1);
}

}  // namespace
