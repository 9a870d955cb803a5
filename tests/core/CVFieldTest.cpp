// Type codes and run-time class records of every field class.
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "core/CVChild.h"
#include "core/CVMFColor.h"
#include "core/CVMFFloat.h"
#include "core/CVMFInt32.h"
#include "core/CVMFNode.h"
#include "core/CVMFRotation.h"
#include "core/CVMFString.h"
#include "core/CVMFVec2f.h"
#include "core/CVMFVec3f.h"
#include "core/CVSFBool.h"
#include "core/CVSFColor.h"
#include "core/CVSFFloat.h"
#include "core/CVSFImage.h"
#include "core/CVSFInt32.h"
#include "core/CVSFNode.h"
#include "core/CVSFRotation.h"
#include "core/CVSFString.h"
#include "core/CVSFTime.h"
#include "core/CVSFVec2f.h"
#include "core/CVSFVec3f.h"

namespace {

struct FieldCase {
    const char* name;  // class record name, also the test name
    int type;
    bool multi;
    std::function<std::unique_ptr<CVField>()> make;
};

template <class F>
std::function<std::unique_ptr<CVField>()> Maker() {
    return [] { return std::unique_ptr<CVField>(new F); };
}

const FieldCase kFields[] = {
    {"CVSFBool", 271, false, Maker<CVSFBool>()},
    {"CVSFColor", 272, false, Maker<CVSFColor>()},
    {"CVSFFloat", 273, false, Maker<CVSFFloat>()},
    {"CVSFImage", 274, false, Maker<CVSFImage>()},
    {"CVSFInt32", 275, false, Maker<CVSFInt32>()},
    {"CVSFNode<CVNode>", 276, false, Maker<CVSFNode<CVNode>>()},
    {"CVSFRotation", 277, false, Maker<CVSFRotation>()},
    {"CVSFString", 278, false, Maker<CVSFString>()},
    {"CVSFTime", 279, false, Maker<CVSFTime>()},
    {"CVSFVec2f", 280, false, Maker<CVSFVec2f>()},
    {"CVSFVec3f", 281, false, Maker<CVSFVec3f>()},
    {"CVMFColor", 282, true, Maker<CVMFColor>()},
    {"CVMFFloat", 283, true, Maker<CVMFFloat>()},
    {"CVMFInt32", 284, true, Maker<CVMFInt32>()},
    {"CVMFRotation", 285, true, Maker<CVMFRotation>()},
    {"CVMFString", 286, true, Maker<CVMFString>()},
    {"CVMFVec2f", 287, true, Maker<CVMFVec2f>()},
    {"CVMFVec3f", 288, true, Maker<CVMFVec3f>()},
    {"CVMFNode<CVChild*>", 289, true, Maker<CVMFNode<CVChild*>>()},
};

class CVFieldTypeTest : public ::testing::TestWithParam<FieldCase> {};

TEST_P(CVFieldTypeTest, CodeRecordAndFreshState) {
    const FieldCase& c = GetParam();
    std::unique_ptr<CVField> field = c.make();
    EXPECT_EQ(field->GetType(), c.type);
    EXPECT_STREQ(field->GetRuntimeClass()->m_lpszClassName, c.name);
    EXPECT_TRUE(field->IsKindOf(RUNTIME_CLASS(CVField)));
    EXPECT_TRUE(field->IsKindOf(RUNTIME_CLASS(CVBase)));
    EXPECT_EQ(field->IsKindOf(RUNTIME_CLASS(CVMField)), c.multi);
    EXPECT_EQ(field->IsKindOf(RUNTIME_CLASS(CVSField)), !c.multi);
    EXPECT_EQ(field->GetContainer(), nullptr);
    // The text hook of the base accepts and ignores text: arrays stay empty.
    EXPECT_EQ(field->Set("1 2 3 4"), 1);
    if (c.multi) {
        EXPECT_EQ(static_cast<CVMField*>(field.get())->GetNum(), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(AllFields, CVFieldTypeTest, ::testing::ValuesIn(kFields),
                         [](const ::testing::TestParamInfo<FieldCase>& info) {
                             std::string name = info.param.name;
                             for (char& ch : name)
                                 if (!isalnum((unsigned char)ch)) ch = '_';
                             return name;
                         });

TEST(CVFieldTest, NodeTokenTypesAndBaseRecords) {
    EXPECT_EQ(CVField::GetSFNodeTokenType(), CVSFNode<CVChild>().GetType());
    EXPECT_EQ(CVField::GetMFNodeTokenType(), CVMFNode<CVNode*>().GetType());
    EXPECT_EQ(CVSField().GetType(), 0);
    EXPECT_EQ(RUNTIME_CLASS(CVMField)->GetBaseClass(), RUNTIME_CLASS(CVField));
    EXPECT_EQ(RUNTIME_CLASS(CVField)->GetBaseClass(), RUNTIME_CLASS(CVBase));
    // Each instantiation of a node field has a record of its own.
    EXPECT_NE(RUNTIME_CLASS(CVSFNode<CVNode>), RUNTIME_CLASS(CVSFNode<CVChild>));
    EXPECT_STREQ(RUNTIME_CLASS(CVMFNode<CVNode*>)->m_lpszClassName, "CVMFNode<CVNode*>");
}

}  // namespace
