#include "core/CVMFColor.h"

#include <cstdio>

IMPLEMENT_DYNAMIC(CVMFColor, CVMField)

CVMFColor::CVMFColor() : CVMField(282) { m_aValues.SetSize(0, kGrowBy); }

int CVMFColor::Add(float r, float g, float b, float a) { return Add(RGBAColorStruct{r, g, b, a}); }

int CVMFColor::Add(const RGBAColorStruct& value) {
    m_aValues.Add(value);
    return 1;
}

int CVMFColor::Add(const char* text) {
    RGBAColorStruct value = {0.0f, 0.0f, 0.0f, 0.0f};
    if (text != nullptr)
        std::sscanf(text, "%f%*[ \t\r\n,]%f%*[ \t\r\n,]%f%*[ \t\r\n,]%f", &value.a, &value.r, &value.g,
                    &value.b);
    return Add(value);
}

void CVMFColor::SetAt(int i, const RGBAColorStruct& value) {
    CheckNotNegative(i, "CVMFColor::SetAt()");
    m_aValues.SetAtGrow(i, value);
}

void CVMFColor::SetAt(int i, float r, float g, float b, float a) { SetAt(i, RGBAColorStruct{r, g, b, a}); }

void CVMFColor::InsertAt(int i, const RGBAColorStruct& value) {
    CheckNotNegative(i, "CVMFColor::InsertAt()");
    m_aValues.InsertAt(i, value);
}

void CVMFColor::InsertAt(int i, float r, float g, float b, float a) {
    InsertAt(i, RGBAColorStruct{r, g, b, a});
}

void CVMFColor::RemoveAll() { m_aValues.RemoveAll(); }

void CVMFColor::Clone(const CVMFColor& other) {
    m_aValues.SetSize(other.m_aValues.GetSize());
    for (INT_PTR i = 0; i < other.m_aValues.GetSize(); ++i) m_aValues[i] = other.m_aValues[i];
}

const RGBAColorStruct& CVMFColor::operator[](int i) const {
    CheckIndex(i, m_aValues.GetSize(), "CVMFColor::operator[]()");
    return m_aValues[i];
}

LONGLONG CVMFColor::GetNum() const { return m_aValues.GetSize(); }

void CVMFColor::SetSize(LONGLONG n, int growBy) {
    CheckNotNegative(n, "CVMFColor::SetSize()");
    m_aValues.SetSize(n, growBy);
}
