// A first chart: five bars on a base plate, lit, over a soft gradient, saved as PNG.
// Usage: cvscene-first-chart [file.png]
#include <cstdio>

#include <cvscene/cvscene.h>

int main(int argc, char** argv) {
    const char* file = argc > 1 ? argv[1] : "first-chart.png";
    const float heights[5] = {1.2f, 2.6f, 1.9f, 3.4f, 2.8f};

    auto* scene = new CVGroup;
    for (int i = 0; i < 5; ++i) {
        auto* material = new CVMaterial;
        material->diffuseColor.SetValue(0.2f, 0.45f + 0.1f * i, 0.85f);
        auto* look = new CVAppearance;
        look->material.SetValue(material);
        auto* bar = new CVBox;
        bar->size.SetValue(0.8f, heights[i], 0.8f);
        bar->SetDataPointFlag(1);  // data points cast drop shadows
        auto* shape = new CVShape;
        shape->geometry.SetValue(bar);
        shape->appearance.SetValue(look);
        auto* place = new CVTransform;  // bars stand on y = 0
        place->translation.SetValue(1.2f * i - 2.4f, heights[i] / 2, 0.0f);
        place->children.Add(shape);
        scene->children.Add(place);
    }
    auto* plate = new CVBox;
    plate->size.SetValue(6.6f, 0.1f, 1.6f);
    auto* platePlace = new CVTransform;
    platePlace->translation.SetValue(0.0f, -0.05f, 0.0f);
    auto* plateShape = new CVShape;  // no appearance: light grey
    plateShape->geometry.SetValue(plate);
    platePlace->children.Add(plateShape);
    scene->children.Add(platePlace);

    auto* camera = new CVPerspectiveCamera;  // looks down -z from its position
    camera->position.SetValue(0.0f, 1.6f, 7.5f);
    camera->farDistance.SetValue(30.0f);
    camera->children.Add(new CVLightModel);  // lighting on
    auto* light = new CVDirectionalLight;
    light->direction.SetValue(-0.4f, -0.5f, -0.8f);
    camera->children.Add(light);
    camera->children.Add(scene);
    auto* root = new CVGroup;
    root->children.Add(camera);
    root->Ref();  // the root holds the whole tree

    CSimpleDIB reference;  // a memory DC with a 32-bit DIB: the depth to copy
    reference.Create(1, 1, nullptr);
    CVRenderToDIBAction action(reference.GetDC());
    action.SetViewport(0, 0, 640, 400);
    action.GetRenderArea()->SetDropShadowsEnabled(1);
    action.SetFillStyle(1);    // gradient background,
    action.SetGradientType(2);  // vertical, from the bottom up
    action.SetStartGradientColor({0.98f, 0.98f, 1.0f, 1.0f});
    action.SetEndGradientColor({0.72f, 0.8f, 0.93f, 1.0f});
    const int ok = action.Apply(root) && action.SaveToDIBFile(CString(file));
    root->Unref();  // frees the tree
    std::printf("%s %s\n", ok ? "wrote" : "FAILED to write", file);
    return ok ? 0 : 1;
}
