#include <gtest/gtest.h>

#include "core/CVChild.h"
#include "core/CVLibrary.h"
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
};

TEST_F(CVNodeTest, LibraryLoadOpensTheFirstNameSpace) {
    EXPECT_TRUE(CVLibrary::IsAttached());
    EXPECT_NE(CVNode::TopNameSpace(), nullptr);
    EXPECT_EQ(CVNode::TopNameSpace()->GetBlockSize(), 10);
}

TEST_F(CVNodeTest, IdsAreUniqueIncreasingAndNeverReused) {
    auto* a = new CVNode;
    int idA = a->GetID();
    delete a;
    auto* b = new CVNode;
    auto* c = new CVNode;
    EXPECT_GT(b->GetID(), idA);
    EXPECT_EQ(c->GetID(), b->GetID() + 1);
    EXPECT_GT(idA, 0);
    delete b;
    delete c;
}

TEST_F(CVNodeTest, RegistryKeepsConstructionOrderAndForgetsTheDead) {
    INT_PTR before = CVNode::GetNodeCount();
    CVNode* n[4] = {new CVNode, new CVChild, new CVNode, new CVNode};
    ASSERT_EQ(CVNode::GetNodeCount(), before + 4);
    int deadID = n[1]->GetID();
    delete n[1];
    EXPECT_EQ(CVNode::GetNodeCount(), before + 3);
    EXPECT_EQ(CVNode::FindNodeByID(deadID), nullptr);
    EXPECT_EQ(CVNode::GetNodeAt(before + 0), n[0]);
    EXPECT_EQ(CVNode::GetNodeAt(before + 1), n[2]);
    EXPECT_EQ(CVNode::GetNodeAt(before + 2), n[3]);
    EXPECT_EQ(CVNode::FindNodeByID(n[3]->GetID()), n[3]);
    EXPECT_THROW(CVNode::GetNodeAt(before + 3), CInvalidArgException);
    delete n[0];
    delete n[2];
    delete n[3];
    EXPECT_EQ(CVNode::GetNodeCount(), before);
}

TEST_F(CVNodeTest, UnrefAtOneDeletesAndUnrefNoDeleteKeeps) {
    INT_PTR before = CVNode::GetNodeCount();
    auto* n = new CVNode;
    n->Ref();
    n->UnrefNoDelete();
    EXPECT_EQ(n->GetRef(), 0);
    EXPECT_EQ(CVNode::GetNodeCount(), before + 1);  // still alive
    n->Ref();
    n->Ref();
    n->Unref();
    EXPECT_EQ(CVNode::GetNodeCount(), before + 1);
    n->Unref();
    EXPECT_EQ(CVNode::GetNodeCount(), before);  // deleted itself at exactly 0
}

TEST_F(CVNodeTest, CountDrivenBelowZeroDeletesNothing) {
    INT_PTR before = CVNode::GetNodeCount();
    auto* n = new CVNode;
    n->Unref();  // never Ref'ed: -1, must not delete
    EXPECT_EQ(n->GetRef(), -1);
    EXPECT_EQ(CVNode::GetNodeCount(), before + 1);
    delete n;
}

TEST_F(CVNodeTest, LastNodeGivenANameWinsAndTheFirstDestroyedRemovesTheEntry) {
    auto* first = new CVNode;
    auto* second = new CVNode;
    first->SetName(L"bar");
    second->SetName(L"bar");
    EXPECT_EQ(CVNode::NameToNode(L"bar"), second);
    delete first;  // removes the entry by key, whatever it points to
    EXPECT_EQ(CVNode::NameToNode(L"bar"), nullptr);
    ASSERT_NE(second->GetName(), nullptr);
    EXPECT_EQ(*second->GetName(), CString(L"bar"));
    delete second;
}

TEST_F(CVNodeTest, RenamingMovesTheEntryAndOwnNameStaysRegistered) {
    auto* n = new CVNode;
    n->SetName(L"a");
    n->SetName(L"b");
    EXPECT_EQ(CVNode::NameToNode(L"a"), nullptr);
    EXPECT_EQ(CVNode::NameToNode(L"b"), n);
    n->SetName(L"b");
    EXPECT_EQ(CVNode::NameToNode(L"b"), n);
    EXPECT_EQ(CVNode::NameToNode(L"B"), nullptr);  // case-sensitive
    delete n;
    EXPECT_EQ(CVNode::NameToNode(L"b"), nullptr);
}

