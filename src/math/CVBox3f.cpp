#include "math/CVBox3f.h"

IMPLEMENT_DYNAMIC(CVBox3f, CVBase)

namespace {
inline float MinF(float a, float b) { return a < b ? a : b; }
inline float MaxF(float a, float b) { return a > b ? a : b; }
}  // namespace

CVBox3f::CVBox3f() : m_size{-1.0f, -1.0f, -1.0f}, m_center{0.0f, 0.0f, 0.0f}, m_pClipList(nullptr) {}

CVBox3f::CVBox3f(const CVBox3f& other)
    : CVBase(), m_size(other.m_size), m_center(other.m_center), m_pClipList(nullptr) {
    if (other.m_pClipList) AppendToClipInfoList(other.m_pClipList);
}

CVBox3f::~CVBox3f() { DeleteClipList(); }

CVBox3f& CVBox3f::operator=(const CVBox3f& other) {
    if (this == &other) return *this;
    m_size = other.m_size;
    m_center = other.m_center;
    DeleteClipList();
    if (other.m_pClipList) AppendToClipInfoList(other.m_pClipList);
    return *this;
}

int CVBox3f::IsEmpty() const {
    return (m_size.x < 0.0f || m_size.y < 0.0f || m_size.z < 0.0f) ? 1 : 0;
}

void CVBox3f::MakeEmpty() {
    m_size = Point3fStruct{-1.0f, -1.0f, -1.0f};
    m_center = Point3fStruct{0.0f, 0.0f, 0.0f};
}

void CVBox3f::ComputeMinMax(Point3fStruct& min, Point3fStruct& max) const {
    if (IsEmpty()) {
        min = Point3fStruct{1e7f, 1e7f, 1e7f};
        max = Point3fStruct{-1e7f, -1e7f, -1e7f};
        return;
    }
    min.x = m_center.x - m_size.x / 2.0f;
    min.y = m_center.y - m_size.y / 2.0f;
    min.z = m_center.z - m_size.z / 2.0f;
    max.x = m_center.x + m_size.x / 2.0f;
    max.y = m_center.y + m_size.y / 2.0f;
    max.z = m_center.z + m_size.z / 2.0f;
}

void CVBox3f::Set(const Point3fStruct& min, const Point3fStruct& max) {
    m_size.x = max.x - min.x;
    m_size.y = max.y - min.y;
    m_size.z = max.z - min.z;
    m_center.x = min.x + m_size.x / 2.0f;
    m_center.y = min.y + m_size.y / 2.0f;
    m_center.z = min.z + m_size.z / 2.0f;
}

void CVBox3f::Union(const Point3fStruct& p) {
    if (IsEmpty()) {
        m_size = Point3fStruct{0.0f, 0.0f, 0.0f};
        m_center = p;
        return;
    }
    Point3fStruct mn, mx;
    ComputeMinMax(mn, mx);
    mn.x = MinF(mn.x, p.x);
    mn.y = MinF(mn.y, p.y);
    mn.z = MinF(mn.z, p.z);
    mx.x = MaxF(mx.x, p.x);
    mx.y = MaxF(mx.y, p.y);
    mx.z = MaxF(mx.z, p.z);
    Set(mn, mx);
}

void CVBox3f::Union(const Point3dStruct& p) {
    Union(Point3fStruct{(float)p.x, (float)p.y, (float)p.z});
}

void CVBox3f::Union(const CVBox3f* other) {
    if (!other) return;
    if (IsEmpty()) {
        m_size = other->m_size;
        m_center = other->m_center;
    } else if (!other->IsEmpty()) {
        Point3fStruct mn1, mx1, mn2, mx2;
        ComputeMinMax(mn1, mx1);
        other->ComputeMinMax(mn2, mx2);
        Point3fStruct mn{MinF(mn1.x, mn2.x), MinF(mn1.y, mn2.y), MinF(mn1.z, mn2.z)};
        Point3fStruct mx{MaxF(mx1.x, mx2.x), MaxF(mx1.y, mx2.y), MaxF(mx1.z, mx2.z)};
        Set(mn, mx);
    }
    if (other->m_pClipList && other != this) AppendToClipInfoList(other->m_pClipList);
    if (m_pClipList) {
        for (POSITION pos = m_pClipList->GetHeadPosition(); pos;) {
            const CClipInfo* ci = m_pClipList->GetNext(pos);
            SubtractPlane(ci->m_normal, ci->m_fDistance);
        }
    }
}

