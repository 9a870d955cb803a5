#include "actions/CVRenderToDIBAction.h"

#include <memory>
#include <vector>

#include "render/CVBitmapDevice.h"
#include "render/CVGLRenderArea.h"

IMPLEMENT_DYNAMIC(CVRenderToDIBAction, CVRenderAction)

namespace {

HDC Handle(CDC* dc) { return dc ? dc->GetSafeHdc() : nullptr; }

// A memory DC with a bitmap of its own, both deleted when it goes.
class ScratchDC {
public:
    ScratchDC(HDC compatible, HBITMAP bitmap) : m_hBitmap(bitmap) {
        m_hDC = CreateCompatibleDC(compatible);
        if (m_hDC && m_hBitmap) m_hOld = SelectObject(m_hDC, m_hBitmap);
    }
    ~ScratchDC() {
        if (m_hOld) SelectObject(m_hDC, m_hOld);
        if (m_hDC) DeleteDC(m_hDC);
        if (m_hBitmap) DeleteObject(m_hBitmap);
    }
    ScratchDC(const ScratchDC&) = delete;
    ScratchDC& operator=(const ScratchDC&) = delete;

    operator HDC() const { return m_hDC; }

private:
    HBITMAP m_hBitmap;
    HDC m_hDC = nullptr;
    HGDIOBJ m_hOld = nullptr;
};

}  // namespace

// The base gets its area once the bitmap exists; Init then takes the area's
// viewport as the action's, as constructing over the device would have.
CVRenderToDIBAction::CVRenderToDIBAction(HDC hdc)
    : CVRenderAction(static_cast<CVGLRenderArea*>(nullptr)), m_hDC(hdc) {
    std::unique_ptr<CVBitmapDevice> device;
    try {
        device.reset(CreateDevice(hdc));
    } catch (...) {
        delete m_pDIB;
        throw;
    }
    SetRenderArea(new CVGLRenderArea(device.get()));
    Init();
}

CVRenderToDIBAction::~CVRenderToDIBAction() {
    // The context goes before the DC it was made on.
    ReleaseRenderArea();
    delete m_pDIB;
}

CVBitmapDevice* CVRenderToDIBAction::CreateDevice(HDC hdc) {
    if (!m_pDIB) m_pDIB = new CSimpleDIB;
    m_pDIB->Create(32, 32, hdc);
    return new CVBitmapDevice(m_pDIB->GetDC());
}

void CVRenderToDIBAction::ReleaseRenderArea() {
    if (m_pRenderArea && m_pRenderArea->GetLightNode() == &m_Headlight) m_pRenderArea->SetLightNode(nullptr);
    SetRenderArea(nullptr);
}

int CVRenderToDIBAction::SetViewport(int x, int y, int w, int h) {
    int cx, cy, cw, ch;
    GetViewport(cx, cy, cw, ch);
    if (m_pRenderArea && x == cx && y == cy && w == cw && h == ch) return 1;
    ReleaseRenderArea();
    m_pDIB->Create(w, h, m_hDC);
    CVBitmapDevice device(m_pDIB->GetDC());
    CVGLRenderArea* area = new CVGLRenderArea(&device);
    SetRenderArea(area);
    area->SetRenderAreaToBitmap(1);
    return CVRenderAction::SetViewport(x, y, w, h);
}

BOOL CVRenderToDIBAction::SaveToDIBFile(const CString& fileName) const { return m_pDIB->Save(fileName); }

BOOL CVRenderToDIBAction::BitBlt(CDC* dc, int x, int y) {
    return ::BitBlt(Handle(dc), x, y, m_pDIB->GetWidth(), m_pDIB->GetHeight(), m_pDIB->GetDC(), 0, 0, SRCCOPY);
}

BOOL CVRenderToDIBAction::BitBlt(CDC* dc, int x, int y, int w, int h, int srcX, int srcY) {
    return ::BitBlt(Handle(dc), x, y, w, h, m_pDIB->GetDC(), srcX, srcY, SRCCOPY);
}

BOOL CVRenderToDIBAction::StretchBlt(CDC* dc, int x, int y, int w, int h, int srcX, int srcY, int srcW, int srcH) {
    return ::StretchBlt(Handle(dc), x, y, w, h, m_pDIB->GetDC(), srcX, srcY, srcW, srcH, SRCCOPY);
}

void CVRenderToDIBAction::TransparentBlt(CDC* dc, int x, int y, int w, int h, int srcX, int srcY, int srcW,
                                         int srcH, unsigned long transparentColor) {
    HDC source = m_pDIB->GetDC();
    HDC target = Handle(dc);
    ScratchDC mask(source, CreateBitmap(srcW, srcH, 1, 1, nullptr));
    ScratchDC image(source, CreateCompatibleBitmap(source, srcW, srcH));
    ScratchDC work(source, CreateCompatibleBitmap(source, srcW, srcH));

    // Colour to mono: pixels of the background colour become 1.
    const COLORREF oldBk = SetBkColor(source, (COLORREF)transparentColor);
    ::BitBlt(mask, 0, 0, srcW, srcH, source, srcX, srcY, SRCCOPY);
    SetBkColor(source, oldBk);
    ::BitBlt(image, 0, 0, srcW, srcH, source, srcX, srcY, SRCCOPY);

    // Black out the transparent pixels of the picture.
    ::BitBlt(work, 0, 0, srcW, srcH, mask, 0, 0, NOTSRCCOPY);
    ::BitBlt(image, 0, 0, srcW, srcH, work, 0, 0, SRCAND);
    ::BitBlt(work, 0, 0, srcW, srcH, mask, 0, 0, SRCCOPY);

    // The mask goes to the origin, not to (x, y): long-standing behaviour
    // that hosts compensate for, kept on purpose.
    ::StretchBlt(target, 0, 0, w, h, work, 0, 0, srcW, srcH, SRCAND);
    ::StretchBlt(target, x, y, w, h, image, 0, 0, srcW, srcH, SRCPAINT);
}

void CVRenderToDIBAction::SetPalette(CPalette* palette) {
    if (!palette) return;
    const int count = palette->GetEntryCount();
    if (count <= 0) return;
    std::vector<PALETTEENTRY> entries(count);
    palette->GetPaletteEntries(0, (UINT)count, entries.data());
    std::vector<RGBQUAD> table(count);
    for (int i = 0; i < count; ++i) table[i] = RGBQUAD{entries[i].peBlue, entries[i].peGreen, entries[i].peRed, 0};
    SetDIBColorTable(m_pDIB->GetDC(), 0, (UINT)count, table.data());
}
