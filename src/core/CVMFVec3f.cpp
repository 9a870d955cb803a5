#include "core/CVMFVec3f.h"

#include <cstdio>

IMPLEMENT_DYNAMIC(CVMFVec3f, CVMField)

CVMFVec3f::CVMFVec3f() : CVMField(288) { m_aValues.SetSize(0, kGrowBy); }

int CVMFVec3f::Add(float x, float y, float z) { return Add(Point3fStruct{x, y, z}); }

int CVMFVec3f::Add(const Point3fStruct& value) {
    m_aValues.Add(value);
    return 1;
}

int CVMFVec3f::Add(const char* text) {
    Point3fStruct value = {0.0f, 0.0f, 0.0f};
    if (text != nullptr)
        std::sscanf(text, "%f%*[ \t\r\n,]%f%*[ \t\r\n,]%f", &value.x, &value.y, &value.z);
    return Add(value);
}

void CVMFVec3f::SetAt(int i, const Point3fStruct& value) {
    CheckNotNegative(i, "CVMFVec3f::SetAt()");
    m_aValues.SetAtGrow(i, value);
}

void CVMFVec3f::SetAt(LONGLONG i, float x, float y, float z) {
    CheckNotNegative(i, "CVMFVec3f::SetAt()");
    m_aValues.SetAtGrow(i, Point3fStruct{x, y, z});
}

void CVMFVec3f::InsertAt(int i, const Point3fStruct& value) {
    CheckNotNegative(i, "CVMFVec3f::InsertAt()");
    m_aValues.InsertAt(i, value);
}

void CVMFVec3f::InsertAt(int i, float x, float y, float z) { InsertAt(i, Point3fStruct{x, y, z}); }

void CVMFVec3f::RemoveAll() { m_aValues.RemoveAll(); }

void CVMFVec3f::Clone(const CVMFVec3f& other) {
    m_aValues.SetSize(other.m_aValues.GetSize());
    for (INT_PTR i = 0; i < other.m_aValues.GetSize(); ++i) m_aValues[i] = other.m_aValues[i];
}

const Point3fStruct& CVMFVec3f::operator[](int i) const {
    CheckIndex(i, m_aValues.GetSize(), "CVMFVec3f::operator[]()");
    return m_aValues[i];
}

LONGLONG CVMFVec3f::GetNum() const { return m_aValues.GetSize(); }

void CVMFVec3f::SetSize(LONGLONG n, int growBy) {
    CheckNotNegative(n, "CVMFVec3f::SetSize()");
    m_aValues.SetSize(n, growBy);
}
