#pragma once
// One RGB colour, floats 0..1 (field type 272); black after construction.
// The multi-valued colour field holds RGBA instead.
#include "../platform/CVExport.h"
#include "CVSField.h"
#include "../math/CVStructs.h"

class CVSCENE_API CVSFColor : public CVSField {
    DECLARE_DYNAMIC(CVSFColor)
public:
    CVSFColor();
    ~CVSFColor() override = default;

    int SetValue(float r, float g, float b);
    int SetValue(const RGBColorStruct& value);
    // "r g b", white space only; components not read keep their value.
    int SetValue(const char* text);
    const RGBColorStruct& GetValue() const { return m_rgbValue; }
    void Clone(const CVSFColor& other);

protected:
    RGBColorStruct m_rgbValue = {0.0f, 0.0f, 0.0f};
};
