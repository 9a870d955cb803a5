#include "geometry/CVGeometry.h"

#include <cstring>

IMPLEMENT_DYNAMIC(CVGeometry, CVNode)

int CVGeometry::SetModifiedFlag(int on) {
    m_nFlags &= ~kCached;
    return Set(kModified, on);
}

int CVGeometry::SetStippleIndex(unsigned short index) {
    m_nStipple = (unsigned short)((m_nStipple & 0xFF00) | (index ? 1 : 0));
    return 1;
}

int CVGeometry::SetStipplePercent(unsigned short percent) {
    m_nStipple = (unsigned short)((m_nStipple & 0x00FF) | ((percent & 0xFF) << 8));
    return 1;
}

int CVGeometry::IsLineGeometry() const {
    // Matched by class name so that the line set needs no hook of its own.
    for (const CRuntimeClass* c = GetRuntimeClass(); c; c = c->GetBaseClass())
        if (std::strcmp(c->m_lpszClassName, "CVIndexedLineSet") == 0) return 1;
    return 0;
}
