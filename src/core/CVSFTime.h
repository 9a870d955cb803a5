#pragma once
// One time in seconds as a double (field type 279), 0 after construction.
#include "../platform/CVExport.h"
#include "CVSField.h"

class CVSCENE_API CVSFTime : public CVSField {
    DECLARE_DYNAMIC(CVSFTime)
public:
    CVSFTime();
    ~CVSFTime() override = default;

    int SetValue(double value);
    // Hazard: the text is read as a single-precision number whose four bytes
    // overwrite the first four bytes of the double; the other four keep their
    // old contents, so the result is not the time written. Kept for
    // compatibility of stored values; use SetValue(double) for a true time.
    int SetValue(const char* text);
    double GetValue() const { return m_dValue; }
    void Clone(const CVSFTime& other);

protected:
    double m_dValue = 0.0;
};
