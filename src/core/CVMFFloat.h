#pragma once
// Growable list of floats (field type 283), empty after construction, growing
// 25 elements at a time. Index rules: see CVMField.
#include "../platform/CVExport.h"
#include "CVMField.h"
#include "../platform/CArray.h"

class CVSCENE_API CVMFFloat : public CVMField {
    DECLARE_DYNAMIC(CVMFFloat)
public:
    CVMFFloat();
    ~CVMFFloat() override = default;

    // Append one value; return 1.
    int Add(float value);
    // Text that holds no number appends 0.
    int Add(const char* text);

    void SetAt(int i, float value);
    // Inside the list the values from i move up by one.
    void InsertAt(int i, float value);
    // Frees the storage.
    void RemoveAll();
    void Clone(const CVMFFloat& other);

    float operator[](int i) const;
    LONGLONG GetNum() const override;
    void SetSize(LONGLONG n, int growBy) override;

protected:
    CArray<float, float> m_aValues;
};
