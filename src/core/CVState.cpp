#include "core/CVState.h"

IMPLEMENT_DYNAMIC(CVState, CVBase)

CVState::CVState() { m_Paths.SetSize(1); }

CVNodePath& CVState::GetPath(int i) { return m_Paths[i]; }

void CVState::RecordNode(CVNode* node) { m_Paths[0].SetAtGrow(m_nDepth, node); }
