// Query actions over a chart-sized scene: 100,000 shapes under 1,000 groups
// (each group a transform, as data series usually are). The bounding-box
// action needs a GL context: a 64 x 64 memory bitmap.
// Run: build/bench/bench_actions
#include <benchmark/benchmark.h>

#include <string>

#include "actions/CVGetBoundingBoxAction.h"
#include "actions/CVSearchAction.h"
#include "geometry/CVGeometry.h"
#include "geometry/CVShape.h"
#include "image/CSimpleDIB.h"
#include "nodes/CVGroup.h"
#include "nodes/CVTransform.h"
#include "render/CVBitmapDevice.h"
#include "render/CVGLRenderArea.h"

namespace {

const int kGroups = 1000;
const int kShapesPerGroup = 100;

// A unit box at a given place, drawn by nobody.
class PointGeometry : public CVGeometry {
public:
    explicit PointGeometry(float x) {
        m_box.SetCenter(x, 0.0f, 0.0f);
        m_box.SetSize(1.0f, 1.0f, 1.0f);
    }
    void Render(CVState*, CVGLRenderArea*, CVAppearance*) override {}
    void ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* box) override { box->Union(&m_box); }

private:
    CVBox3f m_box;
};

struct Scene {
    Scene() {
        root->Ref();
        for (int g = 0; g < kGroups; ++g) {
            CVTransform* series = new CVTransform;
            series->translation.SetValue(0.0f, (float)g, 0.0f);
            for (int s = 0; s < kShapesPerGroup; ++s) {
                CVShape* shape = new CVShape;
                shape->geometry.SetValue(new PointGeometry((float)s));
                series->children.Add(shape);
                last = shape;
            }
            root->children.Add(series);
        }
        last->SetName(L"last point");
    }
    ~Scene() { root->Unref(); }
    CVGroup* root = new CVGroup;
    CVShape* last = nullptr;
};

// A memory DC with a 32-bit DIB section and a render area over it.
struct Context {
    Context() {
        dib.Create(64, 64, nullptr);
        device = new CVBitmapDevice(dib.GetDC());
        area = new CVGLRenderArea(device);
        area->Ref();
    }
    ~Context() {
        area->Unref();
        delete device;
    }
    CSimpleDIB dib;
    CVBitmapDevice* device;
    CVGLRenderArea* area;
};

Scene& TheScene() {
    static Scene scene;
    return scene;
}

Context& TheContext() {
    static Context context;
    return context;
}

void BM_BoundingBox(benchmark::State& state) {
    Scene& scene = TheScene();
    CVGetBoundingBoxAction action(TheContext().area);
    for (auto _ : state) {
        action.Apply(scene.root);
        benchmark::DoNotOptimize(action.GetBoundingBox().GetSize());
    }
    state.SetItemsProcessed(state.iterations() * kGroups * kShapesPerGroup);
}

void BM_BoundingBoxFast(benchmark::State& state) {
    Scene& scene = TheScene();
    CVGetBoundingBoxAction action(TheContext().area);
    for (auto _ : state) {
        action.FastApply(scene.root);
        benchmark::DoNotOptimize(action.GetBoundingBox().GetSize());
    }
    state.SetItemsProcessed(state.iterations() * kGroups * kShapesPerGroup);
}

// The whole tree is walked: the node sought is the last one.
void BM_SearchByNode(benchmark::State& state) {
    Scene& scene = TheScene();
    CVSearchAction action;
    action.SetNode(scene.last);
    for (auto _ : state) {
        action.Apply(scene.root);
        benchmark::DoNotOptimize(action.GetNumPathsFound());
    }
    state.SetItemsProcessed(state.iterations() * kGroups * kShapesPerGroup);
}

void BM_SearchByName(benchmark::State& state) {
    Scene& scene = TheScene();
    CVSearchAction action;
    action.SetName(L"last point");
    for (auto _ : state) {
        action.Apply(scene.root);
        benchmark::DoNotOptimize(action.GetNumPathsFound());
    }
    state.SetItemsProcessed(state.iterations() * kGroups * kShapesPerGroup);
}

// Every shape matches: 100,000 paths of three nodes are built per walk.
void BM_SearchAllShapesByClass(benchmark::State& state) {
    Scene& scene = TheScene();
    CVSearchAction action;
    action.SetType(RUNTIME_CLASS(CVShape));
    for (auto _ : state) {
        action.Apply(scene.root);
        benchmark::DoNotOptimize(action.GetNumPathsFound());
    }
    state.SetItemsProcessed(state.iterations() * kGroups * kShapesPerGroup);
}

void BM_SearchFirstShape(benchmark::State& state) {
    Scene& scene = TheScene();
    CVSearchAction action;
    action.SetType(RUNTIME_CLASS(CVShape));
    action.SetInterest(CVSearchAction::First);
    for (auto _ : state) {
        action.Apply(scene.root);
        benchmark::DoNotOptimize(action.GetNumPathsFound());
    }
}

}  // namespace

BENCHMARK(BM_BoundingBox)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BoundingBoxFast)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SearchByNode)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SearchByName)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SearchAllShapesByClass)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SearchFirstShape)->Unit(benchmark::kMicrosecond);
BENCHMARK_MAIN();
