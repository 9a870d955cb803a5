#include "platform/CVGdiBrush.h"

#include "platform/CVGdiHandleTable.h"

#include <cstring>

uintptr_t CVGdiBrush::GetDefault() {
    static const uintptr_t handle =
        CVGdiHandleTable::Add(std::make_unique<CVGdiBrush>(RGB(255, 255, 255)), 1);
    return handle;
}

DWORD CVGdiBrush::GetObjectType() const { return OBJ_BRUSH; }

int CVGdiBrush::GetObjectInfo(int size, void* out) const {
    if (!out) return (int)sizeof(LOGBRUSH);
    if (size < (int)sizeof(LOGBRUSH)) return 0;
    LOGBRUSH lb{BS_SOLID, m_color, 0};
    std::memcpy(out, &lb, sizeof lb);
    return (int)sizeof(LOGBRUSH);
}
