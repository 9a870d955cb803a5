#include "render/CVBitmapDevice.h"

CVBitmapDevice::CVBitmapDevice(HDC hdc) : CVGLDevice(hdc) {
    PIXELFORMATDESCRIPTOR pfd;
    GetPFD(pfd);
    Init(pfd);
}

void CVBitmapDevice::GetPFD(PIXELFORMATDESCRIPTOR& pfd) {
    pfd = m_pfd;
    pfd.dwFlags |= PFD_DRAW_TO_BITMAP | PFD_SUPPORT_GDI;
}
