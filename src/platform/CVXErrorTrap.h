#pragma once
// Catches the X errors of a few requests instead of letting Xlib's default
// handler end the process (a bad window id, a refused GLX context). The
// handler is process-wide while a trap is alive; traps may nest but belong to
// one thread at a time.
struct _XDisplay;

class CVXErrorTrap {
public:
    explicit CVXErrorTrap(_XDisplay* display);
    ~CVXErrorTrap();
    CVXErrorTrap(const CVXErrorTrap&) = delete;
    CVXErrorTrap& operator=(const CVXErrorTrap&) = delete;

    // Waits for the server to answer what was sent so far; nonzero when any
    // request since the trap was set failed.
    int Failed();

private:
    _XDisplay* m_pDisplay;
    int m_nSavedErrors;
};
