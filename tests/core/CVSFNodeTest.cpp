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

TEST(CVSFNodeTest, SettingRefsNewReleasesOldAndCloneShares) {
    int deaths = 0;
    ProbeNode *a = new ProbeNode(&deaths), *b = new ProbeNode(&deaths);
    {
        CVSFNode<CVNode> field;
        EXPECT_EQ(field.SetValue(a), 1);
        field.SetValue(a);  // over itself
        EXPECT_EQ(a->GetRef(), 1);
        {
            CVSFNode<CVNode> copy;
            copy.Clone(field);
            EXPECT_EQ(copy.GetValue(), a);
            EXPECT_EQ(a->GetRef(), 2);
        }
        EXPECT_EQ(a->GetRef(), 1);
        field.SetValue(b);
        EXPECT_EQ(deaths, 1);
        EXPECT_EQ(field.GetValue(), b);
        field.SetValue(nullptr);
        EXPECT_EQ(deaths, 2);
        field.SetValue(a = new ProbeNode(&deaths));
    }
    EXPECT_EQ(deaths, 3);  // released with the field
}

}  // namespace
