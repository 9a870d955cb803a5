#include "platform/CVMesaQuirks.h"

#include <GL/gl.h>

#include <cstring>

int CVMesaQuirks::NativeAccumIsSRGB() {
    // Every Mesa release seen so far does it; no fixed version is known.
    const char* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    return version && std::strstr(version, "Mesa") ? 1 : 0;
}
