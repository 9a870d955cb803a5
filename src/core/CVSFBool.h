#pragma once
// One boolean (field type 271), an int that is 0 after construction.
#include "../platform/CVExport.h"
#include "CVSField.h"

class CVSCENE_API CVSFBool : public CVSField {
    DECLARE_DYNAMIC(CVSFBool)
public:
    CVSFBool();
    ~CVSFBool() override = default;

    int SetValue(int value);
    // 1 for exactly "TRUE" (case-sensitive, nothing after it); any other text,
    // "true" and "1" included, gives 0.
    int SetValue(const char* text);
    int GetValue() const { return m_nValue; }
    void Clone(const CVSFBool& other);

protected:
    int m_nValue = 0;
};
