#pragma once
// Failures of the windowing and GL layers are not propagated: the system
// message for the last error is formatted and thrown away, and the caller
// goes on with whatever state resulted.
class CVGLErrors {
public:
    // Formats the last error's message, then discards it. Returns the code.
    static unsigned int DiscardLastError();
};
