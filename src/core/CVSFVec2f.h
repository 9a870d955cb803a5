#pragma once
// One 2-D point (field type 280), (0,0) after construction.
#include "../platform/CVExport.h"
#include "CVSField.h"
#include "../math/CVStructs.h"

class CVSCENE_API CVSFVec2f : public CVSField {
    DECLARE_DYNAMIC(CVSFVec2f)
public:
    CVSFVec2f();
    ~CVSFVec2f() override = default;

    int SetValue(float x, float y);
    int SetValue(const Point2fStruct& value);
    // "x y", white space only (a comma ends the scan); components not read
    // keep their value.
    int SetValue(const char* text);
    const Point2fStruct& GetValue() const { return m_ptValue; }
    void Clone(const CVSFVec2f& other);

protected:
    Point2fStruct m_ptValue = {0.0f, 0.0f};
};
