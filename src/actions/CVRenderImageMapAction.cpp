#include "actions/CVRenderImageMapAction.h"

#include <GL/gl.h>

#include "geometry/CVGeometry.h"
#include "geometry/CVShape.h"
#include "render/CVBitmapDevice.h"
#include "render/CVCacheManager.h"
#include "render/CVGLRenderArea.h"

IMPLEMENT_DYNAMIC(CVRenderImageMapAction, CVGLAction)

namespace {

// The drawing changes a geometry makes for the map, undone when this goes
// out of scope. The geometry classes make them in their image-map hooks
// (CVGeometry::BeginImageMap / EndImageMap). Unfinished: waits for the indexed
// line set / elevation grid / face set, whose overrides are to do this:
// - topographic CVIndexedLineSet: a line width below 3.0 raised to 3.0 on
//   entry and the old width restored on exit, marked modified both times, so
//   that thin contour lines stay hittable;
// - topographic CVElevationGrid: its image-map colour depth set to the
//   action's colour depth and its image-map mode to 1 on entry, both back to
//   0 on exit, marked modified both times;
// - CVIndexedFaceSet: its colour node detached on entry (keeping a reference)
//   and attached again on exit, so per-vertex colours do not overwrite the code.
class ImageMapChanges {
public:
    ImageMapChanges(CVGeometry* g, int colorBits) : m_pGeometry(g) { m_pGeometry->BeginImageMap(colorBits); }
    ~ImageMapChanges() { m_pGeometry->EndImageMap(); }
    ImageMapChanges(const ImageMapChanges&) = delete;
    ImageMapChanges& operator=(const ImageMapChanges&) = delete;

private:
    CVGeometry* m_pGeometry;
};

// The identification flag is 1 for the length of a frame, thrown out of or not.
class IdentifyScope {
public:
    explicit IdentifyScope(CVState* state) : m_pState(state) { m_pState->m_bRecordPath = 1; }
    ~IdentifyScope() { m_pState->m_bRecordPath = 0; }
    IdentifyScope(const IdentifyScope&) = delete;
    IdentifyScope& operator=(const IdentifyScope&) = delete;

private:
    CVState* m_pState;
};

}  // namespace

CVRenderImageMapAction::CVRenderImageMapAction(HDC hdc) : CVGLAction(static_cast<CVGLRenderArea*>(nullptr)), m_hDC(hdc) {
    try {
        m_pDevice = CreateDevice(hdc);
        SetRenderArea(new CVGLRenderArea(m_pDevice));
    } catch (...) {
        delete m_pDevice;
        delete m_pDIB;
        throw;
    }
    delete m_pDevice;
    m_pDevice = nullptr;
    m_nColorBits = GetDeviceCaps(hdc, BITSPIXEL);
}

CVRenderImageMapAction::~CVRenderImageMapAction() {
    // The context goes before the DC it was made on.
    SetRenderArea(nullptr);
    delete m_pDIB;
}

CVBitmapDevice* CVRenderImageMapAction::CreateDevice(HDC hdc) {
    if (!m_pDIB) m_pDIB = new CSimpleDIB;
    m_pDIB->Create(32, 32, hdc);
    return new CVBitmapDevice(m_pDIB->GetDC());
}

void CVRenderImageMapAction::SetViewport(int x, int y, int w, int h) {
    SetRenderArea(nullptr);
    m_pDIB->Create(w, h, m_hDC);
    CVBitmapDevice device(m_pDIB->GetDC());
    CVGLRenderArea* area = new CVGLRenderArea(&device);
    SetRenderArea(area);
    area->SetRenderAreaToBitmap(1);
    m_Viewport.Set(x, y, w, h);
}

int CVRenderImageMapAction::Apply(CVNode* root) { return Apply(root, nullptr); }

int CVRenderImageMapAction::Apply(CVNode* root, CVNode* overlay) {
    if (!root || !m_pRenderArea) return 0;
    {
        IdentifyScope identify(m_pState);
        m_pRenderArea->SetViewport(m_Viewport);
        m_pRenderArea->MakeCurrent();
        Reset();
        PreApplyGL();
        root->Traverse(this, nullptr, 0);
        if (overlay) overlay->Traverse(this, nullptr, 0);
        PostApplyGL();
        glFinish();
        m_pRenderArea->SwapBuffers();
    }
    return 1;
}

void CVRenderImageMapAction::PreApplyGL() {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    PushModelView();
    PushState();
    glDisable(GL_LIGHTING);
    glDisable(GL_DITHER);
    glShadeModel(GL_FLAT);
    glClearColor(1.0f, 1.0f, 1.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void CVRenderImageMapAction::PostApplyGL() {
    glEnable(GL_LIGHTING);
    glEnable(GL_DITHER);
    glShadeModel(GL_SMOOTH);
    PopModelView();
    PopState();
}

void CVRenderImageMapAction::PreActOn(CVNode* node) {
    if (!node->IsKindOf(RUNTIME_CLASS(CVShape))) {
        node->Render(m_pState, m_pRenderArea);
        return;
    }
    CVShape* shape = static_cast<CVShape*>(node);
    CVGeometry* g = shape->geometry.GetValue();
    if (!g) return;
    if (!g->IsDataPointNode() && !g->IsGraphShape() && !g->IsAnnotationNode() && !g->IsTopoChart()) return;
    const int index = g->GetCrdIndex();
    // Pie slices, graph shapes, annotations and charts code negative indexes
    // themselves; a data point without an index has nothing to report.
    if (index < 0 && !g->IsDetailPieSlice() && !g->IsGraphShape() && !g->IsAnnotationNode() && !g->IsTopoChart())
        return;
    if (CVCacheManager* cache = CVGetCacheManagerPtr()) cache->SetImageMapColor(m_nColorBits, index, g);
    ImageMapChanges changes(g, m_nColorBits);
    shape->Render(m_pState, m_pRenderArea);
}

BOOL CVRenderImageMapAction::SaveToDIBFile(const CString& fileName) const { return m_pDIB->Save(fileName); }

BOOL CVRenderImageMapAction::BitBlt(CDC* dc, int x, int y, int w, int h, int srcX, int srcY) {
    return ::BitBlt(dc ? dc->GetSafeHdc() : nullptr, x, y, w, h, m_pDIB->GetDC(), srcX, srcY, SRCCOPY);
}