TEST_F(CVNodeTest, InnerNameSpaceHidesOuterNames) {
    auto* outer = new CVNode;
    outer->SetName(L"x");
    CVNode::PushNameSpace();
    EXPECT_EQ(CVNode::depth, 1);
    EXPECT_EQ(CVNode::NameToNode(L"x"), nullptr);
    auto* inner = new CVNode;
    inner->SetName(L"y");
    EXPECT_EQ(CVNode::NameToNode(L"y"), inner);
    CVNode::PopNameSpace();
    EXPECT_EQ(CVNode::NameToNode(L"x"), outer);
    EXPECT_EQ(CVNode::NameToNode(L"y"), nullptr);
    ASSERT_NE(inner->GetName(), nullptr);  // popping leaves the node's name set
    delete inner;
    delete outer;
}

TEST_F(CVNodeTest, NodeDestroyedAfterPopRemovesTheSameKeyFromTheOuterSpace) {
    auto* outer = new CVNode;
    outer->SetName(L"shared");
    auto* bystander = new CVNode;
    bystander->SetName(L"other");
    CVNode::PushNameSpace();
    auto* inner = new CVNode;
    inner->SetName(L"shared");
    auto* innerOnly = new CVNode;
    innerOnly->SetName(L"gone");
    CVNode::PopNameSpace();
    delete innerOnly;  // key absent outside: nothing happens
    EXPECT_EQ(CVNode::NameToNode(L"other"), bystander);
    EXPECT_EQ(CVNode::NameToNode(L"shared"), outer);
    delete inner;  // removes the outer entry although it names another node
    EXPECT_EQ(CVNode::NameToNode(L"shared"), nullptr);
    delete outer;
    delete bystander;
}

TEST_F(CVNodeTest, NameOperationsFailWithNoNameSpaceOpen) {
    auto* named = new CVNode;
    named->SetName(L"n");
    CVNode::PopNameSpace();
    EXPECT_EQ(CVNode::depth, -1);
    auto* n = new CVNode;
    EXPECT_THROW(n->SetName(L"n"), CInvalidArgException);
    EXPECT_EQ(n->GetName(), nullptr);
    EXPECT_THROW(CVNode::NameToNode(L"n"), CInvalidArgException);
    EXPECT_THROW(CVNode::TopNameSpace(), CInvalidArgException);
    EXPECT_THROW(CVNode::PopNameSpace(), CInvalidArgException);
    INT_PTR live = CVNode::GetNodeCount();
    EXPECT_NO_THROW(delete named);  // destructors never throw
    EXPECT_EQ(CVNode::GetNodeCount(), live - 1);
    delete n;                                             // unnamed: fine
    CVNode::Init();
    EXPECT_EQ(CVNode::NameToNode(L"n"), nullptr);
}

TEST_F(CVNodeTest, RuntimeClassRecordsDescribeTheHierarchy) {
    CVChild child;
    const CRuntimeClass* rc = child.GetRuntimeClass();
    EXPECT_STREQ(rc->m_lpszClassName, "CVChild");
    EXPECT_EQ(rc->m_wSchema, 0xFFFFu);
    EXPECT_EQ(rc->m_pfnCreateObject, nullptr);
    EXPECT_EQ(rc->m_nObjectSize, (int)sizeof(CVChild));
    EXPECT_TRUE(child.IsKindOf(RUNTIME_CLASS(CVNode)));
    EXPECT_TRUE(child.IsKindOf(RUNTIME_CLASS(CVBase)));
    EXPECT_TRUE(child.IsKindOf(RUNTIME_CLASS(CObject)));
    CVNode plain;
    EXPECT_FALSE(plain.IsKindOf(RUNTIME_CLASS(CVChild)));
    EXPECT_EQ(RUNTIME_CLASS(CVBase)->GetBaseClass(), RUNTIME_CLASS(CObject));
    EXPECT_EQ(CVNode::classCVNode.GetBaseClass(), RUNTIME_CLASS(CVRefCount));
}

TEST_F(CVNodeTest, DefaultVirtualsAreNeutral) {
    CVNode n;
    CString why = L"unchanged";
    EXPECT_EQ(n.IsValid(why), 1);
    EXPECT_EQ(why, CString(L"unchanged"));
    EXPECT_EQ(n.GetPickDetail(3), nullptr);
}

}  // namespace
