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

// Per class: a distinct element for each k, and what a grown gap holds.
template <class F> struct Elem;
template <> struct Elem<CVMFFloat> {
    static float Make(int k) { return k + 0.5f; }
    static float Gap() { return 0.0f; }
};
template <> struct Elem<CVMFInt32> {
    static int Make(int k) { return 10 * k + 1; }
    static int Gap() { return 0; }
};
template <> struct Elem<CVMFVec2f> {
    static Point2fStruct Make(int k) { return {(float)k, k + 0.25f}; }
    static Point2fStruct Gap() { return {0, 0}; }
};
template <> struct Elem<CVMFVec3f> {
    static Point3fStruct Make(int k) { return {(float)k, k + 0.25f, -(float)k}; }
    static Point3fStruct Gap() { return {0, 0, 0}; }
};
template <> struct Elem<CVMFColor> {
    static RGBAColorStruct Make(int k) { return {k * 0.125f, 0.5f, 1.0f - k * 0.125f, 0.75f}; }
    static RGBAColorStruct Gap() { return {0, 0, 0, 0}; }
};
template <> struct Elem<CVMFRotation> {
    static CVRotation Make(int k) { return CVRotation(1, 0, 0, k + 0.5f); }
    static CVRotation Gap() { return CVRotation(); }  // the default rotation, not zeros
};
template <> struct Elem<CVMFString> {
    static CString Make(int k) { return CString(std::to_wstring(k + 100)); }
    static CString Gap() { return CString(); }
};

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
    // The field holds exactly Make(k) for each k in ks (Gap for k < 0).
    static ::testing::AssertionResult Holds(const F& f, const std::vector<int>& ks) {
        if (f.GetNum() != (LONGLONG)ks.size())
            return ::testing::AssertionFailure() << "count " << f.GetNum() << ", want " << ks.size();
        for (size_t i = 0; i < ks.size(); ++i) {
            if (!Same(f[(int)i], ks[i] < 0 ? E::Gap() : E::Make(ks[i])))
                return ::testing::AssertionFailure() << "element " << i << " differs";
        }
        return ::testing::AssertionSuccess();
    }
    static void Fill(F& f, const std::vector<int>& ks) {
        for (int k : ks) ASSERT_EQ(f.Add(E::Make(k)), 1);
    }
    static std::string Where(const char* op) { return std::string(F::GetThisClass()->m_lpszClassName) + op; }
};

using ValueFields =
    ::testing::Types<CVMFFloat, CVMFInt32, CVMFVec2f, CVMFVec3f, CVMFColor, CVMFRotation, CVMFString>;
TYPED_TEST_SUITE(CVMFieldArrayTest, ValueFields);

TYPED_TEST(CVMFieldArrayTest, SetAtGrowsWithGapAndReplacesInside) {
    TypeParam f;
    f.SetAt(3, TestFixture::E::Make(3));
    EXPECT_TRUE(this->Holds(f, {-1, -1, -1, 3}));
    f.SetAt(1, TestFixture::E::Make(1));
    EXPECT_TRUE(this->Holds(f, {-1, 1, -1, 3}));
}

TYPED_TEST(CVMFieldArrayTest, InsertAtShiftsInsideAndGrowsPastEnd) {
    TypeParam f;
    this->Fill(f, {0, 1, 2});
    f.InsertAt(1, TestFixture::E::Make(7));
    EXPECT_TRUE(this->Holds(f, {0, 7, 1, 2}));
    f.InsertAt(4, TestFixture::E::Make(8));  // at the end: appends
    EXPECT_TRUE(this->Holds(f, {0, 7, 1, 2, 8}));
    f.InsertAt(7, TestFixture::E::Make(9));
    EXPECT_TRUE(this->Holds(f, {0, 7, 1, 2, 8, -1, -1, 9}));
}

TYPED_TEST(CVMFieldArrayTest, CloneTakesTheOthersElements) {
    TypeParam a, b;
    this->Fill(a, {1, 2});
    this->Fill(b, {5, 6, 7, 8});
    b.Clone(a);
    EXPECT_TRUE(this->Holds(b, {1, 2}));
    b.Clone(b);
    EXPECT_TRUE(this->Holds(b, {1, 2}));
    b.Clone(TypeParam());
    EXPECT_TRUE(this->Holds(b, {}));
}

