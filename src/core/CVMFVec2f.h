#pragma once
// Growable list of 2-D points (field type 287), empty after construction,
// growing 25 elements at a time. Index rules: see CVMField.
#include "../platform/CVExport.h"
#include "CVMField.h"
#include "../math/CVStructs.h"
#include "../platform/CArray.h"

class CVSCENE_API CVMFVec2f : public CVMField {
    DECLARE_DYNAMIC(CVMFVec2f)
public:
    CVMFVec2f();
    ~CVMFVec2f() override = default;

    // Append one point; return 1.
    int Add(float x, float y);
    int Add(const Point2fStruct& value);
    // "x y" with any run of blanks, tabs, line ends and commas between the
    // numbers; components the text does not supply are 0.
    int Add(const char* text);

    void SetAt(int i, float x, float y);
    void SetAt(int i, const Point2fStruct& value);
    // Inside the list the points from i move up by one.
    void InsertAt(int i, float x, float y);
    void InsertAt(int i, const Point2fStruct& value);
    // Frees the storage.
    void RemoveAll();
    void Clone(const CVMFVec2f& other);

    const Point2fStruct& operator[](int i) const;
    LONGLONG GetNum() const override;
    void SetSize(LONGLONG n, int growBy) override;

protected:
    CArray<Point2fStruct, const Point2fStruct&> m_aValues;
};
