#pragma once
// Makes a context current on a DC for the length of a scope and puts back
// whatever this thread had current before (possibly a context of the other
// kind, or none). Used for the pixel exchange between a DC's bitmap and GL
// when a GDI call arrives while the DC's context is not current.
#include "WinTypes.h"

class CVGLContextSwitch {
public:
    CVGLContextSwitch(uintptr_t hglrc, uintptr_t hdc);
    ~CVGLContextSwitch();
    CVGLContextSwitch(const CVGLContextSwitch&) = delete;
    CVGLContextSwitch& operator=(const CVGLContextSwitch&) = delete;

    // Nonzero when hglrc is current on hdc inside the scope.
    int IsActive() const { return m_bActive; }

private:
    uintptr_t m_hPrevContext;
    uintptr_t m_hPrevDC;
    int m_bSwitched = 0;
    int m_bActive = 0;
};
