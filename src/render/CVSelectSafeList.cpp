#include "render/CVSelectSafeList.h"

#include <GL/gl.h>

#include "platform/CVMesaQuirks.h"

void CVSelectSafeList::BeginBlock(unsigned int mode, float nx, float ny, float nz) {
    // The normal is the separator: it is recorded as its own list node, so the
    // driver never merges this block with the previous one.
    if (!CVMesaQuirks::Applies(CVMesaQuirk::SelectListMixedBlocksCrash)) {
        glBegin(mode);
        glNormal3f(nx, ny, nz);
        return;
    }
    glNormal3f(nx, ny, nz);
    glBegin(mode);
}
