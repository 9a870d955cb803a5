#pragma once
// An image: width, height, number of components per pixel and a pixel
// pointer (field type 274). Empty after construction (zero sizes, null
// pixels); the field offers no setter and does not own the pixels.
#include "../platform/CVExport.h"
#include "CVSField.h"

class CVSCENE_API CVSFImage : public CVSField {
    DECLARE_DYNAMIC(CVSFImage)
public:
    CVSFImage();
    ~CVSFImage() override = default;

    int GetWidth() const { return m_nWidth; }
    int GetHeight() const { return m_nHeight; }
    int GetNumComponents() const { return m_nNumComponents; }
    void* GetPixels() { return m_pPixels; }
    const void* GetPixels() const { return m_pPixels; }
    // Does nothing: images are never copied between fields.
    void Clone(const CVSFImage& other);

protected:
    int m_nWidth = 0;
    int m_nHeight = 0;
    int m_nNumComponents = 0;
    void* m_pPixels = nullptr;
};
