#pragma once
// Growable list of 3-D points or vectors (field type 288), empty after
// construction, growing 25 elements at a time. Index rules: see CVMField.
#include "../platform/CVExport.h"
#include "CVMField.h"
#include "../math/CVStructs.h"
#include "../platform/CArray.h"

class CVSCENE_API CVMFVec3f : public CVMField {
    DECLARE_DYNAMIC(CVMFVec3f)
public:
    CVMFVec3f();
    ~CVMFVec3f() override = default;

    // Append one point; return 1.
    int Add(float x, float y, float z);
    int Add(const Point3fStruct& value);
    // "x y z" with any run of blanks, tabs, line ends and commas between the
    // numbers; components the text does not supply are 0.
    int Add(const char* text);

    void SetAt(int i, const Point3fStruct& value);
    void SetAt(LONGLONG i, float x, float y, float z);
    // Inside the list the points from i move up by one.
    void InsertAt(int i, const Point3fStruct& value);
    void InsertAt(int i, float x, float y, float z);
    // Frees the storage.
    void RemoveAll();
    void Clone(const CVMFVec3f& other);

    const Point3fStruct& operator[](int i) const;
    LONGLONG GetNum() const override;
    void SetSize(LONGLONG n, int growBy) override;

protected:
    CArray<Point3fStruct, const Point3fStruct&> m_aValues;
};
