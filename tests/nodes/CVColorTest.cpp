#include <gtest/gtest.h>

#include <string>

#include "nodes/CVColor.h"

namespace {

struct GradientCase {
    const char* name;
    RGBColorStruct a, b;
    float expected;
};

class CVColorTest : public ::testing::TestWithParam<GradientCase> {};

TEST_P(CVColorTest, GradientSumsTheAbsoluteDifferences) {
    const GradientCase& c = GetParam();
    EXPECT_FLOAT_EQ(CVColor::Gradient(c.a, c.b), c.expected);
    EXPECT_FLOAT_EQ(CVColor::Gradient(c.b, c.a), c.expected);
}

const GradientCase kGradients[] = {
    {"RedToGreen", {1.0f, 0.0f, 0.0f}, {0.0f, 1.0f, 0.0f}, 2.0f},
    {"Same", {0.3f, 0.6f, 0.9f}, {0.3f, 0.6f, 0.9f}, 0.0f},
    {"BlackToWhite", {0.0f, 0.0f, 0.0f}, {1.0f, 1.0f, 1.0f}, 3.0f},
    {"MixedSigns", {0.75f, 0.25f, 0.5f}, {0.25f, 0.5f, 1.0f}, 1.25f},
};

INSTANTIATE_TEST_SUITE_P(Pairs, CVColorTest, ::testing::ValuesIn(kGradients),
                         [](const ::testing::TestParamInfo<GradientCase>& info) { return std::string(info.param.name); });

}  // namespace
