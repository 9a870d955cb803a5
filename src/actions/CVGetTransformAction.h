#pragma once
// Maps points and sizes between a node's object coordinates and window
// coordinates. Applying the action walks a path from the root to the node,
// rendering the groups on it (so transforms and billboards multiply the GL
// model-view matrix) and captures, on reaching the path's last node, the
// model-view and projection matrices and the GL viewport of the current
// context. The projection is whatever is current when the action is applied
// (the camera's, after a render); the viewport is the GL viewport, which the
// render area enlarges by the world inflation factor.
//
// For a group at the end of the path its own matrix is included: the object
// coordinates are those of its children.
#include "../platform/CVExport.h"
#include "../math/CVStructs.h"
#include "../render/CVGLAction.h"

class CVSCENE_API CVGetTransformAction : public CVGLAction {
    DECLARE_DYNAMIC(CVGetTransformAction)
public:
    // Other values give zero results.
    enum TransformType : int { ObjectToWindow = 0, WindowToObject = 1 };

    explicit CVGetTransformAction(CVGLRenderArea* area);

    // Returns 1.
    int SetTransformType(TransformType type) { m_eTransformType = type; return 1; }
    TransformType GetTransformType() const { return m_eTransformType; }

    // Walks the one-node path {node}.
    int Apply(CVNode* node) override;
    // Resets (identity matrices, zero viewport), then walks the path. Returns 1
    // when the walk reached the path's last node and captured the matrices,
    // else 0 (empty path, or a switch on the path that chose another child).
    int Apply(const CArray<CVNode*, CVNode*>& path);

    void PreActOn(CVNode* node) override;

    // Object to window (gluProject) or window to object (gluUnProject) with the
    // captured matrices. Returns 1, or 0 with zero results when the type is
    // neither or the mapping fails (a singular matrix).
    int TransformCoord(float x, float y, float z, float& ox, float& oy, float& oz) const;
    int TransformCoord(const Point3fStruct& in, Point3fStruct& out) const;
    // The size vector as the difference of the mapped points (x, y, z) and
    // (0, 0, 0): exact for affine mappings; under a perspective projection it
    // is the size of an extent that starts at the object origin (or, window
    // to object, at the window origin on the near plane).
    int TransformSize(float x, float y, float z, float& ox, float& oy, float& oz) const;
    int TransformSize(const Point3fStruct& in, Point3fStruct& out) const;

    // The 4x4 identity, column-major doubles.
    static const double m_identity[16];

protected:
    void Reset() override;

private:
    void Capture();

    TransformType m_eTransformType = ObjectToWindow;
    double m_dModelView[16];
    double m_dProjection[16];
    int m_nViewport[4];
    const CVNode* m_pPathEnd = nullptr;
    int m_bCaptured = 0;
};
