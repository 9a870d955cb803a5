#pragma once
// Axis-aligned box: size (full extent along x, y, z), center, and an
// optional owned list of clip planes so that boxes of clipped content shrink to
// the clipped region. A box is empty when any size component is below 0; after
// construction and MakeEmpty the size is (-1,-1,-1) and the center (0,0,0).
#include "../platform/CVExport.h"
#include "../base/CVBase.h"
#include "CVMatrix.h"
#include "CVStructs.h"
#include "../platform/CList.h"

class CVSCENE_API CVBox3f : public CVBase {
    DECLARE_DYNAMIC(CVBox3f)
public:
    // A clip plane: normal and distance.
    class CClipInfo {
    public:
        CClipInfo() : m_normal{0.0f, 0.0f, 0.0f}, m_fDistance(0.0f) {}
        CClipInfo(const Point3fStruct& normal, float d) : m_normal(normal), m_fDistance(d) {}
        Point3fStruct m_normal;
        float m_fDistance;
    };
    // Doubly linked list of owned entries, nodes allocated in blocks of 10.
    typedef CList<CClipInfo*, CClipInfo*> CClipInfoList;

    CVBox3f();
    // Copies size, center and (deeply) the clip list.
    CVBox3f(const CVBox3f& other);
    ~CVBox3f() override;
    CVBox3f& operator=(const CVBox3f& other);

    const Point3fStruct& GetSize() const { return m_size; }
    void SetSize(const Point3fStruct& size) { m_size = size; }
    void SetSize(float x, float y, float z) { m_size = Point3fStruct{x, y, z}; }
    const Point3fStruct& GetCenter() const { return m_center; }
    void SetCenter(const Point3fStruct& center) { m_center = center; }
    void SetCenter(float x, float y, float z) { m_center = Point3fStruct{x, y, z}; }

    // 1 when any size component is below 0.
    int IsEmpty() const;
    // Size (-1,-1,-1), center (0,0,0); the clip list is left alone.
    void MakeEmpty();

    // min = center - size/2, max = center + size/2; for an empty box
    // min = (1e7, 1e7, 1e7) and max = (-1e7, -1e7, -1e7).
    void ComputeMinMax(Point3fStruct& min, Point3fStruct& max) const;

    // Extend to include p; an empty box becomes the zero-size box at p.
    void Union(const Point3fStruct& p);
    void Union(const Point3dStruct& p);
    // If this box is empty it takes the other's size and center, otherwise the
    // union of both extents (an empty other leaves this unchanged). Then the
    // other's clip entries are appended to this box's list (created if absent)
    // and every entry of this box's list is applied with SubtractPlane.
    // A null other does nothing.
    void Union(const CVBox3f* other);
    void Union(const CVBox3f& other) { Union(&other); }

    // 1 when the extents overlap along x, OR along y, OR along z (any one axis
    // suffices; touching counts as overlap); else 0. An empty box counts as
    // min 1e7 / max -1e7. Required as it is.
    int Intersect(const CVBox3f& other) const;

    // Only on a non-empty box and only for a normal exactly equal to one of the
    // six axis directions: (1,0,0) raises min.x to at least d, (-1,0,0) lowers
    // max.x to at most -d, likewise for y and z. Where min ends above max, max
    // is set to min. Any other normal changes nothing.
    void SubtractPlane(const Point3fStruct& normal, float d);

    // The eight corners through m.MultVecMatrix, then the extents of the
    // results with min and max started at 1e6 and -1e6 (not 1e7). An empty box
    // is left as it is. The clip list is not touched.
    void Transform(const CVMatrix& m);

    // Appends a new entry, creating the list if absent; the box itself is not
    // clipped until a Union with a box applies the list.
    void AddClipInfo(const Point3fStruct& normal, float d);
    // 1 if a list exists (even an empty one).
    int HaveClipList() const { return m_pClipList != nullptr ? 1 : 0; }
    // Deletes the entries and the list, leaving none.
    void DeleteClipList();
    // The list (null when none); entries are owned by the box.
    const CClipInfoList* GetClipList() const { return m_pClipList; }
    // Number of entries (0 when there is no list).
    int GetClipInfoCount() const { return m_pClipList ? static_cast<int>(m_pClipList->GetCount()) : 0; }

protected:
    // size = max - min, center = min + size/2.
    void Set(const Point3fStruct& min, const Point3fStruct& max);
    // Appends copies of every entry of list to this box's list (created if
    // absent).
    void AppendToClipInfoList(const CClipInfoList* list);
    // Deletes the entries of a list and empties it (the list itself stays).
    static void EmptyClipList(CClipInfoList* list);

private:
    Point3fStruct m_size;
    Point3fStruct m_center;
    CClipInfoList* m_pClipList;
};
