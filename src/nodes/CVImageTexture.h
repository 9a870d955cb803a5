#pragma once
// A texture loaded from the image file named by url[0]. The image is made a
// square power-of-two texture: scaled (tile mode below 1) or tiled from its
// top-left corner into the square (tile mode 1 and above; mode 2 always
// gives 512). The side is the largest power of two not above the image's
// longer side, kept between 64 and 512.
//
// Names are used as they stand when they are UNC ("\\\\..."), "//" or drive
// ("x:...") paths; any other name is resolved with CVGetURLTextureSearchPath
// with the render area's host interface, which may download it.
//
// Loaded textures live in the render area's texture cache, one element per
// name and tile mode, shared by every image texture naming the same image.
// Render loads on first use, reloads when the area's mipmapping setting
// differs from the one the element was loaded with, and releases this node's
// element when url[0] or the tile mode changes. Nothing is drawn or bound
// while texturing is off in the area or during identification walks
// (picking, image maps, searches).
//
// A missing or unreadable image binds an empty texture and sets the loaded
// flag to 0, which makes the appearance fall back to the material.
//
// Hazards: the loader sets GL_UNPACK_ALIGNMENT to 1 and leaves it so. A name
// change releases the old texture only in the area being drawn; other areas
// the node was drawn in keep it, as they keep the elements of a destroyed
// node, until the area goes (nodes make no GL calls when destroyed).
#include "../platform/CVExport.h"
#include "../core/CVMFString.h"
#include "CVTexture.h"
#include "CVTextureCacheElement.h"

class CVSCENE_API CVImageTexture : public CVTexture {
    DECLARE_DYNAMIC(CVImageTexture)
public:
    CVImageTexture() = default;

    // Binds this node's texture (loading it first when needed), copies its
    // loaded flag, then sets the wrap modes.
    void Render(CVState* state, CVGLRenderArea* area) override;

    CVMFString url;  // only element 0 is used

protected:
    // Reads the element's image into its texture object with the area's
    // mipmapping setting; sets the element's loaded flag.
    void LoadTexture(CVTextureCacheElement* element, CVGLRenderArea* area);

    // The name and tile mode of the element this node last used.
    CString m_strImageName;
    int m_nImageTileMode = 0;
    int m_bHasImage = 0;
};
