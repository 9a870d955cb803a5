// Frame time of two chart scenes through the library, each beside a raw
// OpenGL reference that draws the same triangles with the same GL features
// (lighting, colour material, depth test, perspective, normals, readback of
// the frame into the DIB) in the leanest way: one display list per scene.
// The "ratio" counter of a library case is its frame time over the
// reference's, measured in the same run. A second raw reference draws each
// object as its own transform group and shape would: attribute pushes and
// pops, matrix push, colour and ambient material per object, immediate-mode
// triangles. "floor" is the library's frame time over that one, i.e. what
// remains once the per-object GL state calls are paid for. A third one,
// "list_per_object", keeps each object's triangles in a display list but sets
// its colour and translation outside the list, which is the least any
// per-node traversal must do; on llvmpipe the colour change alone makes the
// next draw revalidate and re-upload the lighting state.
//   bars:    100 x 100 boxes, each its own colour, 800 x 600
//   spheres: 100 x 100 spheres (precision 12), each its own colour, 800 x 600
#include <benchmark/benchmark.h>

#include <GL/gl.h>
#include <GL/glu.h>

#include <chrono>
#include <cmath>
#include <cstring>
#include <map>
#include <string>

#include "cvscene.h"

namespace {

const int kWidth = 800, kHeight = 600, kGrid = 100;
const float kDistance = 150.0f;
std::map<std::string, double> g_reference;  // scene -> seconds per frame

// A memory DC with a 32-bit DIB: the reference DC for the library, the
// target of the raw program.
struct Dib : CSimpleDIB {
    Dib(int w, int h) { Create(w, h, nullptr); }
};

void Colour(int i, float rgb[3]) {
    rgb[0] = (float)(i % kGrid) / kGrid;
    rgb[1] = (float)(i / kGrid) / kGrid;
    rgb[2] = 0.5f;
}

float Position(int k) { return (k - kGrid / 2 + 0.5f) * 1.2f; }

// Wall seconds per frame over the benchmark's iterations.
template <class F>
double TimeFrames(benchmark::State& state, F&& frame) {
    auto start = std::chrono::steady_clock::now();
    for (auto _ : state) frame();
    std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
    return state.iterations() ? spent.count() / state.iterations() : 0.0;
}

// ---- library scenes -------------------------------------------------------

CVGroup* LibraryScene(bool spheres) {
    auto* root = new CVGroup;
    auto* camera = new CVPerspectiveCamera;
    camera->position.SetValue(0.0f, 0.0f, kDistance);
    camera->farDistance.SetValue(2.0f * kDistance);
    camera->children.Add(new CVLightModel);
    auto* light = new CVDirectionalLight;
    light->direction.SetValue(-0.3f, -0.4f, -1.0f);
    camera->children.Add(light);
    for (int i = 0; i < kGrid * kGrid; ++i) {
        float rgb[3];
        Colour(i, rgb);
        auto* material = new CVMaterial;
        material->diffuseColor.SetValue(rgb[0], rgb[1], rgb[2]);
        auto* appearance = new CVAppearance;
        appearance->material.SetValue(material);
        CVGeometry* g;
        if (spheres) {
            auto* s = new CVSphere;
            s->radius.SetValue(0.5f);
            g = s;
        } else {
            auto* b = new CVBox;
            b->size.SetValue(0.8f, 0.8f, 0.8f);
            g = b;
        }
        auto* shape = new CVShape;
        shape->geometry.SetValue(g);
        shape->appearance.SetValue(appearance);
        auto* t = new CVTransform;
        t->translation.SetValue(Position(i % kGrid), Position(i / kGrid), 0.0f);
        t->children.Add(shape);
        camera->children.Add(t);
    }
    root->children.Add(camera);
    return root;
}

void Library(benchmark::State& state, bool spheres) {
    CVGLRenderArea::SetInflateWorld(0);
    Dib ref(1, 1);
    CVRenderToDIBAction action(ref.GetDC());
    action.SetViewport(0, 0, kWidth, kHeight);
    action.SetClearColor(1.0f, 1.0f, 1.0f, 1.0f);
    CVGroup* root = LibraryScene(spheres);
    root->Ref();
    action.Apply(root);  // compiles cached lists
    const double perFrame = TimeFrames(state, [&] { action.Apply(root); });
    root->Unref();
    const char* name = spheres ? "spheres" : "bars";
    if (g_reference.count(name)) state.counters["ratio"] = perFrame / g_reference[name];
    const std::string perNode = std::string(name) + "/per_node";
    if (g_reference.count(perNode)) state.counters["floor"] = perFrame / g_reference[perNode];
    CVGLRenderArea::SetInflateWorld(1);
}

// ---- raw reference --------------------------------------------------------

void BoxFaces() {
    static const float n[6][3] = {{0, 1, 0}, {0, -1, 0}, {0, 0, 1}, {0, 0, -1}, {1, 0, 0}, {-1, 0, 0}};
    static const float v[6][4][3] = {
        {{-.4f, .4f, .4f}, {.4f, .4f, .4f}, {.4f, .4f, -.4f}, {-.4f, .4f, -.4f}},
        {{-.4f, -.4f, -.4f}, {.4f, -.4f, -.4f}, {.4f, -.4f, .4f}, {-.4f, -.4f, .4f}},
        {{-.4f, -.4f, .4f}, {.4f, -.4f, .4f}, {.4f, .4f, .4f}, {-.4f, .4f, .4f}},
        {{.4f, -.4f, -.4f}, {-.4f, -.4f, -.4f}, {-.4f, .4f, -.4f}, {.4f, .4f, -.4f}},
        {{.4f, -.4f, .4f}, {.4f, -.4f, -.4f}, {.4f, .4f, -.4f}, {.4f, .4f, .4f}},
        {{-.4f, -.4f, -.4f}, {-.4f, -.4f, .4f}, {-.4f, .4f, .4f}, {-.4f, .4f, -.4f}}};
    for (int f = 0; f < 6; ++f) {
        glNormal3fv(n[f]);
        for (int k = 0; k < 4; ++k) glVertex3fv(v[f][k]);
    }
}

// The same rings as the library's sphere of precision 12 (6 stacks).
void SphereStrips(float r) {
    const int slices = 12, stacks = 6;
    const double step = M_PI / stacks;
    for (int i = 0; i < stacks; ++i) {
        glBegin(GL_TRIANGLE_STRIP);
        for (int j = 0; j <= slices; ++j) {
            for (int ring = i + 1; ring >= i; --ring) {
                double a = M_PI / 2 + ring * step, b = M_PI / 2 + j * step;
                float x = (float)(r * std::cos(b) * std::cos(a)), y = (float)(r * std::sin(a)),
                      z = (float)(r * std::sin(b) * std::cos(a));
                glNormal3f(x, y, z);
                glVertex3f(x, y, z);
            }
        }
        glEnd();
    }
}

// One object as a group and shape issue it, drawn in immediate mode.
void PerNodeObject(int i, bool spheres, GLuint sphere) {
    float rgb[3];
    Colour(i, rgb);
    glPushAttrib(GL_ENABLE_BIT | GL_LIGHTING_BIT | GL_POLYGON_BIT);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glTranslatef(Position(i % kGrid), Position(i / kGrid), 0.0f);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
    glColor4f(rgb[0], rgb[1], rgb[2], 1.0f);
    const GLfloat ambient[4] = {rgb[0] * 0.8f, rgb[1] * 0.8f, rgb[2] * 0.8f, 1.0f};
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, ambient);
    glPushAttrib(GL_ENABLE_BIT);
    if (spheres) {
        glCallList(sphere);
    } else {
        glBegin(GL_QUADS);
        BoxFaces();
        glEnd();
    }
    glPopAttrib();
    glPopMatrix();
    glPopAttrib();
}

