#include <gtest/gtest.h>

#include "math/CVRay.h"

TEST(CVRay, IsDirectionThenOrigin) {
    EXPECT_EQ(sizeof(CVRay), 6 * sizeof(float));
}

TEST(CVRay, SetDirectionNormalisesUnlessTold) {
    CVRay r;
    r.SetDirection(CVVector(0, 3, 4), 0);
    EXPECT_FLOAT_EQ(r.GetDirection().y, 0.6f);
    EXPECT_FLOAT_EQ(r.GetDirection().z, 0.8f);
    r.SetDirection(CVVector(0, 3, 4), 1);
    EXPECT_FLOAT_EQ(r.GetDirection().y, 3.0f);
    EXPECT_FLOAT_EQ(r.GetDirection().z, 4.0f);
}

TEST(CVRay, OriginAndAssignment) {
    CVRay r;
    r.SetOrigin(CVVector(1, 2, 3));
    r.SetDirection(CVVector(1, 0, 0), 1);
    CVRay s;
    s = r;
    EXPECT_EQ(s.GetOrigin().x, 1.0f);
    EXPECT_EQ(s.GetOrigin().z, 3.0f);
    EXPECT_EQ(s.GetDirection().x, 1.0f);
}
