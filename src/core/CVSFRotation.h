#pragma once
// One axis-angle rotation (field type 277); after construction the default
// rotation, angle 0 about (0,1,0). The setters are those of CVRotation
// applied to the held value.
#include "../platform/CVExport.h"
#include "CVSField.h"
#include "../math/CVRotation.h"
#include "../math/CVStructs.h"

class CVSCENE_API CVSFRotation : public CVSField {
    DECLARE_DYNAMIC(CVSFRotation)
public:
    CVSFRotation();
    ~CVSFRotation() override = default;

    void SetValue(const CVRotation& value);
    // Axis x, y, z and angle in radians, stored unchanged.
    void SetValue(float x, float y, float z, float angle);
    void SetValue(Point3fStruct axis, float angle);
    // From three angles about x, y and z (see CVRotation).
    void SetValue(float ax, float ay, float az);
    // "x y z angle", white space only; components not read keep their value.
    // Returns 1.
    int SetValue(const char* text);

    const CVRotation& GetValue() const { return m_rotValue; }
    void GetValue(Point3fStruct& axis, float& angle) const;
    void Clone(const CVSFRotation& other);

protected:
    CVRotation m_rotValue;
};
