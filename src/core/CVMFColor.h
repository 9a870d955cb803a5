#pragma once
// Growable list of RGBA colours, floats 0..1 (field type 282), empty after
// construction, growing 25 elements at a time. The single colour field holds
// RGB instead. Index rules: see CVMField.
#include "../platform/CVExport.h"
#include "CVMField.h"
#include "../math/CVStructs.h"
#include "../platform/CArray.h"

class CVSCENE_API CVMFColor : public CVMField {
    DECLARE_DYNAMIC(CVMFColor)
public:
    CVMFColor();
    ~CVMFColor() override = default;

    // Append one colour; return 1.
    int Add(float r, float g, float b, float a);
    int Add(const RGBAColorStruct& value);
    // Hazard: the text order is "a r g b", alpha first, separated by any run
    // of blanks, tabs, line ends and commas; components the text does not
    // supply are 0.
    int Add(const char* text);

    void SetAt(int i, const RGBAColorStruct& value);
    void SetAt(int i, float r, float g, float b, float a);
    // Inside the list the colours from i move up by one.
    void InsertAt(int i, const RGBAColorStruct& value);
    void InsertAt(int i, float r, float g, float b, float a);
    // Frees the storage.
    void RemoveAll();
    void Clone(const CVMFColor& other);

    const RGBAColorStruct& operator[](int i) const;
    LONGLONG GetNum() const override;
    void SetSize(LONGLONG n, int growBy) override;

protected:
    CArray<RGBAColorStruct, const RGBAColorStruct&> m_aValues;
};
