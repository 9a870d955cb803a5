#include "core/CVMFRotation.h"

#include <cstdio>

IMPLEMENT_DYNAMIC(CVMFRotation, CVMField)

CVMFRotation::CVMFRotation() : CVMField(285) { m_aValues.SetSize(0, kGrowBy); }

int CVMFRotation::Add(const CVRotation& value) {
    m_aValues.Add(value);
    return 1;
}

int CVMFRotation::Add(float x, float y, float z, float angle) { return Add(CVRotation(x, y, z, angle)); }

int CVMFRotation::Add(Point3fStruct axis, float angle) { return Add(CVRotation(axis, angle)); }

int CVMFRotation::Add(const char* text) {
    Point3fStruct axis = {0.0f, 0.0f, 0.0f};
    float angle = 0.0f;
    if (text != nullptr)
        std::sscanf(text, "%f%*[ \t\r\n,]%f%*[ \t\r\n,]%f%*[ \t\r\n,]%f", &axis.x, &axis.y, &axis.z, &angle);
    return Add(CVRotation(axis, angle));
}

void CVMFRotation::SetAt(int i, const CVRotation& value) {
    CheckNotNegative(i, "CVMFRotation::SetAt()");
    m_aValues.SetAtGrow(i, value);
}

void CVMFRotation::SetAt(int i, float x, float y, float z, float angle) { SetAt(i, CVRotation(x, y, z, angle)); }

void CVMFRotation::SetAt(int i, Point3fStruct axis, float angle) { SetAt(i, CVRotation(axis, angle)); }

void CVMFRotation::InsertAt(int i, const CVRotation& value) {
    CheckNotNegative(i, "CVMFRotation::InsertAt()");
    m_aValues.InsertAt(i, value);
}

void CVMFRotation::InsertAt(int i, float x, float y, float z, float angle) {
    InsertAt(i, CVRotation(x, y, z, angle));
}

void CVMFRotation::InsertAt(int i, Point3fStruct axis, float angle) { InsertAt(i, CVRotation(axis, angle)); }

void CVMFRotation::RemoveAll() { m_aValues.RemoveAll(); }

void CVMFRotation::Clone(const CVMFRotation& other) {
    m_aValues.SetSize(other.m_aValues.GetSize());
    for (INT_PTR i = 0; i < other.m_aValues.GetSize(); ++i) m_aValues[i] = other.m_aValues[i];
}

const CVRotation& CVMFRotation::operator[](int i) const {
    CheckIndex(i, m_aValues.GetSize(), "CVMFRotation::operator[]()");
    return m_aValues[i];
}

LONGLONG CVMFRotation::GetNum() const { return m_aValues.GetSize(); }

void CVMFRotation::SetSize(LONGLONG n, int growBy) {
    CheckNotNegative(n, "CVMFRotation::SetSize()");
    m_aValues.SetSize(n, growBy);
}
