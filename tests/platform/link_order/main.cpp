// Off-screen rendering from a program that loads libGL ahead of the library,
// as hosts using GLX or a toolkit do. Exits 0 when the frame lands in the DIB.
#include <cvscene/cvscene.h>

#include <GL/gl.h>
#include <link.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {
// Position of the first loaded object whose name contains part, or -1.
int LoadIndex(const char* part) {
    struct Search {
        const char* part;
        int index = 0;
        int found = -1;
    } s{part};
    dl_iterate_phdr(
        [](dl_phdr_info* info, size_t, void* data) {
            auto* s = static_cast<Search*>(data);
            if (s->found < 0 && info->dlpi_name && std::strstr(info->dlpi_name, s->part)) s->found = s->index;
            ++s->index;
            return 0;
        },
        &s);
    return s.found;
}

int Fail(const char* what) {
    std::fprintf(stderr, "link_order: %s\n", what);
    return 1;
}
}  // namespace

int main() {
    int gl = LoadIndex("libGL.so"), lib = LoadIndex("libcvscene.so");
    if (gl < 0 || lib < 0 || gl > lib) return Fail("libGL is not loaded ahead of libcvscene");

    // Through the public API only, as a host does: a DIB, a device and an area
    // whose context the area makes current.
    CSimpleDIB dib;
    dib.Create(64, 64, nullptr);
    CVBitmapDevice device(dib.GetDC());
    auto* area = new CVGLRenderArea(&device);
    area->Ref();
    area->MakeCurrent();
    if (!glGetString(GL_RENDERER)) return Fail("GL calls reach no driver");

    glViewport(0, 0, 64, 64);
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glDisable(GL_LIGHTING);  // the area starts lit and depth-tested
    glDisable(GL_DEPTH_TEST);
    glColor3f(1, 0, 0);
    glRectf(-1, -1, 0, 1);  // left half
    area->SwapBuffers();

    const BYTE* p = static_cast<const BYTE*>(dib.GetBits());
    const BYTE* left = p + (32 * 64 + 8) * 4;    // row 32 from the bottom, column 8
    const BYTE* right = p + (32 * 64 + 56) * 4;  // column 56
    bool ok = left[2] == 255 && left[0] == 0 && right[0] == 255 && right[2] == 0;
    area->Unref();
    if (!ok) return Fail("the frame did not reach the DIB");
    std::printf("link_order: rendered with libGL loaded ahead of the library\n");
    return 0;
}
