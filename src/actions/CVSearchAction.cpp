#include "actions/CVSearchAction.h"

#include <string>

#include "core/CVNode.h"
#include "core/CVState.h"
#include "platform/CException.h"

IMPLEMENT_DYNAMIC(CVSearchAction, CVAction)

CVSearchAction::CVSearchAction() = default;

CVSearchAction::~CVSearchAction() { DeletePaths(); }

void CVSearchAction::SetNode(CVNode* node) {
    m_pNode = node;
    m_nCriteria |= ByNode;
}

void CVSearchAction::SetType(CRuntimeClass* type) {
    m_pType = type;
    m_nCriteria |= ByType;
}

void CVSearchAction::SetName(const CString& name) {
    m_strName = name;
    m_nCriteria |= ByName;
}

int CVSearchAction::Apply(CVNode* root) {
    Reset();
    if (!root) return 0;
    CVState* state = m_pState;
    const int depth = state->m_nDepth;
    state->m_bRecordPath = 1;
    try {
        root->Traverse(this, nullptr, 0);
    } catch (...) {
        // Leave the state ready for the next walk.
        state->m_bRecordPath = 0;
        state->m_nDepth = depth;
        throw;
    }
    state->m_bRecordPath = 0;
    return 1;
}

int CVSearchAction::MatchesSearchCriteria(CVNode* node) {
    if ((m_nCriteria & ByNode) && node == m_pNode) return 1;
    if (m_nCriteria & ByName) {
        const CString* name = node->GetName();
        if (name && *name == m_strName) return 1;
    }
    if ((m_nCriteria & ByType) && m_pType && node->IsKindOf(m_pType)) return 1;
    return 0;
}

void CVSearchAction::PreActOn(CVNode* node) {
    if (!MatchesSearchCriteria(node)) return;
    const CVPath& recorded = m_pState->GetPath(0);
    const int depth = m_pState->m_nDepth;
    if (depth < 0 || depth >= recorded.GetSize())
        throw CInvalidArgException("CVSearchAction::PreActOn(): no recorded path at depth " + std::to_string(depth));
    if (m_eInterest == First) m_bContinue = 0;

    CVPath* path = new CVPath;
    try {
        path->SetSize(depth + 1);
        for (int i = 0; i <= depth; ++i) (*path)[i] = recorded[i];
        // A group or switch has already recorded itself at depth.
        if (recorded[depth] != node) path->Add(node);
        m_PathList.Add(path);
    } catch (...) {
        delete path;
        throw;
    }
    ++m_nPathsFound;
}

void CVSearchAction::DeletePaths() {
    for (INT_PTR i = 0; i < m_PathList.GetSize(); ++i) delete m_PathList[i];
    m_PathList.RemoveAll();
    m_nPathsFound = 0;
}

void CVSearchAction::Reset() {
    CVAction::Reset();
    DeletePaths();
}
