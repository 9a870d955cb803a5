#pragma once
// Abstract base of every drawable node a shape holds. Carries the chart flag
// word read by shapes, render areas and actions, the data coordinate and
// overlay indexes that tie it back to the chart's data, and the two-valued
// stipple index with a wrapping percent that drive the selection highlight.
//
// Bit order is shared with callers and is not the accessor order: ForceSort is
// 0x800, Stippled 0x1000, PartialSelection 0x20000, PostJitter 0x40000.
// Queries return the masked bit, not 0/1 (IsVRMLCompliant excepted).
#include "../platform/CVExport.h"
#include "../core/CVNode.h"
#include "../math/CVStructs.h"
#include "../platform/CArray.h"
#include "../render/CVImageMapSource.h"

class CVAppearance;
class CVVector;

class CVSCENE_API CVGeometry : public CVNode, public CVImageMapSource {
    DECLARE_DYNAMIC(CVGeometry)
public:
    enum : unsigned int {
        kCached = 0x1, kModified = 0x2, kAntialiased = 0x4, kTransparent = 0x8,
        kDropShadow = 0x10, kNotVRMLCompliant = 0x20, kNotVisible = 0x40, kNotSelectable = 0x80,
        kDataPoint = 0x100, kDetailPieSlice = 0x200, kGraphShape = 0x400, kForceSort = 0x800,
        kStippled = 0x1000, kAnnotation = 0x2000, kMarker = 0x4000, kTopoChart = 0x8000,
        kYAxisExtrusion = 0x10000, kPartialSelection = 0x20000, kPostJitter = 0x40000,
    };

    CVGeometry() = default;

    // Draws with the appearance the shape already applied (null for shadow and pick passes).
    virtual void Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) = 0;
    // The node's own Render stays callable beside the geometry's.
    using CVNode::Render;

    unsigned int GetFlags() const { return m_nFlags; }
    int IsCached() const { return m_nFlags & kCached; }
    int SetCachedFlag(int on) { return Set(kCached, on); }
    int IsModified() const { return m_nFlags & kModified; }
    // Either way clears Cached; TRUE sets Modified, FALSE clears it.
    int SetModifiedFlag(int on);
    int IsAntialiased() const { return m_nFlags & kAntialiased; }
    int SetAntialiasedFlag(int on) { return Set(kAntialiased, on); }
    int IsTransparent() const { return m_nFlags & kTransparent; }
    int SetTransparentFlag(int on) { return Set(kTransparent, on); }
    int IsDropShadowed() const { return m_nFlags & kDropShadow; }
    int SetDropShadowFlag(int on) { return Set(kDropShadow, on); }
    // 1 while the bit is clear.
    int IsVRMLCompliant() const { return (m_nFlags & kNotVRMLCompliant) ? 0 : 1; }
    int SetVRMLCompliantFlag(int on) { return Set(kNotVRMLCompliant, !on); }
    int IsNotVisible() const { return m_nFlags & kNotVisible; }
    int SetVisibleFlag(int on) { return Set(kNotVisible, !on); }
    int IsNotSelectable() const { return m_nFlags & kNotSelectable; }
    int SetSelectableFlag(int on) { return Set(kNotSelectable, !on); }
    int IsDataPointNode() const { return m_nFlags & kDataPoint; }
    int SetDataPointFlag(int on) { return Set(kDataPoint, on); }
    int IsDetailPieSlice() const { return m_nFlags & kDetailPieSlice; }
    int SetDetailPieSlice(int on) { return Set(kDetailPieSlice, on); }
    int IsGraphShape() const { return m_nFlags & kGraphShape; }
    int SetGraphShapeFlag(int on) { return Set(kGraphShape, on); }
    int IsForceSorted() const { return m_nFlags & kForceSort; }
    int SetForceSortFlag(int on) { return Set(kForceSort, on); }
    int IsStippled() const { return m_nFlags & kStippled; }
    int SetStippledFlag(int on) { return Set(kStippled, on); }
    int IsAnnotationNode() const { return m_nFlags & kAnnotation; }
    int SetAnnotationFlag(int on) { return Set(kAnnotation, on); }
    int IsMarkerNode() const { return m_nFlags & kMarker; }
    int SetMarkerFlag(int on) { return Set(kMarker, on); }
    int IsTopoChart() const { return m_nFlags & kTopoChart; }
    int SetTopoChartFlag(int on) { return Set(kTopoChart, on); }
    int IsYAxisExtrusion() const { return m_nFlags & kYAxisExtrusion; }
    int SetYAxisExtrusionFlag(int on) { return Set(kYAxisExtrusion, on); }
    int IsPartialSelection() const { return m_nFlags & kPartialSelection; }
    int SetPartialSelectionFlag(int on) { return Set(kPartialSelection, on); }
    int IsPostJitter() const { return m_nFlags & kPostJitter; }
    int SetPostJitterFlag(int on) { return Set(kPostJitter, on); }
    // Non-zero when the shape may defer the geometry (0x81c).
    unsigned int NeedsSorting() const { return m_nFlags & (kAntialiased | kTransparent | kDropShadow | kForceSort); }

    int SetCrdIndex(int index) { m_nCrdIndex = index; return 1; }
    int GetCrdIndex() const { return m_nCrdIndex; }
    int SetCrdOverlayIndex(short index) { m_nCrdOverlayIndex = index; return 1; }
    short GetCrdOverlayIndex() const { return m_nCrdOverlayIndex; }
    // Stores 1 for any non-zero index: only stipple patterns 0 and 1 exist.
    int SetStippleIndex(unsigned short index);
    unsigned short GetStippleIndex() const { return m_nStipple & 0xFF; }
    // Keeps the low 8 bits (300 becomes 44).
    int SetStipplePercent(unsigned short percent);
    unsigned short GetStipplePercent() const { return (m_nStipple >> 8) & 0xFF; }

    // Kinds that shapes and the image map treat apart, each answered by the
    // class itself. Line geometry (the indexed line set) casts no drop shadow,
    // is deferred as an antialiased line and takes the line ramp in 16-bit
    // image maps; text is what the area's text filter selects and is deferred
    // as antialiased text. Both 0 here.
    virtual int IsLineGeometry() const { return 0; }
    virtual int IsTextGeometry() const { return 0; }

    // The image-map action calls BeginImageMap (with its colour depth) before
    // the shape draws this geometry into a map and EndImageMap after; a
    // geometry changes there what the map needs (and marks itself modified)
    // and puts it back. Nothing here.
    virtual void BeginImageMap(int colorBits);
    virtual void EndImageMap();

    CVImageMapKeyStruct GetImageMapKey() const override;

    // Polygon normal, not normalised: the zero vector below 3 points; for 3
    // points (p1 - p0) x (p2 - p1); for 4 the cross product of the diagonals
    // (p2 - p0) x (p3 - p1); from 5 on ComputeArea. Negated when
    // counterClockwise is 0.
    static void ComputeNormal(const CArray<Point3fStruct>& points, int counterClockwise, CVVector& normal);

