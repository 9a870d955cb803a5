#pragma once
// One 3-D point or vector (field type 281), (0,0,0) after construction.
#include "../platform/CVExport.h"
#include "CVSField.h"
#include "../math/CVStructs.h"

class CVSCENE_API CVSFVec3f : public CVSField {
    DECLARE_DYNAMIC(CVSFVec3f)
public:
    CVSFVec3f();
    ~CVSFVec3f() override = default;

    int SetValue(float x, float y, float z);
    int SetValue(const Point3fStruct& value);
    // "x y z", white space only: "1,2,3" sets x alone. Components not read
    // keep their value.
    int SetValue(const char* text);
    const Point3fStruct& GetValue() const { return m_ptValue; }
    void Clone(const CVSFVec3f& other);

protected:
    Point3fStruct m_ptValue = {0.0f, 0.0f, 0.0f};
};
