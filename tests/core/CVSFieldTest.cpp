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

// The components of each field, and non-zero presets so that components the
// text leaves alone show.
std::vector<float> Values(const CVSFBool& f) { return {(float)f.GetValue()}; }
std::vector<float> Values(const CVSFInt32& f) { return {(float)f.GetValue()}; }
std::vector<float> Values(const CVSFFloat& f) { return {f.GetValue()}; }
std::vector<float> Values(const CVSFVec2f& f) { return {f.GetValue().x, f.GetValue().y}; }
std::vector<float> Values(const CVSFVec3f& f) { return {f.GetValue().x, f.GetValue().y, f.GetValue().z}; }
std::vector<float> Values(const CVSFColor& f) { return {f.GetValue().r, f.GetValue().g, f.GetValue().b}; }
std::vector<float> Values(const CVSFRotation& f) {  // axis x, y, z, angle
    const CVRotation r = f.GetValue();
    return {r.GetAxis().x, r.GetAxis().y, r.GetAxis().z, r.GetAngle()};
}
void Preset(CVSFBool& f) { f.SetValue(1); }
void Preset(CVSFInt32& f) { f.SetValue(7); }
void Preset(CVSFFloat& f) { f.SetValue(7.0f); }
void Preset(CVSFVec2f& f) { f.SetValue(7, 8); }
void Preset(CVSFVec3f& f) { f.SetValue(7, 8, 9); }
void Preset(CVSFColor& f) { f.SetValue(0.25f, 0.5f, 0.75f); }
void Preset(CVSFRotation& f) { f.SetValue(7, 8, 9, 6); }

// The components after SetValue(text), or nothing if it did not return 1.
template <class F>
std::vector<float> Parse(const char* text) {
    F f;
    Preset(f);
    return f.SetValue(text) == 1 ? Values(f) : std::vector<float>{};
}
const auto Bool = Parse<CVSFBool>, Int = Parse<CVSFInt32>, Float = Parse<CVSFFloat>, Vec2 = Parse<CVSFVec2f>,
           Vec3 = Parse<CVSFVec3f>, Color = Parse<CVSFColor>, Rotation = Parse<CVSFRotation>;

TEST(CVSFieldTest, SetValueFromText) {
    const struct {
        std::vector<float> (*parse)(const char*);
        const char* text;
        std::vector<float> expected;
    } cases[] = {
        {Bool, "TRUE", {1}},  // only exactly this
        {Bool, "true", {0}},
        {Bool, "TRUE ", {0}},
        {Bool, "1", {0}},
        {Bool, nullptr, {0}},
        {Int, "  -42", {-42}},
        {Int, "7.9e3", {7}},
        {Int, "abc", {7}},  // garbage keeps the value
        {Float, "2.5e1", {25}},
        {Float, "", {7}},
        {Vec2, "1\t\n2", {1, 2}},
        {Vec2, "1,2", {1, 8}},  // commas end the text: x only
        {Vec3, "1 2 3", {1, 2, 3}},
        {Vec3, "1,2,3", {1, 8, 9}},
        {Vec3, "1 2", {1, 2, 9}},
        {Vec3, nullptr, {7, 8, 9}},
        {Color, "1 0 0.5", {1, 0, 0.5f}},
        {Color, "1,0,0.5", {1, 0.5f, 0.75f}},
        {Rotation, "0 0 1 1.5", {0, 0, 1, 1.5f}},
        {Rotation, "0,0,1,1.5", {0, 8, 9, 6}},
        {Rotation, "1 2", {1, 2, 9, 6}},
    };
    for (const auto& c : cases) EXPECT_EQ(c.parse(c.text), c.expected) << (c.text ? c.text : "(null)");
}

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
    EXPECT_NEAR(field.GetValue().GetAngle(), 1.57079633f, 1e-6);
    EXPECT_NEAR(field.GetValue().GetAxis().x, 0.0f, 1e-6);
    EXPECT_NEAR(field.GetValue().GetAxis().z, 1.0f, 1e-6);
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
