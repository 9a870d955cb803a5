// Type codes and run-time class records of every field class.
#include <gtest/gtest.h>

#include <memory>

#include "cvscene.h"

namespace {

template <class F>
CVField* Make() { return new F; }

TEST(CVFieldTest, EveryClassHasItsCodeRecordAndFreshState) {
    const struct {
        const char* name;
        int type;
        bool multi;
        CVField* (*make)();
    } fields[] = {
        {"CVSFBool", 271, false, Make<CVSFBool>},         {"CVSFColor", 272, false, Make<CVSFColor>},
        {"CVSFFloat", 273, false, Make<CVSFFloat>},       {"CVSFImage", 274, false, Make<CVSFImage>},
        {"CVSFInt32", 275, false, Make<CVSFInt32>},       {"CVSFNode<CVNode>", 276, false, Make<CVSFNode<CVNode>>},
        {"CVSFRotation", 277, false, Make<CVSFRotation>}, {"CVSFString", 278, false, Make<CVSFString>},
        {"CVSFTime", 279, false, Make<CVSFTime>},         {"CVSFVec2f", 280, false, Make<CVSFVec2f>},
        {"CVSFVec3f", 281, false, Make<CVSFVec3f>},       {"CVMFColor", 282, true, Make<CVMFColor>},
        {"CVMFFloat", 283, true, Make<CVMFFloat>},        {"CVMFInt32", 284, true, Make<CVMFInt32>},
        {"CVMFRotation", 285, true, Make<CVMFRotation>},  {"CVMFString", 286, true, Make<CVMFString>},
        {"CVMFVec2f", 287, true, Make<CVMFVec2f>},        {"CVMFVec3f", 288, true, Make<CVMFVec3f>},
        {"CVMFNode<CVChild*>", 289, true, Make<CVMFNode<CVChild*>>},
    };
    for (const auto& c : fields) {
        SCOPED_TRACE(c.name);
        std::unique_ptr<CVField> field(c.make());
        EXPECT_EQ(field->GetType(), c.type);
        EXPECT_STREQ(field->GetRuntimeClass()->m_lpszClassName, c.name);
        EXPECT_TRUE(field->IsKindOf(RUNTIME_CLASS(CVField)) && field->IsKindOf(RUNTIME_CLASS(CVBase)));
        EXPECT_EQ(field->IsKindOf(RUNTIME_CLASS(CVMField)), c.multi);
        EXPECT_EQ(field->IsKindOf(RUNTIME_CLASS(CVSField)), !c.multi);
        EXPECT_EQ(field->GetContainer(), nullptr);
        // The base's text hook accepts and ignores text: arrays stay empty.
        EXPECT_EQ(field->Set("1 2 3 4"), 1);
        EXPECT_EQ(c.multi ? static_cast<CVMField*>(field.get())->GetNum() : 0, 0);
    }
}

TEST(CVFieldTest, NodeTokenTypesAreTheNodeFieldCodes) {
    EXPECT_EQ(CVField::GetSFNodeTokenType(), CVSFNode<CVChild>().GetType());
    EXPECT_EQ(CVField::GetMFNodeTokenType(), CVMFNode<CVNode*>().GetType());
    EXPECT_EQ(CVSField().GetType(), 0);
    // Each instantiation of a node field has a record of its own.
    EXPECT_NE(RUNTIME_CLASS(CVSFNode<CVNode>), RUNTIME_CLASS(CVSFNode<CVChild>));
}

}  // namespace