enum RawMode { kOneList, kPerNode, kListPerObject };

// One object's geometry from its own list, colour and place set outside it.
void ListObject(int i, GLuint list) {
    float rgb[3];
    Colour(i, rgb);
    glColor4f(rgb[0], rgb[1], rgb[2], 1.0f);
    glPushMatrix();
    glTranslatef(Position(i % kGrid), Position(i / kGrid), 0.0f);
    glCallList(list);
    glPopMatrix();
}

void Raw(benchmark::State& state, bool spheres, RawMode mode) {
    Dib dib(kWidth, kHeight);
    PIXELFORMATDESCRIPTOR pfd;
    std::memset(&pfd, 0, sizeof(pfd));
    pfd.nSize = sizeof(pfd);
    pfd.nVersion = 1;
    pfd.dwFlags = PFD_DRAW_TO_BITMAP | PFD_SUPPORT_OPENGL;
    pfd.cDepthBits = 32;
    int format = ChoosePixelFormat(dib.GetDC(), &pfd);
    SetPixelFormat(dib.GetDC(), format, &pfd);
    HGLRC rc = wglCreateContext(dib.GetDC());
    wglMakeCurrent(dib.GetDC(), rc);

    glViewport(0, 0, kWidth, kHeight);
    glMatrixMode(GL_PROJECTION);
    gluPerspective(45.0, (double)kWidth / kHeight, 1.0, 2.0 * kDistance);
    glMatrixMode(GL_MODELVIEW);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_CULL_FACE);
    glEnable(GL_NORMALIZE);
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glEnable(GL_COLOR_MATERIAL);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
    glClearColor(1.0f, 1.0f, 1.0f, 1.0f);
    glLoadIdentity();
    glTranslatef(0.0f, 0.0f, -kDistance);
    const GLfloat position[4] = {0.3f, 0.4f, 1.0f, 0.0f};
    glLightfv(GL_LIGHT0, GL_POSITION, position);

    GLuint sphere = glGenLists(3);
    GLuint scene = sphere + 1, box = sphere + 2;
    glNewList(sphere, GL_COMPILE);
    SphereStrips(0.5f);
    glEndList();
    glNewList(box, GL_COMPILE);
    glBegin(GL_QUADS);
    BoxFaces();
    glEnd();
    glEndList();
    glNewList(scene, GL_COMPILE);
    if (!spheres) glBegin(GL_QUADS);
    for (int i = 0; i < kGrid * kGrid; ++i) {
        float rgb[3];
        Colour(i, rgb);
        glColor3fv(rgb);
        float x = Position(i % kGrid), y = Position(i / kGrid);
        if (spheres) {
            glTranslatef(x, y, 0.0f);
            glCallList(sphere);
            glTranslatef(-x, -y, 0.0f);
        } else {
            glEnd();
            glPushMatrix();
            glTranslatef(x, y, 0.0f);
            glBegin(GL_QUADS);
            BoxFaces();
            glEnd();
            glPopMatrix();
            glBegin(GL_QUADS);
        }
    }
    if (!spheres) glEnd();
    glEndList();

    std::string name = spheres ? "spheres" : "bars";
    if (mode == kPerNode) name += "/per_node";
    if (mode == kListPerObject) name += "/list_per_object";
    g_reference[name] = TimeFrames(state, [&] {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        if (mode == kPerNode) {
            glPushMatrix();
            for (int i = 0; i < kGrid * kGrid; ++i) PerNodeObject(i, spheres, sphere);
            glPopMatrix();
        } else if (mode == kListPerObject) {
            for (int i = 0; i < kGrid * kGrid; ++i) ListObject(i, spheres ? sphere : box);
        } else {
            glCallList(scene);
        }
        glFinish();
        SwapBuffers(dib.GetDC());  // the frame into the DIB, as the library's action does
    });
    glDeleteLists(sphere, 3);
    wglMakeCurrent(nullptr, nullptr);
    wglDeleteContext(rc);
}

}  // namespace

BENCHMARK_CAPTURE(Raw, bars, false, kOneList)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_CAPTURE(Raw, bars_list_per_object, false, kListPerObject)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_CAPTURE(Raw, bars_per_node, false, kPerNode)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_CAPTURE(Library, bars, false)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_CAPTURE(Raw, spheres, true, kOneList)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_CAPTURE(Raw, spheres_list_per_object, true, kListPerObject)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_CAPTURE(Raw, spheres_per_node, true, kPerNode)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_CAPTURE(Library, spheres, true)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_MAIN();
