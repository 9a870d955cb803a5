// Frame time of three chart scenes through the library, each beside a raw
// OpenGL reference that draws the same triangles with the same GL features
// (lighting, colour material, depth test, blending where the scene is
// translucent, perspective, normals, readback of the frame into the DIB) in
// the leanest way: one display list per scene.
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
// With CVSCENE_BENCH_PNG=<folder> set, each library case saves its last frame
// as <folder>/<scene>.png, so that two builds can be compared pixel by pixel.
//   bars:    100 x 100 boxes, each its own colour, 800 x 600
//   spheres: 100 x 100 spheres (precision 12), each its own colour, 800 x 600
//   glass:   100 x 100 x 2 translucent boxes (alpha 0.5), two layers 1.25 apart
//            in z with each box's depth jittered, arriving out of depth
//            order, 800 x 600. The library sorts them back to front at the
//            end of the frame; the references draw them already sorted.
#include <benchmark/benchmark.h>

#include <GL/gl.h>
#include <GL/glu.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <vector>

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

enum Scene { kBars, kSpheres, kGlass };
const char* const kSceneName[] = {"bars", "spheres", "glass"};
const float kGlassAlpha = 0.5f;

int ObjectCount(Scene scene) { return scene == kGlass ? 2 * kGrid * kGrid : kGrid * kGrid; }

float Position(int k) { return (k - kGrid / 2 + 0.5f) * 1.2f; }

// Where object i of a scene stands and its colour. Glass objects come in
// pairs per grid cell, front layer first; depths are multiples of 1/128 so
// that eye-space depths are exact.
struct Object {
    float x, y, z;
    float rgb[3];
};

Object Place(Scene scene, int i) {
    const int cell = scene == kGlass ? i / 2 : i;
    Object o;
    o.x = Position(cell % kGrid);
    o.y = Position(cell / kGrid);
    o.z = scene == kGlass ? -1.25f * (i % 2) + ((i * 37) % 64) / 128.0f : 0.0f;
    o.rgb[0] = (float)(cell % kGrid) / kGrid;
    o.rgb[1] = (float)(cell / kGrid) / kGrid;
    o.rgb[2] = 0.5f;
    return o;
}

// Back to front for glass (ties in arrival order), arrival order otherwise.
std::vector<Object> DrawOrder(Scene scene) {
    std::vector<Object> objects;
    for (int i = 0; i < ObjectCount(scene); ++i) objects.push_back(Place(scene, i));
    if (scene == kGlass)
        std::stable_sort(objects.begin(), objects.end(), [](const Object& a, const Object& b) { return a.z < b.z; });
    return objects;
}

// Wall seconds per frame over the benchmark's iterations. Out of line so that
// callgrind can count the timed frames alone: --toggle-collect='*TimeFrames*'.
template <class F>
__attribute__((noinline)) double TimeFrames(benchmark::State& state, F&& frame) {
    auto start = std::chrono::steady_clock::now();
    for (auto _ : state) frame();
    std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
    return state.iterations() ? spent.count() / state.iterations() : 0.0;
}

// ---- library scenes -------------------------------------------------------

CVGroup* LibraryScene(Scene scene) {
    auto* root = new CVGroup;
    auto* camera = new CVPerspectiveCamera;
    camera->position.SetValue(0.0f, 0.0f, kDistance);
    camera->farDistance.SetValue(2.0f * kDistance);
    camera->children.Add(new CVLightModel);
    auto* light = new CVDirectionalLight;
    light->direction.SetValue(-0.3f, -0.4f, -1.0f);
    camera->children.Add(light);
    for (int i = 0; i < ObjectCount(scene); ++i) {
        const Object o = Place(scene, i);
        auto* material = new CVMaterial;
        material->diffuseColor.SetValue(o.rgb[0], o.rgb[1], o.rgb[2]);
        if (scene == kGlass) material->transparency.SetValue(1.0f - kGlassAlpha);
        auto* appearance = new CVAppearance;
        appearance->material.SetValue(material);
        CVGeometry* g;
        if (scene == kSpheres) {
            auto* s = new CVSphere;
            s->radius.SetValue(0.5f);
            g = s;
        } else {
            auto* b = new CVBox;
            b->size.SetValue(0.8f, 0.8f, 0.8f);
            b->SetTransparentFlag(scene == kGlass);
            g = b;
        }
        auto* shape = new CVShape;
        shape->geometry.SetValue(g);
        shape->appearance.SetValue(appearance);
        auto* t = new CVTransform;
        t->translation.SetValue(o.x, o.y, o.z);
        t->children.Add(shape);
        camera->children.Add(t);
    }
    root->children.Add(camera);
    return root;
}

