#pragma once
// One float (field type 273), 0 after construction.
#include "../platform/CVExport.h"
#include "CVSField.h"

class CVSCENE_API CVSFFloat : public CVSField {
    DECLARE_DYNAMIC(CVSFFloat)
public:
    CVSFFloat();
    ~CVSFFloat() override = default;

    int SetValue(float value);
    // Text that holds no number leaves the value as it was.
    int SetValue(const char* text);
    float GetValue() const { return m_fValue; }
    void Clone(const CVSFFloat& other);

protected:
    float m_fValue = 0.0f;
};
