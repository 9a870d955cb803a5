#pragma once
// The WGL subset. A memory DC with a 32- or 16-bit DIB section selected gets a
// headless EGL context (pbuffer of the DIB's size, 8-8-8-8 or 5-6-5 colour,
// 32-bit depth request); a window DC (made from an X11 Display and Window)
// gets a GLX context. Contexts of one kind share display lists with each
// other. Contexts without accumulation bits get a software accumulation
// buffer through CVAccum.
//
// Pixel formats. A memory DC's formats are the EGL configs that can back it
// (8-8-8-8 and 5-6-5 pbuffer configs, no multisampling); a window DC's are the
// GLX configs for windows of its depth. ChoosePixelFormat picks, among those
// matching the selected bitmap's layout (memory DC) or the double-buffer flag
// (window DC; PFD_DRAW_TO_* flags are not consulted), the format with the
// requested depth or the nearest above it, else the deepest; then the fewest
// surplus stencil, accumulation and alpha bits. DescribePixelFormat reports
// what a context in that format really has: bitmap formats are
// PFD_DRAW_TO_BITMAP | PFD_SUPPORT_GDI | PFD_SUPPORT_OPENGL with the DIB's
// channel shifts and no accumulation bits. SetPixelFormat works once per DC
// and refuses a bitmap format that does not match the selected bitmap;
// wglCreateContext needs it.
//
// Contexts. wglMakeCurrent releases whatever this thread had current first,
// so EGL and GLX contexts can take turns; on failure nothing is current, as
// in WGL. Sharing: every EGL context is created in one process-wide share
// group (a hidden root context made with the first one), and every GLX
// context in one group per X display (a hidden root that goes with the
// display's last context). wglShareLists therefore has nothing to do; it
// returns TRUE for two contexts of one group and FALSE, with
// ERROR_INVALID_OPERATION, across kinds or displays.
//
// Memory DCs. GL draws into a pbuffer owned by the DC and made for the
// selected bitmap (a new one, starting from the bitmap's pixels, when another
// bitmap is selected). GDI calls exchange only the rectangles they touch with
// it; SwapBuffers and GdiFlush bring the whole frame into the DIB (see
// CVGdiDC.h for the rules). Deleting the context drops the pbuffer; the DIB
// keeps what was last brought into it.
#include "CVExport.h"
#include "WinGDI.h"

struct HGLRC__;
typedef HGLRC__* HGLRC;

struct PIXELFORMATDESCRIPTOR {
    WORD nSize;
    WORD nVersion;
    DWORD dwFlags;
    BYTE iPixelType;
    BYTE cColorBits;
    BYTE cRedBits;
    BYTE cRedShift;
    BYTE cGreenBits;
    BYTE cGreenShift;
    BYTE cBlueBits;
    BYTE cBlueShift;
    BYTE cAlphaBits;
    BYTE cAlphaShift;
    BYTE cAccumBits;
    BYTE cAccumRedBits;
    BYTE cAccumGreenBits;
    BYTE cAccumBlueBits;
    BYTE cAccumAlphaBits;
    BYTE cDepthBits;
    BYTE cStencilBits;
    BYTE cAuxBuffers;
    BYTE iLayerType;
    BYTE bReserved;
    DWORD dwLayerMask;
    DWORD dwVisibleMask;
    DWORD dwDamageMask;
};
static_assert(sizeof(PIXELFORMATDESCRIPTOR) == 40, "PIXELFORMATDESCRIPTOR is 40 bytes");

#define PFD_DOUBLEBUFFER 0x00000001
#define PFD_STEREO 0x00000002
#define PFD_DRAW_TO_WINDOW 0x00000004
#define PFD_DRAW_TO_BITMAP 0x00000008
#define PFD_SUPPORT_GDI 0x00000010
#define PFD_SUPPORT_OPENGL 0x00000020
#define PFD_GENERIC_FORMAT 0x00000040
#define PFD_NEED_PALETTE 0x00000080
#define PFD_NEED_SYSTEM_PALETTE 0x00000100
#define PFD_TYPE_RGBA 0
#define PFD_TYPE_COLORINDEX 1
#define PFD_MAIN_PLANE 0
#define PFD_DEPTH_DONTCARE 0x20000000
#define PFD_DOUBLEBUFFER_DONTCARE 0x40000000

#ifdef CVSCENE_INTERNAL
int ChoosePixelFormat(HDC hdc, const PIXELFORMATDESCRIPTOR* pfd);
int DescribePixelFormat(HDC hdc, int format, UINT size, PIXELFORMATDESCRIPTOR* pfd);
BOOL SetPixelFormat(HDC hdc, int format, const PIXELFORMATDESCRIPTOR* pfd);
int GetPixelFormat(HDC hdc);
HGLRC wglCreateContext(HDC hdc);
BOOL wglMakeCurrent(HDC hdc, HGLRC context);
BOOL wglDeleteContext(HGLRC context);
BOOL wglShareLists(HGLRC first, HGLRC second);
HGLRC wglGetCurrentContext();
HDC wglGetCurrentDC();
// Memory DC: glFinish and GL's frame into the DIB. Window DC: glXSwapBuffers.
BOOL SwapBuffers(HDC hdc);
#endif

// A window DC over an X11 window, for hosts with their own X11 or toolkit
// window; null for a null display or a window the server does not know. The
// display and window stay the host's and must outlive the DC and its GLX
// contexts; ReleaseWindowDC frees the DC.
struct _XDisplay;
CVSCENE_API HDC CreateWindowDC(_XDisplay* display, unsigned long window);
CVSCENE_API void ReleaseWindowDC(HDC hdc);

#ifdef CVSCENE_INTERNAL
// Error reporting as the system does it: the last error code of this thread.
// Failing GDI and WGL calls set one of the codes below.
DWORD GetLastError();
void SetLastError(DWORD code);
#endif

#define ERROR_SUCCESS 0
#define ERROR_INVALID_HANDLE 6
#define ERROR_NOT_ENOUGH_MEMORY 8
#define ERROR_NOT_SUPPORTED 50
#define ERROR_INVALID_PARAMETER 87
#define ERROR_BUSY 170
#define ERROR_NO_SYSTEM_RESOURCES 1450
#define ERROR_INVALID_PIXEL_FORMAT 2000
#define ERROR_INVALID_OPERATION 4317
