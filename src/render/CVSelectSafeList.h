#pragma once
// Opening the primitive blocks of a cached display list so that the list can
// also be replayed in GL_SELECT mode.
//
// The workaround of CVMesaQuirk::SelectListMixedBlocksCrash: a state call
// outside glBegin/glEnd between blocks keeps the list compiler from merging
// them, and the list is then safe in GL_SELECT mode. Every block of the cone
// and cylinder lists is opened here, which sets the block's first normal
// outside it (inside it where the driver has no such quirk).
class CVSelectSafeList {
public:
    // glNormal3f(nx, ny, nz) outside the block, then glBegin(mode). The caller
    // issues the vertices and glEnd as usual.
    static void BeginBlock(unsigned int mode, float nx, float ny, float nz);
};
