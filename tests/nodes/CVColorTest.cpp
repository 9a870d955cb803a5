#include <gtest/gtest.h>

#include "nodes/CVColor.h"

namespace {

TEST(CVColorTest, GradientSumsTheAbsoluteDifferences) {
    const struct {
        RGBColorStruct a, b;
        float expected;
    } cases[] = {
        {{1.0f, 0.0f, 0.0f}, {0.0f, 1.0f, 0.0f}, 2.0f},
        {{0.3f, 0.6f, 0.9f}, {0.3f, 0.6f, 0.9f}, 0.0f},
        {{0.0f, 0.0f, 0.0f}, {1.0f, 1.0f, 1.0f}, 3.0f},
        {{0.75f, 0.25f, 0.5f}, {0.25f, 0.5f, 1.0f}, 1.25f},  // mixed signs
    };
    for (const auto& c : cases) {
        EXPECT_FLOAT_EQ(CVColor::Gradient(c.a, c.b), c.expected);
        EXPECT_FLOAT_EQ(CVColor::Gradient(c.b, c.a), c.expected);
    }
}

}  // namespace
