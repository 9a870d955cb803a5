// Multi-valued fields of values: the array rules shared by the family (typed
// over every class) and the text forms of Add.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "core/CVMFColor.h"
#include "core/CVMFFloat.h"
#include "core/CVMFInt32.h"
#include "core/CVMFRotation.h"
#include "core/CVMFString.h"
#include "core/CVMFVec2f.h"
#include "core/CVMFVec3f.h"

namespace {

// Per class a distinct element for each k; a grown gap holds T() (for
// rotations the default rotation, not zeros).
template <class F> struct Elem;
template <> struct Elem<CVMFFloat> { static float Make(int k) { return k + 0.5f; } };
template <> struct Elem<CVMFInt32> { static int Make(int k) { return 10 * k + 1; } };
template <> struct Elem<CVMFVec2f> { static Point2fStruct Make(int k) { return {(float)k, k + 0.25f}; } };
template <> struct Elem<CVMFVec3f> { static Point3fStruct Make(int k) { return {(float)k, k + 0.25f, -(float)k}; } };
template <> struct Elem<CVMFColor> {
    static RGBAColorStruct Make(int k) { return {k * 0.125f, 0.5f, 1.0f - k * 0.125f, 0.75f}; }
};
template <> struct Elem<CVMFRotation> { static CVRotation Make(int k) { return CVRotation(1, 0, 0, k + 0.5f); } };
template <> struct Elem<CVMFString> { static CString Make(int k) { return CString(std::to_wstring(k + 100)); } };

// The elements are plain floats and ints except for strings.
template <class T>
bool Same(const T& a, const T& b) { return std::memcmp(&a, &b, sizeof(T)) == 0; }
bool Same(const CString& a, const CString& b) { return a == b; }

// Exposes the array so the growth step and the freed storage can be seen.
template <class F>
struct Exposed : F {
    INT_PTR GrowBy() const { return this->m_aValues.GetGrowBy(); }
    INT_PTR Capacity() const { return this->m_aValues.GetCapacity(); }
};

template <class F>
class CVMFieldArrayTest : public ::testing::Test {
protected:
    using E = Elem<F>;
    using T = decltype(E::Make(0));
    // The field holds exactly Make(k) for each k in ks (a gap for k < 0).
    static ::testing::AssertionResult Holds(const F& f, const std::vector<int>& ks) {
        if (f.GetNum() != (LONGLONG)ks.size())
            return ::testing::AssertionFailure() << "count " << f.GetNum() << ", want " << ks.size();
        for (size_t i = 0; i < ks.size(); ++i)
            if (!Same(f[(int)i], ks[i] < 0 ? T() : E::Make(ks[i])))
                return ::testing::AssertionFailure() << "element " << i << " differs";
        return ::testing::AssertionSuccess();
    }
    static void Fill(F& f, const std::vector<int>& ks) {
        for (int k : ks) ASSERT_EQ(f.Add(E::Make(k)), 1);
    }
};

using ValueFields = ::testing::Types<CVMFFloat, CVMFInt32, CVMFVec2f, CVMFVec3f, CVMFColor, CVMFRotation, CVMFString>;
TYPED_TEST_SUITE(CVMFieldArrayTest, ValueFields);

TYPED_TEST(CVMFieldArrayTest, SetInsertAndCloneKeepOrderAndFillGaps) {
    using E = typename TestFixture::E;
    TypeParam f, g;
    f.SetAt(3, E::Make(3));
    EXPECT_TRUE(this->Holds(f, {-1, -1, -1, 3}));
    f.SetAt(1, E::Make(1));
    f.InsertAt(1, E::Make(7));
    EXPECT_TRUE(this->Holds(f, {-1, 7, 1, -1, 3}));
    f.InsertAt(5, E::Make(8));  // at the end: appends
    f.InsertAt(7, E::Make(9));
    EXPECT_TRUE(this->Holds(f, {-1, 7, 1, -1, 3, 8, -1, 9}));
    this->Fill(g, {1, 2});
    f.Clone(g);
    EXPECT_TRUE(this->Holds(f, {1, 2}));
    f.Clone(f);
    EXPECT_TRUE(this->Holds(f, {1, 2}));
    f.Clone(TypeParam());
    EXPECT_TRUE(this->Holds(f, {}));
}

TYPED_TEST(CVMFieldArrayTest, GrowthStepSizeAndBadIndexes) {
    Exposed<TypeParam> f;
    EXPECT_EQ(f.GrowBy(), 25);
    this->Fill(f, {1, 2, 3});
    const auto v = TestFixture::E::Make(9);
    try {
        (void)f[3];
        FAIL() << "operator[] past the end did not throw";
    } catch (const CInvalidArgException& e) {
        EXPECT_EQ(std::string(e.what()),
                  std::string(TypeParam::GetThisClass()->m_lpszClassName) + "::operator[](): index 3 out of range");
    }
    EXPECT_THROW((void)f[-1], CInvalidArgException);
    EXPECT_THROW(f.SetAt(-1, v), CInvalidArgException);
    EXPECT_THROW(f.InsertAt(-2, v), CInvalidArgException);
    EXPECT_THROW(f.SetSize(-1, -1), CInvalidArgException);
    EXPECT_TRUE(this->Holds(f, {1, 2, 3}));
    f.SetSize(5, -1);
    EXPECT_EQ(f.GrowBy(), 25);
    EXPECT_TRUE(this->Holds(f, {1, 2, 3, -1, -1}));
    f.SetSize(2, 10);
    EXPECT_EQ(f.GrowBy(), 10);
    EXPECT_TRUE(this->Holds(f, {1, 2}));
    f.RemoveAll();
    EXPECT_EQ(f.GetNum(), 0);
    EXPECT_EQ(f.Capacity(), 0);
}

// Add from text: every class's format, flattened to floats in stored order.
std::vector<float> Values(const RGBAColorStruct& c) { return {c.r, c.g, c.b, c.a}; }
std::vector<float> Values(const Point3fStruct& p) { return {p.x, p.y, p.z}; }
std::vector<float> Values(const Point2fStruct& p) { return {p.x, p.y}; }
std::vector<float> Values(const CVRotation& r) { return {r.GetAxis().x, r.GetAxis().y, r.GetAxis().z, r.GetAngle()}; }
std::vector<float> Values(float v) { return {v}; }
template <class F>
std::vector<float> AddText(const char* text) {
    F field;
    if (field.Add(text) != 1 || field.GetNum() != 1) return {};
    return Values(field[0]);
}
const auto Color = AddText<CVMFColor>, Vec3 = AddText<CVMFVec3f>, Vec2 = AddText<CVMFVec2f>,
           Rot = AddText<CVMFRotation>, Float = AddText<CVMFFloat>, Int = AddText<CVMFInt32>;

TEST(CVMFieldTest, AddFromTextAppendsOneElement) {
    const struct {
        std::vector<float> (*add)(const char*);
        const char* text;
        std::vector<float> stored;
    } cases[] = {
        {Color, "0.5 1 0 0", {1, 0, 0, 0.5f}},  // alpha first
        {Color, "0.25,0.5,0.75,1", {0.5f, 0.75f, 1, 0.25f}},
        {Vec3, "1,2,3", {1, 2, 3}},
        {Vec3, "1 ,\t2,\r\n 3", {1, 2, 3}},
        {Vec3, "1 2", {1, 2, 0}},
        {Vec3, nullptr, {0, 0, 0}},
        {Vec2, "4,5", {4, 5}},
        {Rot, "0,0,1, 1.5", {0, 0, 1, 1.5f}},
        {Float, "-2.5", {-2.5f}},
        {Float, "x", {0}},
        {Int, "42.9", {42}},
    };
    for (const auto& c : cases) EXPECT_EQ(c.add(c.text), c.stored) << (c.text ? c.text : "(null)");
    CVMFString s;  // strings are one element whatever they hold
    EXPECT_EQ(s.Add("a, b c"), 1);
    EXPECT_EQ(s.Add("\xc3\xa9"), 1);
    ASSERT_EQ(s.GetNum(), 2);
    EXPECT_EQ(s[0], CString(L"a, b c"));
    EXPECT_EQ(s[1], CString(L"\u00e9"));
}

TEST(CVMFieldTest, ComponentFormsMatchTheStructForms) {
    CVMFColor c;
    c.Add(0.1f, 0.2f, 0.3f, 0.4f);
    c.SetAt(2, 0.5f, 0.6f, 0.7f, 0.8f);
    c.InsertAt(0, 0.9f, 1.0f, 0.0f, 0.5f);
    EXPECT_EQ(c[1].b, 0.3f);
    EXPECT_EQ(c[3].a, 0.8f);
    EXPECT_EQ(c[0].r, 0.9f);
    CVMFVec3f v;
    v.SetAt((LONGLONG)1, 4.0f, 5.0f, 6.0f);
    v.InsertAt(0, 1.0f, 2.0f, 3.0f);
    EXPECT_EQ(v[2].z, 6.0f);
    EXPECT_EQ(v[0].y, 2.0f);
    CVMFRotation r;
    r.Add(Point3fStruct{0, 0, 1}, 2.0f);
    r.InsertAt(0, 1, 0, 0, 3.0f);
    EXPECT_EQ(r[1], CVRotation(0, 0, 1, 2.0f));
    EXPECT_EQ(r[0].GetAngle(), 3.0f);
}

}  // namespace
