#pragma once
// One wide string (field type 278), empty after construction.
#include "../platform/CVExport.h"
#include "CVSField.h"
#include "../platform/CString.h"

class CVSCENE_API CVSFString : public CVSField {
    DECLARE_DYNAMIC(CVSFString)
public:
    CVSFString();
    ~CVSFString() override = default;

    int SetValue(const CString& value);
    // The whole text, decoded from UTF-8; null gives the empty string.
    int SetValue(const char* text);
    const CString& GetValue() const { return m_strValue; }
    void Clone(const CVSFString& other);

protected:
    CString m_strValue;
};
