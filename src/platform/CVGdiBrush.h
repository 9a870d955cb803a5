#pragma once
// A solid brush (HBRUSH). Its colour is matched to the destination's pixel
// format when it is drawn (nearest colour on palette and mono bitmaps).
#include "CVGdiObject.h"
#include "WinGDI.h"

#include <memory>

class CVGdiBrush : public CVGdiObject {
public:
    explicit CVGdiBrush(COLORREF color) : m_color(color & 0x00FFFFFF) {}
    // The stock WHITE_BRUSH a new DC starts with.
    static uintptr_t GetDefault();

    DWORD GetObjectType() const override;
    // GetObjectW writes a LOGBRUSH (BS_SOLID).
    int GetObjectInfo(int size, void* out) const override;

    COLORREF GetColor() const { return m_color; }

private:
    COLORREF m_color;
};
