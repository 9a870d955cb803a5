#include "render/CVGLDevice.h"

#include <cstring>

#include "render/CVGLErrors.h"

const PIXELFORMATDESCRIPTOR CVGLDevice::m_pfd = {
    40, 1, PFD_DRAW_TO_BITMAP | PFD_SUPPORT_OPENGL, PFD_TYPE_RGBA,
    0, 0, 0, 0, 0, 0, 0, 0, 0,  // colour and alpha bits and shifts
    0, 0, 0, 0, 0,              // accumulation bits
    32, 0, 0,                   // depth, stencil, aux buffers
    PFD_MAIN_PLANE, 0, 0, 0, 0};

CVGLDevice::CVGLDevice(HDC hdc) : m_hDC(hdc) { std::memset(&m_pfdChosen, 0, sizeof(m_pfdChosen)); }

void CVGLDevice::Init(const PIXELFORMATDESCRIPTOR& pfd) { bSetupPixelFormat(pfd); }

BOOL CVGLDevice::bSetupPixelFormat(const PIXELFORMATDESCRIPTOR& pfd) {
    int index = ChoosePixelFormat(m_hDC, &pfd);
    if (index == 0) CVGLErrors::DiscardLastError();
    if (DescribePixelFormat(m_hDC, index, sizeof(PIXELFORMATDESCRIPTOR), &m_pfdChosen) == 0)
        CVGLErrors::DiscardLastError();
    if (!SetPixelFormat(m_hDC, index, &m_pfdChosen)) CVGLErrors::DiscardLastError();
    return TRUE;
}
