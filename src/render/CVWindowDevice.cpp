#include "render/CVWindowDevice.h"

CVWindowDevice::CVWindowDevice(HDC hdc, int doubleBuffer) : CVGLDevice(hdc), m_bDoubleBuffer(doubleBuffer) {
    PIXELFORMATDESCRIPTOR pfd = m_pfd;
    pfd.dwFlags |= PFD_DRAW_TO_WINDOW;
    if (doubleBuffer) pfd.dwFlags |= PFD_DOUBLEBUFFER;
    Init(pfd);
}

void CVWindowDevice::GetPFD(PIXELFORMATDESCRIPTOR& pfd) {
    pfd = m_pfd;
    pfd.dwFlags |= PFD_DRAW_TO_WINDOW;
}

void CVWindowDevice::PreCreateWindow(CREATESTRUCTW& cs) {
    cs.style &= ~0x80L;
    cs.style |= WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
}
