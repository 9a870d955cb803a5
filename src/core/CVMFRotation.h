#pragma once
// Growable list of axis-angle rotations (field type 285), empty after
// construction, growing 25 elements at a time. Index rules: see CVMField,
// except that the gap left by growing holds default rotations (angle 0 about
// (0,1,0)) rather than zeros.
#include "../platform/CVExport.h"
#include "CVMField.h"
#include "../math/CVRotation.h"
#include "../math/CVStructs.h"
#include "../platform/CArray.h"

class CVSCENE_API CVMFRotation : public CVMField {
    DECLARE_DYNAMIC(CVMFRotation)
public:
    CVMFRotation();
    ~CVMFRotation() override = default;

    // Append one rotation; return 1.
    int Add(const CVRotation& value);
    int Add(float x, float y, float z, float angle);
    int Add(Point3fStruct axis, float angle);
    // "x y z angle" with any run of blanks, tabs, line ends and commas between
    // the numbers; components the text does not supply are 0.
    int Add(const char* text);

    void SetAt(int i, const CVRotation& value);
    void SetAt(int i, float x, float y, float z, float angle);
    void SetAt(int i, Point3fStruct axis, float angle);
    // Inside the list the rotations from i move up by one.
    void InsertAt(int i, const CVRotation& value);
    void InsertAt(int i, float x, float y, float z, float angle);
    void InsertAt(int i, Point3fStruct axis, float angle);
    // Frees the storage.
    void RemoveAll();
    void Clone(const CVMFRotation& other);

    const CVRotation& operator[](int i) const;
    LONGLONG GetNum() const override;
    void SetSize(LONGLONG n, int growBy) override;

protected:
    CArray<CVRotation, const CVRotation&> m_aValues;
};
