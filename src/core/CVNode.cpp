#include "core/CVNode.h"

#include <string>

#include "core/CVAction.h"
#include "core/CVNodeRegistry.h"
#include "platform/CException.h"

IMPLEMENT_DYNAMIC(CVNode, CVRefCount)

int CVNode::depth = -2;
int CVNode::nextID = 1;

namespace {
// Heap-held so that they are valid before any static constructor runs and
// outlive nodes that a host frees after the library's shutdown hook.
CArray<CVNameSpace*, CVNameSpace*>* g_pNameStack = nullptr;
CVNodeRegistry* g_pNodeList = nullptr;
CVNode::RenderCacheProc g_pfnRenderCache = nullptr;
}  // namespace

CArray<CVNameSpace*, CVNameSpace*>& CVNode::NameStack() {
    if (!g_pNameStack) g_pNameStack = new CArray<CVNameSpace*, CVNameSpace*>();
    return *g_pNameStack;
}

CVNodeRegistry& CVNode::NodeList() {
    if (!g_pNodeList) g_pNodeList = new CVNodeRegistry();
    return *g_pNodeList;
}

CVNode::CVNode() : m_nID(nextID++) { NodeList().Add(this, m_nID); }

CVNode::~CVNode() {
    // Destructors must not throw (every host class embedding a node would
    // inherit a throwing destructor), so with no name space open there is
    // simply no entry to remove.
    if (m_pName && depth >= 0 && depth < NameStack().GetSize()) RemoveName();
    delete m_pName;
    m_pName = nullptr;
    NodeList().Remove(this, m_nID);
}

void CVNode::Traverse(CVAction* action, const CArray<CVNode*, CVNode*>*, int) {
    action->PreActOn(this);
    action->PostActOn(this);
}

void CVNode::Render(CVState*, CVGLRenderArea*) {}
void CVNode::ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f*) {}
int CVNode::IsValid(CString&) { return 1; }
CVDetail* CVNode::GetPickDetail(unsigned int) { return nullptr; }

CVNameSpace* CVNode::CurrentNameSpace(const char* caller) {
    auto& stack = NameStack();
    if (depth < 0 || depth >= stack.GetSize())
        AfxThrowInvalidArgException(std::string(caller) + ": no name space open (depth " + std::to_string(depth) +
                                    ")");
    return stack[depth];
}

void CVNode::SetName(const CString& name) {
    CVNameSpace* space = CurrentNameSpace("CVNode::SetName()");
    if (m_pName) {
        space->RemoveKey(*m_pName);
        delete m_pName;
        m_pName = nullptr;
    }
    m_pName = new CString(name);
    AddName();
}

void CVNode::AddName() {
    CVNameSpace* space = CurrentNameSpace("CVNode::AddName()");
    if (m_pName) space->SetAt(*m_pName, this);
}

void CVNode::RemoveName() {
    CVNameSpace* space = CurrentNameSpace("CVNode::RemoveName()");
    if (m_pName) space->RemoveKey(*m_pName);
}

CVNode* CVNode::NameToNode(const CString& name) {
    CVNode* node = nullptr;
    CurrentNameSpace("CVNode::NameToNode()")->Lookup(name, node);
    return node;
}

void CVNode::Init() {
    depth = 0;
    NameStack().SetAtGrow(0, new CVNameSpace(10));
}

void CVNode::UnInit() { PopNameSpace(); }

void CVNode::PushNameSpace() {
    auto* space = new CVNameSpace(10);
    ++depth;
    NameStack().SetAtGrow(depth, space);
}

void CVNode::PopNameSpace() {
    CVNameSpace* space = CurrentNameSpace("CVNode::PopNameSpace()");
    space->RemoveAll();
    delete space;
    NameStack().RemoveAt(depth);
    --depth;
}

CVNameSpace* CVNode::TopNameSpace() { return CurrentNameSpace("CVNode::TopNameSpace()"); }

CVNode* CVNode::FindNodeByID(int id) { return NodeList().Find(id); }
INT_PTR CVNode::GetNodeCount() { return NodeList().GetCount(); }
CVNode* CVNode::GetNodeAt(INT_PTR index) { return NodeList().GetAt(index); }

CVGLRenderArea* CVNode::MakeCacheCurrent(CVGLRenderArea* area) {
    CVGLRenderArea* cache = area && g_pfnRenderCache ? g_pfnRenderCache(area) : nullptr;
    return cache ? cache : area;
}

void CVNode::UnMakeCacheCurrent(CVGLRenderArea*) {}

void CVNode::SetRenderCacheProc(RenderCacheProc proc) { g_pfnRenderCache = proc; }
