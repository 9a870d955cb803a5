// The chart gallery: renders a few charts off-screen and saves them as PNG.
// Usage: cvscene-gallery <output folder>
#include <cstdio>
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include <cvscene/cvscene.h>

namespace {

CVAppearance* Look(float r, float g, float b) {
    auto* material = new CVMaterial;
    material->diffuseColor.SetValue(r, g, b);
    material->specularColor.SetValue(0.3f, 0.3f, 0.3f);
    material->shininess.SetValue(0.3f);
    auto* appearance = new CVAppearance;
    appearance->material.SetValue(material);
    return appearance;
}

// A shape moved to (x, y, z).
CVTransform* Place(CVGeometry* geometry, CVAppearance* look, float x, float y, float z) {
    auto* shape = new CVShape;
    shape->geometry.SetValue(geometry);
    shape->appearance.SetValue(look);
    auto* t = new CVTransform;
    t->translation.SetValue(x, y, z);
    t->children.Add(shape);
    return t;
}

// Camera and light over a scene group; returns the root.
CVGroup* Stage(CVGroup* scene, float distance, float tilt) {
    auto* root = new CVGroup;
    auto* camera = new CVPerspectiveCamera;
    camera->position.SetValue(0.0f, distance * std::sin(tilt), distance * std::cos(tilt));
    camera->orientation.SetValue(1.0f, 0.0f, 0.0f, -tilt);
    camera->farDistance.SetValue(distance * 3.0f);
    camera->children.Add(new CVLightModel);  // lighting on
    auto* light = new CVDirectionalLight;
    light->direction.SetValue(-0.4f, -0.6f, -0.7f);
    camera->children.Add(light);
    camera->children.Add(scene);
    root->children.Add(camera);
    return root;
}

// 5 x 4 bars of boxes and cylinders with heights from a small table; bar (1, 2)
// is selected (stippled overlay) and bar (3, 1) partially selected.
CVGroup* BarChart() {
    static const float kHeights[4][5] = {{1.0f, 2.2f, 1.6f, 3.1f, 2.4f},
                                         {1.8f, 2.9f, 2.0f, 1.2f, 3.4f},
                                         {2.6f, 1.4f, 3.8f, 2.1f, 1.7f},
                                         {1.1f, 3.0f, 2.5f, 2.8f, 3.6f}};
    static const float kSeries[4][3] = {{0.85f, 0.25f, 0.2f}, {0.2f, 0.55f, 0.85f},
                                        {0.3f, 0.75f, 0.35f}, {0.95f, 0.7f, 0.15f}};
    auto* scene = new CVGroup;
    for (int row = 0; row < 4; ++row) {
        CVAppearance* look = Look(kSeries[row][0], kSeries[row][1], kSeries[row][2]);
        for (int col = 0; col < 5; ++col) {
            float h = kHeights[row][col];
            CVGeometry* bar;
            if (row % 2 == 0) {
                auto* box = new CVBox;
                box->size.SetValue(0.8f, h, 0.8f);
                bar = box;
            } else {
                auto* cylinder = new CVCylinder;
                cylinder->radius.SetValue(0.4f);
                cylinder->height.SetValue(h);
                cylinder->precision = 24;
                bar = cylinder;
            }
            bar->SetDataPointFlag(1);
            bar->SetCrdIndex(row * 5 + col);
            if (row == 1 && col == 2) {
                bar->SetStippledFlag(1);
                bar->SetStipplePercent(100);
            }
            if (row == 3 && col == 1) {
                bar->SetStippledFlag(1);
                bar->SetPartialSelectionFlag(1);
                bar->SetStipplePercent(40);
            }
            scene->children.Add(Place(bar, look, (col - 2.0f) * 1.4f, h * 0.5f - 1.5f, (row - 1.5f) * 1.4f));
        }
    }
    auto* floor = new CVBox;
    floor->size.SetValue(7.5f, 0.1f, 6.0f);
    scene->children.Add(Place(floor, Look(0.8f, 0.8f, 0.82f), 0.0f, -1.55f, 0.0f));
    return Stage(scene, 12.0f, 0.45f);
}

// Every primitive and marker shape, solid in the top rows, wire-frame below.
CVGroup* ShapeSheet() {
    auto* scene = new CVGroup;
    const int kCount = 16;
    for (int wire = 0; wire < 2; ++wire) {
        float sign = wire ? -1.0f : 1.0f;
        for (int i = 0; i < kCount; ++i) {
            CVGeometry* g = nullptr;
            switch (i) {
                case 0: { auto* b = new CVBox; b->size.SetValue(sign * 0.8f, 0.8f, 0.8f); g = b; break; }
                case 1: { auto* b = new CVLineBox; b->size.SetValue(sign * 0.8f, 0.8f, 0.8f); g = b; break; }
                case 2: { auto* c = new CVCone; c->bottomRadius.SetValue(0.45f); c->height.SetValue(sign * 0.9f); g = c; break; }
                case 3: { auto* c = new CVCylinder; c->radius.SetValue(0.4f); c->height.SetValue(sign * 0.9f); g = c; break; }
                case 4: { auto* s = new CVSphere; s->radius.SetValue(sign * 0.45f); g = s; break; }
                case 5: { auto* d = new CVDisc; d->size.SetValue(sign * 0.9f, 0.9f, 0.9f); g = d; break; }
                case 6: { auto* m = new CVClub; m->size.SetValue(sign * 0.8f, 0.3f, 0.8f); g = m; break; }
                case 7: { auto* m = new CVCross; m->size.SetValue(sign * 0.8f, 0.8f, 0.3f); g = m; break; }
                case 8: { auto* m = new CVDiamond; m->size.SetValue(sign * 0.6f, 0.6f, 0.3f); g = m; break; }
                case 9: { auto* m = new CVFlag; m->size.SetValue(sign * 0.8f, 0.3f, 0.8f); g = m; break; }
                case 10: { auto* m = new CVHeart; m->size.SetValue(sign * 0.8f, 0.3f, 0.8f); g = m; break; }
                case 11: { auto* m = new CVHexagon; m->size.SetValue(sign * 0.8f, 0.3f, 0.8f); g = m; break; }
                case 12: { auto* m = new CVPrism; m->size.SetValue(sign * 0.8f, 0.5f, 0.8f); g = m; break; }
                case 13: { auto* m = new CVSpade; m->size.SetValue(sign * 0.8f, 0.3f, 0.8f); g = m; break; }
                case 14: { auto* m = new CVStar; m->size.SetValue(sign * 0.8f, 0.3f, 0.8f); g = m; break; }
                default: { auto* m = new CVXShape; m->size.SetValue(sign * 0.8f, 0.8f, 0.3f); g = m; break; }
            }
            // Outline shapes lie in x-z; the marker flag stands them up to face the viewer.
            if (i >= 6) g->SetMarkerFlag(1);
            float hue = (float)i / kCount;
            CVAppearance* look = Look(0.35f + 0.6f * hue, 0.8f - 0.5f * hue, 0.9f - 0.7f * hue);
            int col = i % 8, row = i / 8 + wire * 2;
            scene->children.Add(Place(g, look, (col - 3.5f) * 1.2f, (1.5f - row) * 1.2f, 0.0f));
        }
    }
    return Stage(scene, 11.0f, 0.15f);
}

bool Render(HDC ref, CVGroup* root, const std::string& path, bool antialias) {
    CVRenderToDIBAction action(ref);
    action.SetViewport(0, 0, 800, 600);
    CVGLRenderArea* area = action.GetRenderArea();
    area->SetDropShadowsEnabled(1);
    area->SetSceneAntialiasingEnabled(antialias ? 1 : 0);
    area->SetSelectionColor(RGBColorStruct{0.1f, 0.1f, 0.1f});
    action.SetFillStyle(1);
    action.SetGradientType(2);
    action.SetStartGradientColor(RGBAColorStruct{0.93f, 0.95f, 1.0f, 1.0f});
    action.SetEndGradientColor(RGBAColorStruct{0.55f, 0.65f, 0.85f, 1.0f});
    action.SetHeadlightOn(0);
    // The first frame of a new area casts its drop shadows from the default
    // direction: the light that casts them is found while the scene is
    // walked. From the second frame on every frame must be the same.
    if (!action.Apply(root) || !action.Apply(root)) return false;
    const CSimpleDIB* dib = action.GetSimpleDIB();
    const BYTE* bits = static_cast<const BYTE*>(dib->GetBits());
    const size_t size = (size_t)dib->GetWidth() * dib->GetHeight() * dib->GetBitCount() / 8;
    const std::vector<BYTE> frame(bits, bits + size);
    if (!action.Apply(root)) return false;
    if (std::memcmp(frame.data(), dib->GetBits(), size) != 0) {
        std::printf("%s: a frame drawn again differs from the one before\n", path.c_str());
        return false;
    }
    return action.SaveToDIBFile(CString(path.c_str())) != 0;
}

}  // namespace

int main(int argc, char** argv) {
    std::string out = argc > 1 ? argv[1] : "out";
    // A memory DC with a 32-bit DIB selected: the reference DC the
    // off-screen action copies its depth from.
    CSimpleDIB ref;
    ref.Create(1, 1, nullptr);
    CVGroup* bars = BarChart();
    bars->Ref();
    CVGroup* sheet = ShapeSheet();
    sheet->Ref();
    const struct {
        const char* file;
        CVGroup* root;
        bool antialias;
    } kCharts[] = {{"bar-chart.png", bars, false}, {"shape-sheet.png", sheet, false},
                   {"bar-chart-antialiased.png", bars, true}};
    int failures = 0;
    for (const auto& c : kCharts) {
        std::string path = out + "/" + c.file;
        bool ok = Render(ref.GetDC(), c.root, path, c.antialias);
        std::printf("%s %s\n", ok ? "wrote" : "FAILED", path.c_str());
        failures += ok ? 0 : 1;
    }
    bars->Unref();
    sheet->Unref();
    return failures ? 1 : 0;
}
