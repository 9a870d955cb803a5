#include <gtest/gtest.h>

#include "math/CVRay.h"

TEST(CVRay, SetDirectionNormalisesUnlessTold) {
    EXPECT_EQ(sizeof(CVRay), 6 * sizeof(float));  // direction, then origin
    CVRay r;
    r.SetDirection(CVVector(0, 3, 4), 0);
    EXPECT_FLOAT_EQ(r.GetDirection().y, 0.6f);
    EXPECT_FLOAT_EQ(r.GetDirection().z, 0.8f);
    r.SetDirection(CVVector(0, 3, 4), 1);
    EXPECT_FLOAT_EQ(r.GetDirection().y, 3.0f);
    EXPECT_FLOAT_EQ(r.GetDirection().z, 4.0f);
}