int CVBox3f::Intersect(const CVBox3f& other) const {
    Point3fStruct mn1, mx1, mn2, mx2;
    ComputeMinMax(mn1, mx1);
    other.ComputeMinMax(mn2, mx2);
    const bool ox = mn1.x <= mx2.x && mn2.x <= mx1.x;
    const bool oy = mn1.y <= mx2.y && mn2.y <= mx1.y;
    const bool oz = mn1.z <= mx2.z && mn2.z <= mx1.z;
    return (ox || oy || oz) ? 1 : 0;
}

void CVBox3f::SubtractPlane(const Point3fStruct& n, float d) {
    if (IsEmpty()) return;
    Point3fStruct mn, mx;
    ComputeMinMax(mn, mx);
    if (n.x == 1.0f && n.y == 0.0f && n.z == 0.0f) {
        mn.x = MaxF(mn.x, d);
    } else if (n.x == -1.0f && n.y == 0.0f && n.z == 0.0f) {
        mx.x = MinF(mx.x, -d);
    } else if (n.x == 0.0f && n.y == 1.0f && n.z == 0.0f) {
        mn.y = MaxF(mn.y, d);
    } else if (n.x == 0.0f && n.y == -1.0f && n.z == 0.0f) {
        mx.y = MinF(mx.y, -d);
    } else if (n.x == 0.0f && n.y == 0.0f && n.z == 1.0f) {
        mn.z = MaxF(mn.z, d);
    } else if (n.x == 0.0f && n.y == 0.0f && n.z == -1.0f) {
        mx.z = MinF(mx.z, -d);
    } else {
        return;  // not an axis direction: nothing changes
    }
    if (mn.x > mx.x) mx.x = mn.x;
    if (mn.y > mx.y) mx.y = mn.y;
    if (mn.z > mx.z) mx.z = mn.z;
    Set(mn, mx);
}

void CVBox3f::Transform(const CVMatrix& m) {
    if (IsEmpty()) return;
    Point3fStruct mn, mx;
    ComputeMinMax(mn, mx);
    Point3fStruct rmin{1e6f, 1e6f, 1e6f};
    Point3fStruct rmax{-1e6f, -1e6f, -1e6f};
    for (int i = 0; i < 8; ++i) {
        const Point3fStruct corner{(i & 1) ? mx.x : mn.x, (i & 2) ? mx.y : mn.y, (i & 4) ? mx.z : mn.z};
        Point3fStruct t;
        m.MultVecMatrix(corner, t);
        rmin.x = MinF(rmin.x, t.x);
        rmin.y = MinF(rmin.y, t.y);
        rmin.z = MinF(rmin.z, t.z);
        rmax.x = MaxF(rmax.x, t.x);
        rmax.y = MaxF(rmax.y, t.y);
        rmax.z = MaxF(rmax.z, t.z);
    }
    Set(rmin, rmax);
}

void CVBox3f::AddClipInfo(const Point3fStruct& normal, float d) {
    if (!m_pClipList) m_pClipList = new CClipInfoList(10);
    m_pClipList->AddTail(new CClipInfo(normal, d));
}

void CVBox3f::AppendToClipInfoList(const CClipInfoList* list) {
    if (!list) return;
    if (!m_pClipList) m_pClipList = new CClipInfoList(10);
    // CList's traversal is non-const; the list is only read.
    CClipInfoList* src = const_cast<CClipInfoList*>(list);
    for (POSITION pos = src->GetHeadPosition(); pos;) {
        const CClipInfo* ci = src->GetNext(pos);
        m_pClipList->AddTail(new CClipInfo(*ci));
    }
}

void CVBox3f::EmptyClipList(CClipInfoList* list) {
    if (!list) return;
    while (!list->IsEmpty()) delete list->RemoveHead();
}

void CVBox3f::DeleteClipList() {
    if (!m_pClipList) return;
    EmptyClipList(m_pClipList);
    delete m_pClipList;
    m_pClipList = nullptr;
}
