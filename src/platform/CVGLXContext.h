#pragma once
// A GLX context for window DCs. Contexts on one X display share display lists:
// the first one made on a display also makes a hidden root context, every
// context is created sharing with it, and the root goes with the last context
// of that display (so nothing outlives a display the host may close).
#include "CVGLContext.h"

struct _XDisplay;
struct __GLXcontextRec;

class CVGLXContext : public CVGLContext {
public:
    // Null, with the last error set, when the DC is not a window DC with a
    // pixel format or when GLX refuses the context.
    static std::unique_ptr<CVGLXContext> Create(CVGdiDC& dc);
    ~CVGLXContext() override;

    Kind GetKind() const override;
    int SharesWith(const CVGLContext& other) const override;
    int GetDrawableSize(int& width, int& height) const override;

protected:
    int Bind(CVGdiDC& dc) override;
    void Unbind() override;

private:
    CVGLXContext(int pixelFormat, _XDisplay* display, __GLXcontextRec* context)
        : CVGLContext(pixelFormat), m_pDisplay(display), m_context(context) {}
    _XDisplay* m_pDisplay;
    __GLXcontextRec* m_context;
    unsigned long m_drawable = 0;  // window it is current on
};
