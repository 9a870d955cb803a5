#include "platform/CVGdiPalette.h"

#include "platform/CVGdiHandleTable.h"

#include <algorithm>
#include <cstring>

namespace {
// The twenty colours every palette device reserves.
const PALETTEENTRY kStaticColors[20] = {
    {0, 0, 0, 0},       {128, 0, 0, 0},     {0, 128, 0, 0},     {128, 128, 0, 0},
    {0, 0, 128, 0},     {128, 0, 128, 0},   {0, 128, 128, 0},   {192, 192, 192, 0},
    {192, 220, 192, 0}, {166, 202, 240, 0}, {255, 251, 240, 0}, {160, 160, 164, 0},
    {128, 128, 128, 0}, {255, 0, 0, 0},     {0, 255, 0, 0},     {255, 255, 0, 0},
    {0, 0, 255, 0},     {255, 0, 255, 0},   {0, 255, 255, 0},   {255, 255, 255, 0},
};
}  // namespace

std::unique_ptr<CVGdiPalette> CVGdiPalette::Create(const LOGPALETTE* palette) {
    if (!palette || palette->palVersion != 0x300) return nullptr;
    if (palette->palNumEntries < 1 || palette->palNumEntries > 1024) return nullptr;
    std::unique_ptr<CVGdiPalette> pal(new CVGdiPalette);
    pal->m_entries.assign(palette->palPalEntry, palette->palPalEntry + palette->palNumEntries);
    return pal;
}

uintptr_t CVGdiPalette::GetDefault() {
    static const uintptr_t handle = [] {
        std::unique_ptr<CVGdiPalette> pal(new CVGdiPalette);
        pal->m_entries.assign(kStaticColors, kStaticColors + 20);
        return CVGdiHandleTable::Add(std::move(pal), 1);
    }();
    return handle;
}

DWORD CVGdiPalette::GetObjectType() const { return OBJ_PAL; }

int CVGdiPalette::GetObjectInfo(int size, void* out) const {
    if (!out) return (int)sizeof(WORD);
    if (size < (int)sizeof(WORD)) return 0;
    WORD n = (WORD)m_entries.size();
    std::memcpy(out, &n, sizeof n);
    return (int)sizeof(WORD);
}

UINT CVGdiPalette::GetEntries(UINT start, UINT count, PALETTEENTRY* out) const {
    if (!out) return GetEntryCount();
    if (start >= m_entries.size()) return 0;
    UINT n = std::min<UINT>(count, GetEntryCount() - start);
    std::copy(m_entries.begin() + start, m_entries.begin() + start + n, out);
    return n;
}
