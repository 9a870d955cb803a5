#pragma once
// An X11 window for window-device tests, mapped and ready for GL. Suites run
// in parallel on one Xvfb: the server refuses connections briefly while it
// resets after its last client leaves, and windows may overlap, so opening
// retries, pixels live in backing store and each process uses its own slot.
// The display stays open for the whole process: closing it unloads the GL
// driver, whose own small allocations then show up as leaks of an unknown
// module under the leak checker.
#include <gtest/gtest.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <thread>

#include "platform/WinGL.h"

class CVTestWindow {
public:
    CVTestWindow(int width, int height) {
        const char* name = std::getenv("DISPLAY");
        if (!name || !*name) {
            ADD_FAILURE() << "DISPLAY is not set: window tests need an X server (run under xvfb-run)";
            return;
        }
        m_pDisplay = SharedDisplay();
        if (!m_pDisplay) {
            ADD_FAILURE() << "cannot open X display " << name;
            return;
        }
        XSetWindowAttributes attrs{};
        attrs.backing_store = Always;
        const int slot = (int)(getpid() % 150);
        m_window = XCreateWindow(m_pDisplay, DefaultRootWindow(m_pDisplay), 100 * (slot % 10), 100 * (slot / 10),
                                 width, height, 0, CopyFromParent, InputOutput, CopyFromParent, CWBackingStore,
                                 &attrs);
        XSelectInput(m_pDisplay, m_window, StructureNotifyMask);
        XMapWindow(m_pDisplay, m_window);
        for (XEvent e;;) {  // pixels of an unmapped window are undefined
            XNextEvent(m_pDisplay, &e);
            if (e.type == MapNotify) break;
        }
        m_hDC = CreateWindowDC(m_pDisplay, m_window);
    }
    ~CVTestWindow() {
        if (m_hDC) ReleaseWindowDC(m_hDC);
        if (m_pDisplay) {
            XDestroyWindow(m_pDisplay, m_window);
            XSync(m_pDisplay, False);
        }
    }

    static Display* SharedDisplay() {
        static Display* display = nullptr;
        for (int attempt = 0; attempt < 100 && !display; ++attempt) {
            display = XOpenDisplay(nullptr);
            if (!display) std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        return display;
    }
    CVTestWindow(const CVTestWindow&) = delete;
    CVTestWindow& operator=(const CVTestWindow&) = delete;

    Display* GetDisplay() const { return m_pDisplay; }
    Window GetWindow() const { return m_window; }
    HDC GetDC() const { return m_hDC; }

private:
    Display* m_pDisplay = nullptr;
    Window m_window = 0;
    HDC m_hDC = nullptr;
};

// What the X server shows at (x, y) of a window, as 0xRRGGBB (0xDEADBEEF
// when the window cannot be read).
inline uint32_t CVShownPixel(Display* display, Window window, int x, int y) {
    XImage* image = XGetImage(display, window, x, y, 1, 1, AllPlanes, ZPixmap);
    if (!image) return 0xDEADBEEF;
    const uint32_t v = (uint32_t)(XGetPixel(image, 0, 0) & 0xFFFFFF);
    XDestroyImage(image);
    return v;
}
