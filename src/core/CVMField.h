#pragma once
// Base of the fields that hold a growable array. Their text Add accepts blanks
// and commas between numbers (the single-valued parsers accept blanks only).
//
// Index rules shared by the family: an index below zero throws
// CInvalidArgException everywhere; reads and removals also throw at or past
// the end, while SetAt and InsertAt past the end grow the array, filling the
// gap with zero elements. A throwing call leaves the field as it was.
// References returned by operator[] are invalidated by any call that grows.
#include "../platform/CVExport.h"
#include "CVField.h"
#include "../platform/WinTypes.h"

class CVSCENE_API CVMField : public CVField {
    DECLARE_DYNAMIC(CVMField)
public:
    CVMField() = default;
    ~CVMField() override = default;

    virtual LONGLONG GetNum() const = 0;
    // The array's own resize: new elements are zero, removed ones dropped.
    // growBy -1 keeps the current growth step. A negative n throws.
    virtual void SetSize(LONGLONG n, int growBy) = 0;

protected:
    explicit CVMField(int nType) : CVField(nType) {}

    // Growth step of the numeric and string arrays.
    static const int kGrowBy = 25;

    // Throw CInvalidArgException("<where>: index i out of range").
    static void CheckIndex(LONGLONG i, LONGLONG count, const char* where);
    static void CheckNotNegative(LONGLONG i, const char* where);
};
