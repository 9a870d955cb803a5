#pragma once
// Base of the actions that work on a render area's GL context. State pushes
// save the enable, lighting and polygon attributes; the path depth moves only
// while the state records paths. Matrix pushes act on whatever context is
// current: callers make the area current before applying.
//
// The action holds one reference on its render area for its whole life.
#include "../platform/CVExport.h"
#include "../core/CVAction.h"

class CVGLDevice;
class CVGLRenderArea;

class CVSCENE_API CVGLAction : public CVAction {
    DECLARE_DYNAMIC(CVGLAction)
public:
    // Refs area (null is allowed and held as null).
    explicit CVGLAction(CVGLRenderArea* area);
    // Creates a render area over the device and holds it; the device's DC must
    // outlive the action.
    explicit CVGLAction(CVGLDevice* device);
    // Unrefs the area, which deletes it when the action held the last reference.
    ~CVGLAction() override;

    // glPushAttrib(GL_ENABLE_BIT | GL_LIGHTING_BIT | GL_POLYGON_BIT).
    void PushState() override;
    void PopState() override;
    // These leave the matrix mode on the stack they touched.
    void PushModelView() override;
    void PopModelView() override;
    void PushProjection() override;
    void PopProjection() override;

    // Refs the new area before releasing the old one, so setting the held
    // area again is safe.
    virtual void SetRenderArea(CVGLRenderArea* area);
    virtual CVGLRenderArea* GetRenderArea() const;

protected:
    CVGLRenderArea* m_pRenderArea = nullptr;
};
