#include "core/CVMFVec2f.h"

#include <cstdio>

IMPLEMENT_DYNAMIC(CVMFVec2f, CVMField)

CVMFVec2f::CVMFVec2f() : CVMField(287) { m_aValues.SetSize(0, kGrowBy); }

int CVMFVec2f::Add(float x, float y) { return Add(Point2fStruct{x, y}); }

int CVMFVec2f::Add(const Point2fStruct& value) {
    m_aValues.Add(value);
    return 1;
}

int CVMFVec2f::Add(const char* text) {
    Point2fStruct value = {0.0f, 0.0f};
    if (text != nullptr) std::sscanf(text, "%f%*[ \t\r\n,]%f", &value.x, &value.y);
    return Add(value);
}

void CVMFVec2f::SetAt(int i, float x, float y) { SetAt(i, Point2fStruct{x, y}); }

void CVMFVec2f::SetAt(int i, const Point2fStruct& value) {
    CheckNotNegative(i, "CVMFVec2f::SetAt()");
    m_aValues.SetAtGrow(i, value);
}

void CVMFVec2f::InsertAt(int i, float x, float y) { InsertAt(i, Point2fStruct{x, y}); }

void CVMFVec2f::InsertAt(int i, const Point2fStruct& value) {
    CheckNotNegative(i, "CVMFVec2f::InsertAt()");
    m_aValues.InsertAt(i, value);
}

void CVMFVec2f::RemoveAll() { m_aValues.RemoveAll(); }

void CVMFVec2f::Clone(const CVMFVec2f& other) {
    m_aValues.SetSize(other.m_aValues.GetSize());
    for (INT_PTR i = 0; i < other.m_aValues.GetSize(); ++i) m_aValues[i] = other.m_aValues[i];
}

const Point2fStruct& CVMFVec2f::operator[](int i) const {
    CheckIndex(i, m_aValues.GetSize(), "CVMFVec2f::operator[]()");
    return m_aValues[i];
}

LONGLONG CVMFVec2f::GetNum() const { return m_aValues.GetSize(); }

void CVMFVec2f::SetSize(LONGLONG n, int growBy) {
    CheckNotNegative(n, "CVMFVec2f::SetSize()");
    m_aValues.SetSize(n, growBy);
}
