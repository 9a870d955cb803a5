#pragma once
// Device over a window DC (see CreateWindowDC). Chooses a window format,
// double-buffered on request; GetPFD deliberately reports PFD_DRAW_TO_WINDOW
// without the double-buffer bit, even for a double-buffered device.
#include "../platform/CVExport.h"
#include "../platform/WinUser.h"
#include "CVGLDevice.h"

class CVSCENE_API CVWindowDevice : public CVGLDevice {
public:
    CVWindowDevice(HDC hdc, int doubleBuffer);

    void GetPFD(PIXELFORMATDESCRIPTOR& pfd) override;
    int IsDoubleBuffer() const { return m_bDoubleBuffer; }

    // For the host view's window-creation hook: clears style bit 0x80 and sets
    // WS_CLIPCHILDREN | WS_CLIPSIBLINGS.
    static void PreCreateWindow(CREATESTRUCTW& cs);

private:
    int m_bDoubleBuffer;
};