protected:
    // The bracket around every geometry's drawing. PreRenderGL pushes the
    // enable bits, enables 2-D texturing when the appearance holds a texture
    // and the area allows texturing, and for a stippled geometry loads the
    // stipple pattern of its index. PostRenderGL pops the enable bits and
    // nothing else: a polygon mode changed in between stays changed.
    void PreRenderGL(CVState* state, CVGLRenderArea* area, CVAppearance* appearance);
    void PostRenderGL(CVState* state, CVGLRenderArea* area, CVAppearance* appearance);

    // Projected areas (half of Newell's normal) of the polygon through the
    // first count - 2 points; the last two points are not used. Zero below
    // three points.
    static void ComputeArea(const CArray<Point3fStruct>& points, Point3fStruct& area);

    // The texture wants tiling: not VRML-compliant, with an appearance whose
    // texture is tiled. Box, cylinder and the column markers then stretch
    // their side texture coordinates by the height-to-width ratio.
    int UsesTiledTexture(const CVAppearance* appearance) const;

    // The identification walk is on (pick, image map, search): draw bare geometry.
    static int IsPicking(const CVState* state);

    // While picking, bare(); otherwise solid() inside PreRenderGL/PostRenderGL.
    template <class Bare, class Solid>
    void DrawBracketed(CVState* state, CVGLRenderArea* area, CVAppearance* appearance, Bare&& bare, Solid&& solid) {
        if (IsPicking(state)) {
            bare();
            return;
        }
        PreRenderGL(state, area, appearance);
        solid();
        PostRenderGL(state, area, appearance);
    }

    // box becomes the box of full extent size centred at the origin (null: nothing).
    static void SetCenteredBox(CVBox3f* box, const Point3fStruct& size);

private:
    int Set(unsigned int bit, int on) {
        m_nFlags = on ? (m_nFlags | bit) : (m_nFlags & ~bit);
        return 1;
    }

    unsigned int m_nFlags = kModified;
    int m_nCrdIndex = 0;
    short m_nCrdOverlayIndex = 0;
    unsigned short m_nStipple = 0;  // index in the low byte, percent in the high byte
};
