// Single-valued fields: text parsing (each starts from preset non-zero values
// so that components the text leaves alone show), the time quirk, rotations
// and the image's Clone.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "core/CVSFBool.h"
#include "core/CVSFColor.h"
#include "core/CVSFFloat.h"
#include "core/CVSFImage.h"
#include "core/CVSFInt32.h"
#include "core/CVSFRotation.h"
#include "core/CVSFString.h"
#include "core/CVSFTime.h"
#include "core/CVSFVec2f.h"
#include "core/CVSFVec3f.h"

namespace {

// Each returns the value after SetValue(text), or nothing if it did not return 1.
template <class F, class Preset>
bool Parse(F& f, Preset preset, const char* text) {
    preset(f);
    return f.SetValue(text) == 1;
}
std::vector<float> Bool(const char* t) {
    CVSFBool f;
    if (!Parse(f, [](CVSFBool& g) { g.SetValue(1); }, t)) return {};
    return {(float)f.GetValue()};
}
std::vector<float> Int(const char* t) {
    CVSFInt32 f;
    if (!Parse(f, [](CVSFInt32& g) { g.SetValue(7); }, t)) return {};
    return {(float)f.GetValue()};
}
std::vector<float> Float(const char* t) {
    CVSFFloat f;
    if (!Parse(f, [](CVSFFloat& g) { g.SetValue(7.0f); }, t)) return {};
    return {f.GetValue()};
}
std::vector<float> Vec2(const char* t) {
    CVSFVec2f f;
    if (!Parse(f, [](CVSFVec2f& g) { g.SetValue(7, 8); }, t)) return {};
    return {f.GetValue().x, f.GetValue().y};
}
std::vector<float> Vec3(const char* t) {
    CVSFVec3f f;
    if (!Parse(f, [](CVSFVec3f& g) { g.SetValue(7, 8, 9); }, t)) return {};
    return {f.GetValue().x, f.GetValue().y, f.GetValue().z};
}
std::vector<float> Color(const char* t) {
    CVSFColor f;
    if (!Parse(f, [](CVSFColor& g) { g.SetValue(0.25f, 0.5f, 0.75f); }, t)) return {};
    return {f.GetValue().r, f.GetValue().g, f.GetValue().b};
}
std::vector<float> Rotation(const char* t) {  // axis x, y, z, angle
    CVSFRotation f;
    if (!Parse(f, [](CVSFRotation& g) { g.SetValue(7, 8, 9, 6); }, t)) return {};
    Point3fStruct axis;
    float angle;
    f.GetValue(axis, angle);
    return {axis.x, axis.y, axis.z, angle};
}

struct ParseCase {
    const char* name;
    std::vector<float> (*parse)(const char*);
    const char* text;
    std::vector<float> expected;
};

const ParseCase kParseCases[] = {
    {"BoolExactUpper", Bool, "TRUE", {1}},
    {"BoolLowerCase", Bool, "true", {0}},
    {"BoolTrailingBlank", Bool, "TRUE ", {0}},
    {"BoolDigitOne", Bool, "1", {0}},
    {"BoolNull", Bool, nullptr, {0}},
    {"IntNegative", Int, "  -42", {-42}},
    {"IntStopsAtPoint", Int, "7.9e3", {7}},
    {"IntGarbageKeeps", Int, "abc", {7}},
    {"FloatExponent", Float, "2.5e1", {25}},
    {"FloatEmptyKeeps", Float, "", {7}},
    {"Vec2Blanks", Vec2, "1\t\n2", {1, 2}},
    {"Vec2CommaSetsXOnly", Vec2, "1,2", {1, 8}},
    {"Vec3Blanks", Vec3, "1 2 3", {1, 2, 3}},
    {"Vec3CommaSetsXOnly", Vec3, "1,2,3", {1, 8, 9}},
    {"Vec3ShortKeepsZ", Vec3, "1 2", {1, 2, 9}},
    {"Vec3NullKeeps", Vec3, nullptr, {7, 8, 9}},
    {"ColorBlanks", Color, "1 0 0.5", {1, 0, 0.5f}},
    {"ColorCommaSetsROnly", Color, "1,0,0.5", {1, 0.5f, 0.75f}},
    {"RotationAxisThenAngle", Rotation, "0 0 1 1.5", {0, 0, 1, 1.5f}},
    {"RotationCommaSetsXOnly", Rotation, "0,0,1,1.5", {0, 8, 9, 6}},
    {"RotationShortKeepsRest", Rotation, "1 2", {1, 2, 9, 6}},
};

class CVSFieldParseTest : public ::testing::TestWithParam<ParseCase> {};

TEST_P(CVSFieldParseTest, SetValueFromText) {
    EXPECT_EQ(GetParam().parse(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Text, CVSFieldParseTest, ::testing::ValuesIn(kParseCases),
                         [](const ::testing::TestParamInfo<ParseCase>& info) { return info.param.name; });

TEST(CVSFieldTest, StringTextIsDecodedAsUTF8) {
    CVSFString field, copy;
    EXPECT_EQ(field.SetValue("caf\xc3\xa9 1,2"), 1);
    copy.Clone(field);
    EXPECT_EQ(copy.GetValue(), CString(L"caf\u00e9 1,2"));
}

TEST(CVSFieldTest, TimeTextWritesFloatBytesOverTheFirstHalf) {
    CVSFTime field;
    const double before = 12345.678901234;
    const float parsed = 1.5f;
    field.SetValue(before);
    EXPECT_EQ(field.SetValue("soon"), 1);
    EXPECT_EQ(field.GetValue(), before);
    ASSERT_EQ(field.SetValue("1.5"), 1);
    const double after = field.GetValue();
    EXPECT_EQ(std::memcmp(&after, &parsed, 4), 0);
    EXPECT_EQ(std::memcmp((const char*)&after + 4, (const char*)&before + 4, 4), 0);
}

TEST(CVSFieldTest, RotationFromThreeAngles) {
    CVSFRotation field;
    EXPECT_EQ(field.GetValue(), CVRotation());
    field.SetValue(0.0f, 0.0f, 1.57079633f);  // a quarter turn about z
    Point3fStruct axis;
    float angle;
    field.GetValue(axis, angle);
    EXPECT_NEAR(angle, 1.57079633f, 1e-6);
    EXPECT_NEAR(axis.x, 0.0f, 1e-6);
    EXPECT_NEAR(axis.z, 1.0f, 1e-6);
}

TEST(CVSFieldTest, ImageCloneLeavesTargetAlone) {
    // Stands in for a loaded image: nothing in the field itself fills it.
    struct LoadedImage : CVSFImage {
        unsigned char pixels[4] = {1, 2, 3, 4};
        LoadedImage() { m_nWidth = 2, m_nHeight = 1, m_nNumComponents = 2, m_pPixels = pixels; }
    };
    CVSFImage empty;
    LoadedImage target;
    target.Clone(empty);
    EXPECT_EQ(target.GetWidth(), 2);
    EXPECT_EQ(target.GetNumComponents(), 2);
    EXPECT_EQ(target.GetPixels(), target.pixels);
    empty.Clone(target);
    EXPECT_EQ(empty.GetWidth(), 0);
    EXPECT_EQ(empty.GetPixels(), nullptr);
}

}  // namespace
