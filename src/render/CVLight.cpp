#include "render/CVLight.h"

#include <GL/gl.h>

IMPLEMENT_DYNAMIC(CVLight, CVChild)

CVLight::CVLight() {
    ambientIntensity.SetValue(0.0f);
    color.SetValue(1.0f, 1.0f, 1.0f);
    intensity.SetValue(1.0f);
    on.SetValue(1);
}

int CVLight::FindUnusedGLLight(unsigned int& light, int maxLights) {
    if (maxLights < 1) return 0;
    for (int i = 0; i < maxLights; ++i) {
        if (!glIsEnabled(GL_LIGHT0 + i)) {
            light = GL_LIGHT0 + i;
            return 1;
        }
    }
    return 0;
}
