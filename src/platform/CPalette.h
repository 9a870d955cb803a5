#pragma once
// Framework wrapper over a palette handle. Owns what it holds: the destructor
// and DeleteObject delete the palette; Detach gives it up. FromHandle makes a
// temporary, non-owning wrapper that lives until DeleteTempMap (per thread).
#include "CVExport.h"
#include "CObject.h"
#include "WinGDI.h"

class CVSCENE_API CPalette : public CObject {
    DECLARE_DYNAMIC(CPalette)
public:
    CPalette() = default;
    ~CPalette() override;
    CPalette(const CPalette&) = delete;
    CPalette& operator=(const CPalette&) = delete;

    static CPalette* FromHandle(HPALETTE palette);
    static void DeleteTempMap();

    // Fails when the wrapper already holds a palette or the entries are refused.
    BOOL CreatePalette(const LOGPALETTE* palette);
    BOOL Attach(HPALETTE palette);
    HPALETTE Detach();
    BOOL DeleteObject();

    HPALETTE GetSafeHandle() const { return m_hObject; }
    operator HPALETTE() const { return m_hObject; }
    int GetEntryCount() const;
    UINT GetPaletteEntries(UINT start, UINT count, PALETTEENTRY* entries) const;

    HPALETTE m_hObject = nullptr;
};
