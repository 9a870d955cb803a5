#pragma once
// One 32-bit integer (field type 275), 0 after construction.
#include "../platform/CVExport.h"
#include "CVSField.h"

class CVSCENE_API CVSFInt32 : public CVSField {
    DECLARE_DYNAMIC(CVSFInt32)
public:
    CVSFInt32();
    ~CVSFInt32() override = default;

    int SetValue(int value);
    // Text that holds no number leaves the value as it was.
    int SetValue(const char* text);
    int GetValue() const { return m_nValue; }
    void Clone(const CVSFInt32& other);

protected:
    int m_nValue = 0;
};