TYPED_TEST(CVMFieldArrayTest, GrowthStepSetSizeAndRemoveAll) {
    Exposed<TypeParam> f;
    EXPECT_EQ(f.GrowBy(), 25);
    this->Fill(f, {1, 2, 3});
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

TYPED_TEST(CVMFieldArrayTest, BadIndexThrowsAndChangesNothing) {
    TypeParam f;
    this->Fill(f, {1, 2, 3});
    const typename std::decay<decltype(TestFixture::E::Make(0))>::type v = TestFixture::E::Make(9);
    try {
        (void)f[3];
        FAIL() << "operator[] past the end did not throw";
    } catch (const CInvalidArgException& e) {
        EXPECT_EQ(std::string(e.what()), this->Where("::operator[](): index 3 out of range"));
    }
    EXPECT_THROW((void)f[-1], CInvalidArgException);
    EXPECT_THROW(f.SetAt(-1, v), CInvalidArgException);
    EXPECT_THROW(f.InsertAt(-2, v), CInvalidArgException);
    EXPECT_THROW(f.SetSize(-1, -1), CInvalidArgException);
    EXPECT_TRUE(this->Holds(f, {1, 2, 3}));
}

// Add from text: every class's format, flattened to floats in stored order.
template <class F, class Read>
std::vector<float> AddText(const char* text, Read read) {
    F field;
    if (field.Add(text) != 1 || field.GetNum() != 1) return {};
    return read(field[0]);
}

std::vector<float> Color(const char* t) {
    return AddText<CVMFColor>(t, [](const RGBAColorStruct& c) { return std::vector<float>{c.r, c.g, c.b, c.a}; });
}
std::vector<float> Vec3(const char* t) {
    return AddText<CVMFVec3f>(t, [](const Point3fStruct& p) { return std::vector<float>{p.x, p.y, p.z}; });
}
std::vector<float> Vec2(const char* t) {
    return AddText<CVMFVec2f>(t, [](const Point2fStruct& p) { return std::vector<float>{p.x, p.y}; });
}
std::vector<float> Rot(const char* t) {
    return AddText<CVMFRotation>(t, [](const CVRotation& r) {
        Point3fStruct axis;
        float angle;
        r.GetValue(axis, angle);
        return std::vector<float>{axis.x, axis.y, axis.z, angle};
    });
}
std::vector<float> Float(const char* t) {
    return AddText<CVMFFloat>(t, [](float v) { return std::vector<float>{v}; });
}
std::vector<float> Int(const char* t) {
    return AddText<CVMFInt32>(t, [](int v) { return std::vector<float>{(float)v}; });
}

struct AddCase {
    const char* name;
    std::vector<float> (*add)(const char*);
    const char* text;
    std::vector<float> stored;
};

const AddCase kAddCases[] = {
    {"ColorAlphaFirst", Color, "0.5 1 0 0", {1, 0, 0, 0.5f}},
    {"ColorCommas", Color, "0.25,0.5,0.75,1", {0.5f, 0.75f, 1, 0.25f}},
    {"Vec3Commas", Vec3, "1,2,3", {1, 2, 3}},
    {"Vec3Blanks", Vec3, "1 2 3", {1, 2, 3}},
    {"Vec3MixedRuns", Vec3, "1 ,\t2,\r\n 3", {1, 2, 3}},
    {"Vec3ShortIsZero", Vec3, "1 2", {1, 2, 0}},
    {"Vec3NullIsZero", Vec3, nullptr, {0, 0, 0}},
    {"Vec2Commas", Vec2, "4,5", {4, 5}},
    {"RotationAxisThenAngle", Rot, "0,0,1, 1.5", {0, 0, 1, 1.5f}},
    {"FloatPlain", Float, "-2.5", {-2.5f}},
    {"FloatGarbageIsZero", Float, "x", {0}},
    {"IntStopsAtPoint", Int, "42.9", {42}},
};

class CVMFieldAddTextTest : public ::testing::TestWithParam<AddCase> {};

TEST_P(CVMFieldAddTextTest, AppendsOneElement) {
    EXPECT_EQ(GetParam().add(GetParam().text), GetParam().stored);
}

INSTANTIATE_TEST_SUITE_P(Text, CVMFieldAddTextTest, ::testing::ValuesIn(kAddCases),
                         [](const ::testing::TestParamInfo<AddCase>& info) { return info.param.name; });

TEST(CVMFieldTest, StringTextIsOneElement) {
    CVMFString f;
    EXPECT_EQ(f.Add("a, b c"), 1);
    EXPECT_EQ(f.Add("\xc3\xa9"), 1);
    ASSERT_EQ(f.GetNum(), 2);
    EXPECT_EQ(f[0], CString(L"a, b c"));
    EXPECT_EQ(f[1], CString(L"\u00e9"));
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
