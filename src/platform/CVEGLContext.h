#pragma once
// An EGL context for memory DCs, in the process-wide EGL share group (see
// CVEGLDisplay). It draws into the pbuffer of whichever memory DC it is
// current on.
#include "CVGLContext.h"

class CVEGLContext : public CVGLContext {
public:
    // Null, with the last error set, when the DC is not a memory DC with a
    // pixel format matching its bitmap, or when EGL refuses the context or a
    // pbuffer of the bitmap's size.
    static std::unique_ptr<CVEGLContext> Create(CVGdiDC& dc);
    ~CVEGLContext() override;

    Kind GetKind() const override;
    int SharesWith(const CVGLContext& other) const override;
    int GetDrawableSize(int& width, int& height) const override;

protected:
    int Bind(CVGdiDC& dc) override;
    void Unbind() override;

private:
    CVEGLContext(int pixelFormat, void* context) : CVGLContext(pixelFormat), m_context(context) {}
    void* m_context;
};
