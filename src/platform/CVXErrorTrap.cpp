#include "platform/CVXErrorTrap.h"

#include <X11/Xlib.h>

#include <vector>

namespace {
int g_nErrors = 0;
std::vector<XErrorHandler> g_previous;  // one per live trap, innermost last

int CountError(Display*, XErrorEvent*) {
    ++g_nErrors;
    return 0;
}
}  // namespace

CVXErrorTrap::CVXErrorTrap(_XDisplay* display) : m_pDisplay(display) {
    if (m_pDisplay) XSync(m_pDisplay, False);  // errors of earlier requests are not ours
    m_nSavedErrors = g_nErrors;
    g_previous.push_back(XSetErrorHandler(&CountError));
}

CVXErrorTrap::~CVXErrorTrap() {
    if (m_pDisplay) XSync(m_pDisplay, False);
    XSetErrorHandler(g_previous.back());
    g_previous.pop_back();
    g_nErrors = m_nSavedErrors;
}

int CVXErrorTrap::Failed() {
    if (m_pDisplay) XSync(m_pDisplay, False);
    return g_nErrors != m_nSavedErrors;
}
