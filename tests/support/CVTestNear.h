#pragma once
// Component-wise comparison of float sequences within a tolerance, naming the
// first component that differs: EXPECT_TRUE(cvtest::Near(Of(v), {1, 2, 3})).
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace cvtest {

inline ::testing::AssertionResult Near(const std::vector<float>& got, const std::vector<float>& want,
                                       float eps = 1e-5f) {
    auto all = [](const std::vector<float>& v) {
        ::testing::Message m;
        for (float f : v) m << f << " ";
        return m;
    };
    if (got.size() != want.size())
        return ::testing::AssertionFailure() << got.size() << " components, want " << want.size();
    for (size_t i = 0; i < got.size(); ++i)
        if (!(std::fabs(got[i] - want[i]) <= eps))
            return ::testing::AssertionFailure() << "component " << i << " is " << got[i] << ", want " << want[i]
                                                 << " within " << eps << " (got " << all(got) << "want "
                                                 << all(want) << ")";
    return ::testing::AssertionSuccess();
}

}  // namespace cvtest
