#pragma once
// Opening the primitive blocks of a cached display list so that the list can
// also be replayed in GL_SELECT mode.
//
// Mesa 22.3 (Debian 12, llvmpipe): glCallList in GL_SELECT mode crashes inside
// the driver when the list holds three or more glBegin/glEnd blocks of mixed
// primitive types with nothing between them (the compiler merges them into one
// vertex list; a triangle strip followed by two polygons is enough, which is
// a cylinder). A state call outside glBegin/glEnd between the blocks keeps them
// apart and the list safe. Every block of the cone and cylinder lists
// is therefore opened here, which sets the block's first normal outside it.
class CVSelectSafeList {
public:
    // glNormal3f(nx, ny, nz) outside the block, then glBegin(mode). The caller
    // issues the vertices and glEnd as usual.
    static void BeginBlock(unsigned int mode, float nx, float ny, float nz);
};
