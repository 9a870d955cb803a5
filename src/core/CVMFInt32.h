#pragma once
// Growable list of 32-bit integers (field type 284), empty after construction, growing
// 25 elements at a time. Index rules: see CVMField.
#include "../platform/CVExport.h"
#include "CVMField.h"
#include "../platform/CArray.h"

class CVSCENE_API CVMFInt32 : public CVMField {
    DECLARE_DYNAMIC(CVMFInt32)
public:
    CVMFInt32();
    ~CVMFInt32() override = default;

    // Append one value; return 1.
    int Add(int value);
    // Text that holds no number appends 0.
    int Add(const char* text);

    void SetAt(int i, int value);
    // Inside the list the values from i move up by one.
    void InsertAt(int i, int value);
    // Frees the storage.
    void RemoveAll();
    void Clone(const CVMFInt32& other);

    int operator[](int i) const;
    LONGLONG GetNum() const override;
    void SetSize(LONGLONG n, int growBy) override;

protected:
    CArray<int, int> m_aValues;
};
