#pragma once
// Owner of a device context's pixel format. Abstract: CVWindowDevice targets a
// window, CVBitmapDevice a memory DC with a DIB section selected. The HDC is
// the caller's and must outlive every render area made on the device.
#include "../platform/CVExport.h"
#include "../platform/WinGL.h"

class CVSCENE_API CVGLDevice {
public:
    explicit CVGLDevice(HDC hdc);
    CVGLDevice(const CVGLDevice& other) = default;
    CVGLDevice& operator=(const CVGLDevice& other) = default;
    virtual ~CVGLDevice() = default;

    // The descriptor a render area records as requested.
    virtual void GetPFD(PIXELFORMATDESCRIPTOR& pfd) = 0;

    HDC GetHdc() const { return m_hDC; }
    // The descriptor of the format really chosen for the DC.
    void GetChosenPFD(PIXELFORMATDESCRIPTOR& pfd) const { pfd = m_pfdChosen; }

    // Template every device copies and adds its own flags to: draw to bitmap,
    // support OpenGL, RGBA, 32-bit depth, nothing else requested.
    static const PIXELFORMATDESCRIPTOR m_pfd;

protected:
    // Choose, describe and set the format; failures are swallowed.
    void Init(const PIXELFORMATDESCRIPTOR& pfd);
    // Same three calls; returns TRUE even when they fail.
    BOOL bSetupPixelFormat(const PIXELFORMATDESCRIPTOR& pfd);

    HDC m_hDC;
    int m_nReserved = 0;  // carried by copies, never set
    PIXELFORMATDESCRIPTOR m_pfdChosen;
};
