#include "platform/CPalette.h"

#include <map>
#include <memory>

IMPLEMENT_DYNAMIC(CPalette, CObject)

namespace {
thread_local std::map<HPALETTE, std::unique_ptr<CPalette>> t_temps;
}  // namespace

CPalette::~CPalette() { DeleteObject(); }

CPalette* CPalette::FromHandle(HPALETTE palette) {
    if (!palette) return nullptr;
    std::unique_ptr<CPalette>& slot = t_temps[palette];
    if (!slot) {
        slot = std::make_unique<CPalette>();
        slot->m_hObject = palette;
    }
    return slot.get();
}

void CPalette::DeleteTempMap() {
    for (auto& entry : t_temps) entry.second->Detach();
    t_temps.clear();
}

BOOL CPalette::CreatePalette(const LOGPALETTE* palette) {
    if (m_hObject) return FALSE;
    return Attach(::CreatePalette(palette));
}

BOOL CPalette::Attach(HPALETTE palette) {
    if (m_hObject || !palette) return FALSE;
    m_hObject = palette;
    return TRUE;
}

HPALETTE CPalette::Detach() {
    HPALETTE h = m_hObject;
    m_hObject = nullptr;
    return h;
}

BOOL CPalette::DeleteObject() {
    if (!m_hObject) return FALSE;
    return ::DeleteObject(Detach());
}

int CPalette::GetEntryCount() const {
    WORD n = 0;
    return m_hObject && ::GetObjectW(m_hObject, sizeof n, &n) ? n : 0;
}

UINT CPalette::GetPaletteEntries(UINT start, UINT count, PALETTEENTRY* entries) const {
    return ::GetPaletteEntries(m_hObject, start, count, entries);
}
