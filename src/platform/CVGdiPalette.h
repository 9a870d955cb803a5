#pragma once
// A logical palette (HPALETTE). The stock default palette holds the twenty
// static colours; CreatePalette copies the host's entries.
#include "CVGdiObject.h"
#include "WinGDI.h"

#include <memory>
#include <vector>

class CVGdiPalette : public CVGdiObject {
public:
    // Null unless palVersion is 0x300 and there are 1 to 1024 entries.
    static std::unique_ptr<CVGdiPalette> Create(const LOGPALETTE* palette);
    // The stock DEFAULT_PALETTE handle (created on first use).
    static uintptr_t GetDefault();

    DWORD GetObjectType() const override;
    // GetObjectW writes the entry count as a WORD.
    int GetObjectInfo(int size, void* out) const override;

    UINT GetEntryCount() const { return (UINT)m_entries.size(); }
    // Copies entries [start, start + count) clipped to the palette; returns the
    // number copied, or the entry count when out is null.
    UINT GetEntries(UINT start, UINT count, PALETTEENTRY* out) const;
    const PALETTEENTRY& GetEntry(UINT index) const { return m_entries[index]; }

private:
    std::vector<PALETTEENTRY> m_entries;
};
