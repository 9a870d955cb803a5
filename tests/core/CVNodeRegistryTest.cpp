#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "core/CVNodeRegistry.h"
#include "platform/CException.h"

namespace {

// The registry never dereferences its entries, so fake addresses will do.
CVNode* Fake(int i) { return reinterpret_cast<CVNode*>(static_cast<intptr_t>(0x1000 + 16 * i)); }

TEST(CVNodeRegistryTest, RandomRemovalKeepsOrderAndLookup) {
    CVNodeRegistry reg;
    const int n = 5000;
    std::vector<int> order(n);
    for (int i = 1; i <= n; ++i) reg.Add(Fake(i), order[i - 1] = i);
    std::shuffle(order.begin(), order.end(), std::mt19937(7));
    std::vector<bool> alive(n + 1, true);
    for (int k = 0; k < n * 3 / 4; ++k) {
        reg.Remove(Fake(order[k]), order[k]);
        alive[order[k]] = false;
    }
    std::vector<int> expected;
    for (int i = 1; i <= n; ++i)
        if (alive[i]) expected.push_back(i);
    ASSERT_EQ(reg.GetCount(), (INT_PTR)expected.size());
    for (int id = 1; id <= n; ++id) EXPECT_EQ(reg.Find(id), alive[id] ? Fake(id) : nullptr) << id;
    for (size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(reg.GetAt((INT_PTR)i), Fake(expected[i]));
}

TEST(CVNodeRegistryTest, AbsentNodesAndRewoundIds) {
    CVNodeRegistry reg;
    reg.Add(Fake(1), 10);
    reg.Remove(Fake(2), 2);
    reg.Remove(Fake(9), 10);  // right id, other node
    EXPECT_EQ(reg.Find(10), Fake(1));
    reg.Add(Fake(2), 20);
    reg.Add(Fake(3), 5);  // a client rewound the counter
    EXPECT_EQ(reg.Find(5), Fake(3));
    reg.Remove(Fake(2), 20);
    EXPECT_EQ(reg.Find(20), nullptr);
    EXPECT_EQ(reg.GetCount(), 2);
    EXPECT_EQ(reg.GetAt(1), Fake(3));
    EXPECT_THROW(reg.GetAt(2), CInvalidArgException);
    EXPECT_THROW(reg.GetAt(-1), CInvalidArgException);
}

}  // namespace
