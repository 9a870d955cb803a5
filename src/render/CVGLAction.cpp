#include "render/CVGLAction.h"
#include "render/CVAttribStack.h"

#include <GL/gl.h>

#include "render/CVGLRenderArea.h"

IMPLEMENT_DYNAMIC(CVGLAction, CVAction)

namespace {
// Enable, lighting and polygon bits: what shapes and property nodes change
// below a group.
const GLbitfield kStateAttribs = GL_ENABLE_BIT | GL_LIGHTING_BIT | GL_POLYGON_BIT;
static_assert(kStateAttribs == 0x2048, "attribute mask of a state push");
}  // namespace

CVGLAction::CVGLAction(CVGLRenderArea* area) { SetRenderArea(area); }

CVGLAction::CVGLAction(CVGLDevice* device) {
    CVGLRenderArea* area = new CVGLRenderArea(device);
    SetRenderArea(area);
}

CVGLAction::~CVGLAction() {
    if (m_pRenderArea) m_pRenderArea->Unref();
}

void CVGLAction::PushState() {
    CVAttribStack::Push(kStateAttribs);
    if (m_pState->m_bRecordPath) ++m_pState->m_nDepth;
}

void CVGLAction::PopState() {
    CVAttribStack::Pop();
    if (m_pState->m_bRecordPath) --m_pState->m_nDepth;
}

void CVGLAction::PushModelView() {
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
}

void CVGLAction::PopModelView() {
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
}

void CVGLAction::PushProjection() {
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
}

void CVGLAction::PopProjection() {
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
}

void CVGLAction::SetRenderArea(CVGLRenderArea* area) {
    if (area) area->Ref();
    if (m_pRenderArea) m_pRenderArea->Unref();
    m_pRenderArea = area;
}

CVGLRenderArea* CVGLAction::GetRenderArea() const { return m_pRenderArea; }