void Library(benchmark::State& state, Scene scene) {
    CVGLRenderArea::SetInflateWorld(0);
    Dib ref(1, 1);
    CVRenderToDIBAction action(ref.GetDC());
    action.SetViewport(0, 0, kWidth, kHeight);
    action.SetClearColor(1.0f, 1.0f, 1.0f, 1.0f);
    CVGroup* root = LibraryScene(scene);
    root->Ref();
    action.Apply(root);  // compiles cached lists
    const double perFrame = TimeFrames(state, [&] { action.Apply(root); });
    root->Unref();
    const std::string name = kSceneName[scene];
    if (const char* folder = std::getenv("CVSCENE_BENCH_PNG"))
        action.SaveToDIBFile(CString((std::string(folder) + "/" + name + ".png").c_str()));
    if (g_reference.count(name)) state.counters["ratio"] = perFrame / g_reference[name];
    const std::string perNode = name + "/per_node";
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
void PerNodeObject(const Object& o, Scene scene, GLuint sphere) {
    glPushAttrib(GL_ENABLE_BIT | GL_LIGHTING_BIT | GL_POLYGON_BIT);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glTranslatef(o.x, o.y, o.z);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
    const float alpha = scene == kGlass ? kGlassAlpha : 1.0f;
    glColor4f(o.rgb[0], o.rgb[1], o.rgb[2], alpha);
    const GLfloat ambient[4] = {o.rgb[0] * 0.8f, o.rgb[1] * 0.8f, o.rgb[2] * 0.8f, alpha};
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, ambient);
    glPushAttrib(GL_ENABLE_BIT);
    if (scene == kSpheres) {
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
void ListObject(const Object& o, Scene scene, GLuint list) {
    glColor4f(o.rgb[0], o.rgb[1], o.rgb[2], scene == kGlass ? kGlassAlpha : 1.0f);
    glPushMatrix();
    glTranslatef(o.x, o.y, o.z);
    glCallList(list);
    glPopMatrix();
}

void Raw(benchmark::State& state, Scene scene, RawMode mode) {
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
    if (scene == kGlass) {
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    }
    const bool spheres = scene == kSpheres;
    const std::vector<Object> objects = DrawOrder(scene);

    GLuint sphere = glGenLists(3);
    GLuint list = sphere + 1, box = sphere + 2;
    glNewList(sphere, GL_COMPILE);
    SphereStrips(0.5f);
    glEndList();
    glNewList(box, GL_COMPILE);
    glBegin(GL_QUADS);
    BoxFaces();
    glEnd();
    glEndList();
    glNewList(list, GL_COMPILE);
    if (!spheres) glBegin(GL_QUADS);
    for (const Object& o : objects) {
        glColor4f(o.rgb[0], o.rgb[1], o.rgb[2], scene == kGlass ? kGlassAlpha : 1.0f);
        if (spheres) {
            glTranslatef(o.x, o.y, o.z);
            glCallList(sphere);
            glTranslatef(-o.x, -o.y, -o.z);
        } else {
            glEnd();
            glPushMatrix();
            glTranslatef(o.x, o.y, o.z);
            glBegin(GL_QUADS);
            BoxFaces();
            glEnd();
            glPopMatrix();
            glBegin(GL_QUADS);
        }
    }
    if (!spheres) glEnd();
    glEndList();

    std::string name = kSceneName[scene];
    if (mode == kPerNode) name += "/per_node";
    if (mode == kListPerObject) name += "/list_per_object";
    g_reference[name] = TimeFrames(state, [&] {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        if (mode == kPerNode) {
            glPushMatrix();
            for (const Object& o : objects) PerNodeObject(o, scene, sphere);
            glPopMatrix();
        } else if (mode == kListPerObject) {
            for (const Object& o : objects) ListObject(o, scene, spheres ? sphere : box);
        } else {
            glCallList(list);
        }
        glFinish();
        SwapBuffers(dib.GetDC());  // the frame into the DIB, as the library's action does
    });
    glDeleteLists(sphere, 3);
    wglMakeCurrent(nullptr, nullptr);
    wglDeleteContext(rc);
}

}  // namespace

BENCHMARK_CAPTURE(Raw, bars, kBars, kOneList)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_CAPTURE(Raw, bars_list_per_object, kBars, kListPerObject)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_CAPTURE(Raw, bars_per_node, kBars, kPerNode)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_CAPTURE(Library, bars, kBars)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_CAPTURE(Raw, spheres, kSpheres, kOneList)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_CAPTURE(Raw, spheres_list_per_object, kSpheres, kListPerObject)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_CAPTURE(Raw, spheres_per_node, kSpheres, kPerNode)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_CAPTURE(Library, spheres, kSpheres)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_CAPTURE(Raw, glass, kGlass, kOneList)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_CAPTURE(Raw, glass_list_per_object, kGlass, kListPerObject)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_CAPTURE(Raw, glass_per_node, kGlass, kPerNode)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_CAPTURE(Library, glass, kGlass)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_MAIN();
