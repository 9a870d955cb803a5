#pragma once
// The background of a frame drawn into a bitmap, painted with GDI before GL
// draws: by fill style, 1 a stepped gradient of two-pixel strips, 2 to 4 an
// image (only while texturing is on; 3 and 4, and images with alpha, are
// ANDed with the clear colour), anything else the clear colour. An image that
// cannot be loaded, has a zero side, or an empty name falls back to the clear
// colour.
//
// Images are named by file (resolved with CVGetURLTextureSearchPath unless the
// name is a UNC, "//" or drive path) and loaded once per name. The name
// "HBITMAP:" followed by a handle's decimal value hands a host bitmap over
// instead; the painter then owns it. The loaded bitmap is deleted when
// another name replaces it and with the painter.
//
// The render action holds one and forwards its background setters to it.
#include "../platform/CVExport.h"
#include "../math/CVStructs.h"
#include "../platform/CString.h"
#include "../platform/IUnknown.h"
#include "../platform/WinGDI.h"

class CVSCENE_API CVBackgroundPainter {
public:
    // What the frame's target says about painting.
    struct Target {
        RGBAColorStruct clear;  // the clear colour, for fills and MERGECOPY
        float globalScale;      // the area's global scale factor
        int texturing;          // images only while texturing is on
        IUnknown* resolver;     // handed to CVGetURLTextureSearchPath
    };

    CVBackgroundPainter() = default;
    CVBackgroundPainter(const CVBackgroundPainter&) = delete;
    CVBackgroundPainter& operator=(const CVBackgroundPainter&) = delete;
    ~CVBackgroundPainter();

    // rect: left x, top y + h, right x + w, bottom y of the viewport, as GL
    // counts rows; GDI normalises it.
    void Paint(HDC hdc, const RECT& rect, const Target& target);
    // Loads the image named by the file name unless it is held already.
    void LoadImage(IUnknown* resolver);

    HBITMAP GetBitmap() const { return m_hBitmap; }

    int m_nFillStyle = 0;
    CString m_strImageFilename;
    int m_nImageFitStyle = 1;
    int m_nImageOffsetX = 0;
    int m_nImageOffsetY = 0;
    float m_fImageScale = 1.0f;
    int m_nGradientType = 7;
    RGBAColorStruct m_StartGradientColor = {0.0f, 0.0f, 0.0f, 1.0f};
    RGBAColorStruct m_EndGradientColor = {1.0f, 1.0f, 1.0f, 1.0f};

private:
    void PaintGradient(HDC hdc, const RECT& rect) const;
    // 0 when there is no image to draw.
    int PaintImage(HDC hdc, const RECT& rect, const Target& target);

    CString m_strLoadedImageName;  // the name m_hBitmap was loaded from
    int m_nImageWidth = 0;
    int m_nImageHeight = 0;
    int m_bImageHasAlpha = 0;
    HBITMAP m_hBitmap = nullptr;  // owned
};
