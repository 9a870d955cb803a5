#include "core/CVRefCount.h"

IMPLEMENT_DYNAMIC(CVRefCount, CVBase)

void CVRefCount::Unref() {
    if (--m_nRef == 0) delete this;
}
