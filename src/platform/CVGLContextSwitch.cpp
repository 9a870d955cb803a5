#include "platform/CVGLContextSwitch.h"

#include "platform/CVGLContext.h"
#include "platform/WinGL.h"

CVGLContextSwitch::CVGLContextSwitch(uintptr_t hglrc, uintptr_t hdc)
    : m_hPrevContext(CVGLContext::GetCurrentHandle()), m_hPrevDC(CVGLContext::GetCurrentDC()) {
    if (m_hPrevContext == hglrc && m_hPrevDC == hdc) {
        m_bActive = 1;
        return;
    }
    // Our failures must not show through GetLastError to the host.
    DWORD error = GetLastError();
    m_bSwitched = 1;
    m_bActive = CVGLContext::MakeCurrent(hdc, hglrc, 1);
    SetLastError(error);
}

CVGLContextSwitch::~CVGLContextSwitch() {
    if (!m_bSwitched) return;
    DWORD error = GetLastError();
    CVGLContext::MakeCurrent(m_hPrevDC, m_hPrevContext, 1);
    SetLastError(error);
}
