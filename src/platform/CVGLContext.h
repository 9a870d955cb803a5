#pragma once
// A GL rendering context (HGLRC) and the record of which context is current
// on which thread. Two kinds: EGL contexts for memory DCs, GLX contexts for
// window DCs. EGL and GLX share one dispatch per thread, so switching from a
// context of one kind to one of the other releases the first before binding
// the second; the record here is what tells which API holds the thread.
#include "CVGdiObject.h"

#include <memory>
#include <thread>

class CVGdiDC;
class CVAccumBuffer;

class CVGLContext : public CVGdiObject {
public:
    enum Kind { kEGL, kGLX };

    ~CVGLContext() override;
    DWORD GetObjectType() const override;  // 0: not a GDI object

    virtual Kind GetKind() const = 0;
    int GetPixelFormat() const { return m_nPixelFormat; }
    // Contexts of one kind share display lists (same share group).
    virtual int SharesWith(const CVGLContext& other) const = 0;
    // Size of the drawable the context is current on.
    virtual int GetDrawableSize(int& width, int& height) const = 0;
    // The software accumulation buffer, made on first use.
    CVAccumBuffer& GetAccumBuffer();

    // wglMakeCurrent: binds hglrc to hdc on this thread (0 releases). Fails
    // (releasing what was current, as WGL does) when either handle is bad, the
    // DC's pixel format is not the context's, or the context is current on
    // another thread. internal: a pixel transfer of ours, see CVGdiDC.
    static int MakeCurrent(uintptr_t hdc, uintptr_t hglrc, int internal = 0);
    static void ReleaseCurrent();
    // This thread's current context and DC (0 when none).
    static uintptr_t GetCurrentHandle();
    static uintptr_t GetCurrentDC();
    static CVGLContext* GetCurrent();
    // The handle this thread bound last, without the handle-table lookup:
    // cheap enough for per-node paths. Valid because deleting a context that
    // is current here releases it first.
    static uintptr_t GetBoundHandle();
    // Current on some thread other than the calling one.
    int IsCurrentElsewhere() const;

protected:
    explicit CVGLContext(int pixelFormat);
    // Make current on dc (checked to be of the right kind) / release from
    // this thread.
    virtual int Bind(CVGdiDC& dc) = 0;
    virtual void Unbind() = 0;

private:
    int m_nPixelFormat;
    int m_bCurrent = 0;
    std::thread::id m_owner;
    std::unique_ptr<CVAccumBuffer> m_pAccum;
};
