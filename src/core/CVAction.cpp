#include "core/CVAction.h"

IMPLEMENT_DYNAMIC(CVAction, CVBase)

CVAction::CVAction() : m_pState(new CVState()) {}

CVAction::~CVAction() { delete m_pState; }

void CVAction::PreActOn(CVNode*) {}
void CVAction::PostActOn(CVNode*) {}
void CVAction::PushState() { ++m_pState->m_nDepth; }
void CVAction::PopState() { --m_pState->m_nDepth; }
void CVAction::PushLights() {}
void CVAction::PopLights() {}
void CVAction::PushModelView() {}
void CVAction::PopModelView() {}
void CVAction::PushProjection() {}
void CVAction::PopProjection() {}

void CVAction::Reset() {
    m_nWork0 = 0;
    m_nWork1 = -1;
    m_bContinue = 1;
}
