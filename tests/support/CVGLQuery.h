#pragma once
// One-value read-backs of GL state.
#include <GL/gl.h>

#include "math/CVMatrix.h"

namespace cvtest {

inline GLint GetInt(GLenum what) {
    GLint v = 0;
    glGetIntegerv(what, &v);
    return v;
}

inline CVMatrix GetMatrix(GLenum which) {
    GLfloat m[16];
    glGetFloatv(which, m);
    return CVMatrix(m);
}

}  // namespace cvtest
