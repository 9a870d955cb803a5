#pragma once
// Base of the texture nodes an appearance holds: the wrap modes, the tile
// mode geometry asks about (IsTiled) and the loader uses, the loaded flag the
// appearance tests before trusting the texture, and the colour the
// appearance's material takes when the texture is not usable.
//
// Render only sets the wrap modes of whatever texture is bound; image
// textures bind their own before calling it.
#include "../platform/CVExport.h"
#include "../core/CVNode.h"
#include "../core/CVSFBool.h"
#include "../math/CVStructs.h"

class CVSCENE_API CVTexture : public CVNode {
    DECLARE_DYNAMIC(CVTexture)
public:
    CVTexture();

    // GL_TEXTURE_WRAP_S/T of GL_TEXTURE_2D: GL_REPEAT or GL_CLAMP.
    void Render(CVState* state, CVGLRenderArea* area) override;

    // Above 0 the image is tiled into its square instead of scaled; the value
    // is the tile mode handed to the loader (2: always a 512 square).
    int SetTiled(int mode) { m_nTileMode = mode; return 1; }
    int IsTiled() const { return m_nTileMode > 0; }
    int GetTileMode() const { return m_nTileMode; }
    // 1 while the texture can be drawn; image textures overwrite it with the
    // outcome of their last load.
    int SetTextureRendered(int loaded) { m_bTextureRendered = loaded; return 1; }
    int GetTextureRendered() const { return m_bTextureRendered; }
    int SetFallBackColor(const RGBColorStruct& color) { m_FallBackColor = color; return 1; }
    const RGBColorStruct& GetFallBackColor() const { return m_FallBackColor; }

    // Membership in the power-of-two table, scanned upwards from 1 and
    // stopping at the first larger entry. Hazard: the table ends with 4098,
    // not 4096, so 4096 is not a power of two here and 4098 is.
    static int IsPowerOfTwo(int n);
    // The largest table entry not above n; 0 for n < 1.
    static int GetClosestPowerOfTwo(int n);

    static const int m_powerOfTwoTable[14];

    CVSFBool repeatS;  // TRUE
    CVSFBool repeatT;  // TRUE

protected:
    int m_nTileMode = 0;
    int m_bTextureRendered = 1;
    RGBColorStruct m_FallBackColor = {1.0f, 1.0f, 1.0f};
};
