#include <gtest/gtest.h>

#include "core/CVChild.h"
#include "library/CVLibrary.h"
#include "core/CVNode.h"
#include "platform/CException.h"

namespace {

// Every test starts with exactly the one name space the library opened at load.
class CVNodeTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(CVNode::depth, 0); }
    void TearDown() override {
        while (CVNode::depth > 0) CVNode::PopNameSpace();
        if (CVNode::depth < 0) CVNode::Init();
    }
    static CVNode* Named(const wchar_t* name) {
        auto* n = new CVNode;
        n->SetName(name);
        return n;
    }
};

TEST_F(CVNodeTest, LibraryLoadOpensTheFirstNameSpaceAndRecordsDescribeTheHierarchy) {
    EXPECT_TRUE(CVLibrary::IsAttached());
    ASSERT_NE(CVNode::TopNameSpace(), nullptr);
    EXPECT_EQ(CVNode::TopNameSpace()->GetBlockSize(), 10);
    CVChild child;
    const CRuntimeClass* rc = child.GetRuntimeClass();
    EXPECT_STREQ(rc->m_lpszClassName, "CVChild");
    EXPECT_EQ(rc->m_wSchema, 0xFFFFu);
    EXPECT_EQ(rc->m_pfnCreateObject, nullptr);
    EXPECT_EQ(rc->m_nObjectSize, (int)sizeof(CVChild));
    EXPECT_TRUE(child.IsKindOf(RUNTIME_CLASS(CVNode)) && child.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(CVNode().IsKindOf(RUNTIME_CLASS(CVChild)));
    EXPECT_EQ(RUNTIME_CLASS(CVBase)->GetBaseClass(), RUNTIME_CLASS(CObject));
    EXPECT_EQ(CVNode::classCVNode.GetBaseClass(), RUNTIME_CLASS(CVRefCount));
}

TEST_F(CVNodeTest, IdsGrowAreNeverReusedAndTheRegistryKeepsConstructionOrder) {
    const INT_PTR before = CVNode::GetNodeCount();
    auto* gone = new CVNode;
    const int goneID = gone->GetID();
    EXPECT_GT(goneID, 0);
    delete gone;
    CVNode* n[4] = {new CVNode, new CVChild, new CVNode, new CVNode};
    EXPECT_GT(n[0]->GetID(), goneID);
    EXPECT_EQ(n[1]->GetID(), n[0]->GetID() + 1);
    ASSERT_EQ(CVNode::GetNodeCount(), before + 4);
    const int deadID = n[1]->GetID();
    delete n[1];
    EXPECT_EQ(CVNode::FindNodeByID(deadID), nullptr);
    EXPECT_EQ(CVNode::FindNodeByID(n[3]->GetID()), n[3]);
    const CVNode* order[] = {n[0], n[2], n[3]};
    for (int i = 0; i < 3; ++i) EXPECT_EQ(CVNode::GetNodeAt(before + i), order[i]);
    EXPECT_THROW(CVNode::GetNodeAt(before + 3), CInvalidArgException);
    for (int i : {0, 2, 3}) delete n[i];
    EXPECT_EQ(CVNode::GetNodeCount(), before);
}

TEST_F(CVNodeTest, UnrefDeletesAtExactlyZeroOnly) {
    const INT_PTR before = CVNode::GetNodeCount();
    auto* n = new CVNode;
    n->Ref();
    n->UnrefNoDelete();
    EXPECT_EQ(n->GetRef(), 0);
    n->Unref();  // never Ref'ed again: -1, must not delete
    EXPECT_EQ(n->GetRef(), -1);
    EXPECT_EQ(CVNode::GetNodeCount(), before + 1);
    n->Ref();
    n->Ref();
    n->Ref();
    n->Unref();
    EXPECT_EQ(CVNode::GetNodeCount(), before + 1);
    n->Unref();
    EXPECT_EQ(CVNode::GetNodeCount(), before);  // deleted itself
}

TEST_F(CVNodeTest, LastNodeGivenANameWinsAndAnyOwnerDestroyedRemovesTheEntry) {
    auto *first = Named(L"bar"), *second = Named(L"bar");
    EXPECT_EQ(CVNode::NameToNode(L"bar"), second);
    delete first;  // removes the entry by key, whatever it points to
    EXPECT_EQ(CVNode::NameToNode(L"bar"), nullptr);
    ASSERT_NE(second->GetName(), nullptr);
    EXPECT_EQ(*second->GetName(), CString(L"bar"));
    second->SetName(L"a");
    second->SetName(L"b");  // renaming moves the entry
    second->SetName(L"b");
    EXPECT_EQ(CVNode::NameToNode(L"a"), nullptr);
    EXPECT_EQ(CVNode::NameToNode(L"b"), second);
    EXPECT_EQ(CVNode::NameToNode(L"B"), nullptr);  // case-sensitive
    delete second;
    EXPECT_EQ(CVNode::NameToNode(L"b"), nullptr);
}

TEST_F(CVNodeTest, InnerNameSpaceHidesOuterNamesAndItsNodesRemoveOuterKeysLater) {
    auto *outer = Named(L"shared"), *bystander = Named(L"other");
    CVNode::PushNameSpace();
    EXPECT_EQ(CVNode::depth, 1);
    EXPECT_EQ(CVNode::NameToNode(L"shared"), nullptr);
    auto *inner = Named(L"shared"), *innerOnly = Named(L"gone");
    EXPECT_EQ(CVNode::NameToNode(L"shared"), inner);
    CVNode::PopNameSpace();
    EXPECT_EQ(CVNode::NameToNode(L"shared"), outer);
    EXPECT_EQ(CVNode::NameToNode(L"gone"), nullptr);
    ASSERT_NE(inner->GetName(), nullptr);  // popping leaves the node's name set
    delete innerOnly;                      // key absent outside: nothing happens
    EXPECT_EQ(CVNode::NameToNode(L"other"), bystander);
    delete inner;  // removes the outer entry although it names another node
    EXPECT_EQ(CVNode::NameToNode(L"shared"), nullptr);
    delete outer;
    delete bystander;
}

TEST_F(CVNodeTest, NameOperationsFailWithNoNameSpaceOpen) {
    auto* named = Named(L"n");
    CVNode::PopNameSpace();
    EXPECT_EQ(CVNode::depth, -1);
    auto* n = new CVNode;
    EXPECT_THROW(n->SetName(L"n"), CInvalidArgException);
    EXPECT_EQ(n->GetName(), nullptr);
    EXPECT_THROW(CVNode::NameToNode(L"n"), CInvalidArgException);
    EXPECT_THROW(CVNode::TopNameSpace(), CInvalidArgException);
    EXPECT_THROW(CVNode::PopNameSpace(), CInvalidArgException);
    const INT_PTR live = CVNode::GetNodeCount();
    EXPECT_NO_THROW(delete named);  // destructors never throw
    EXPECT_EQ(CVNode::GetNodeCount(), live - 1);
    delete n;  // unnamed: fine
    CVNode::Init();
    EXPECT_EQ(CVNode::NameToNode(L"n"), nullptr);
}

}  // namespace
