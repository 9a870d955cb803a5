#pragma once
// Growable list of wide strings (field type 286), empty after construction,
// growing 25 elements at a time. Index rules: see CVMField.
#include "../platform/CVExport.h"
#include "CVMField.h"
#include "../platform/CArray.h"
#include "../platform/CString.h"

class CVSCENE_API CVMFString : public CVMField {
    DECLARE_DYNAMIC(CVMFString)
public:
    CVMFString();
    ~CVMFString() override = default;

    // Append one string; return 1.
    int Add(const CString& value);
    // The whole text is one element, decoded from UTF-8 (null appends "").
    int Add(const char* text);

    void SetAt(int i, const CString& value);
    // Inside the list the strings from i move up by one.
    void InsertAt(int i, const CString& value);
    // Frees the storage.
    void RemoveAll();
    void Clone(const CVMFString& other);

    const CString& operator[](int i) const;
    LONGLONG GetNum() const override;
    void SetSize(LONGLONG n, int growBy) override;

protected:
    CArray<CString, const CString&> m_aValues;
};
