#pragma once
// Base of the fields that hold exactly one value. Their text setters accept
// white space only between numbers and scan straight into the value, so
// components the text does not supply keep what they held.
#include "../platform/CVExport.h"
#include "CVField.h"

class CVSCENE_API CVSField : public CVField {
    DECLARE_DYNAMIC(CVSField)
public:
    CVSField() = default;
    ~CVSField() override = default;

protected:
    explicit CVSField(int nType) : CVField(nType) {}
};
