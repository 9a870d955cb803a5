// The DIB render action: its bitmap and render area across viewport changes,
// a rendered frame saved and read back, the copies to a DC and the palette.
#include <gtest/gtest.h>

#include <GL/gl.h>

#include <string>
#include <vector>

#include "library/CVLibrary.h"
#include "nodes/CVGroup.h"
#include "actions/CVRenderToDIBAction.h"
#include "geometry/CVGeometry.h"
#include "geometry/CVShape.h"
#include "platform/CVImageFile.h"
#include "render/CVGLRenderArea.h"
#include "support/CVTestBitmap.h"
#include "support/CVTestFiles.h"

namespace {

// A rectangle in normalised device coordinates, in the current colour.
class Rect : public CVGeometry {
public:
    Rect(float x0, float y0, float x1, float y1) : m_x0(x0), m_y0(y0), m_x1(x1), m_y1(y1) {}
    void Render(CVState*, CVGLRenderArea*, CVAppearance*) override { glRectf(m_x0, m_y0, m_x1, m_y1); }

private:
    float m_x0, m_y0, m_x1, m_y1;
};

class CVRenderToDIBActionGLTest : public ::testing::Test {
protected:
    CVRenderToDIBActionGLTest() : reference(1, 1) { CVGLRenderArea::SetInflateWorld(0); }
    ~CVRenderToDIBActionGLTest() override { CVLibrary::ResetSettings(); }

    // A group holding one shape with a rectangle over the middle of the view.
    static CVGroup* Scene() {
        CVGroup* root = new CVGroup;
        CVShape* shape = new CVShape;
        shape->geometry.SetValue(new Rect(-0.5f, -0.5f, 0.5f, 0.5f));
        root->children.Add(shape);
        root->Ref();
        return root;
    }
    // Paints the bitmap: left half in key, right half in other.
    static void Paint(CVRenderToDIBAction& action, COLORREF key, COLORREF other) {
        HDC dc = action.GetSimpleDIB()->GetDC();
        const int w = action.GetSimpleDIB()->GetWidth(), h = action.GetSimpleDIB()->GetHeight();
        for (int half = 0; half < 2; ++half) {
            HBRUSH brush = CreateSolidBrush(half ? other : key);
            RECT rc{half * w / 2, 0, (half + 1) * w / 2, h};
            FillRect(dc, &rc, brush);
            DeleteObject(brush);
        }
    }

    CVTestBitmap reference;
};

TEST_F(CVRenderToDIBActionGLTest, SizeChangesMakeANewAreaWithDefaults) {
    CVRenderToDIBAction action(reference.GetDC());
    EXPECT_EQ(action.GetSimpleDIB()->GetWidth(), 32);
    EXPECT_EQ(action.GetSimpleDIB()->GetHeight(), 32);
    ASSERT_NE(action.GetRenderArea(), nullptr);

    action.SetViewport(0, 0, 48, 24);
    CVGLRenderArea* first = action.GetRenderArea();
    first->Ref();  // keeps its address from being reused
    EXPECT_EQ(first->RenderAreaIsBitmap(), 1);
    EXPECT_EQ(action.GetSimpleDIB()->GetWidth(), 48);
    first->SetDropShadowsEnabled(1);
    first->SetTexturingEnabled(0);

    EXPECT_EQ(action.SetViewport(0, 0, 48, 24), 1);
    EXPECT_EQ(action.GetRenderArea(), first);
    EXPECT_EQ(first->IsDropShadowsEnabled(), 1);

    action.SetViewport(0, 0, 20, 10);
    CVGLRenderArea* second = action.GetRenderArea();
    EXPECT_NE(second, first);
    EXPECT_EQ(first->GetRef(), 1);  // only ours is left
    EXPECT_EQ(second->IsDropShadowsEnabled(), 0);
    EXPECT_EQ(second->IsTexturingEnabled(), 1);
    EXPECT_EQ(second->RenderAreaIsBitmap(), 1);
    EXPECT_EQ(action.GetSimpleDIB()->GetWidth(), 20);
    EXPECT_EQ(action.GetSimpleDIB()->GetHeight(), 10);
    int x, y, w, h;
    action.GetViewport(x, y, w, h);
    EXPECT_EQ(std::make_pair(w, h), std::make_pair(20, 10));
    first->Unref();
}

TEST_F(CVRenderToDIBActionGLTest, RenderedFrameSavesAsPNGAndBMPPixelForPixel) {
    cvtest::TempDir dir;
    CVRenderToDIBAction action(reference.GetDC());
    action.SetViewport(0, 0, 64, 48);
    action.SetClearColor(0.0f, 0.0f, 1.0f, 1.0f);
    CVGroup* root = Scene();
    ASSERT_EQ(action.Apply(root), 1);
    const std::vector<BYTE> first = cvtest::DIBBytes(*action.GetSimpleDIB());
    ASSERT_EQ(action.Apply(root), 1);
    EXPECT_TRUE(first == cvtest::DIBBytes(*action.GetSimpleDIB())) << "the second frame differs from the first";
    root->Unref();

    CSimpleDIB* dib = action.GetSimpleDIB();
    // The shape is drawn in the shape's default grey over the GDI background.
    EXPECT_EQ(GetPixel(dib->GetDC(), 32, 24), RGB(204, 204, 204));
    EXPECT_EQ(GetPixel(dib->GetDC(), 2, 2), RGB(0, 0, 255));
    for (const char* name : {"frame.png", "frame.bmp"}) {
        const std::string path = dir / name;
        ASSERT_TRUE(action.SaveToDIBFile(CString(path.c_str()))) << name;
        CVImageFile back;
        ASSERT_TRUE(back.Read(CString(path.c_str()))) << name;
        ASSERT_EQ(back.GetWidth(), 64);
        ASSERT_EQ(back.GetHeight(), 48);
        for (int y = 0; y < 48; ++y)
            for (int x = 0; x < 64; ++x) {
                const COLORREF c = GetPixel(dib->GetDC(), x, y);
                ASSERT_EQ(back.GetPixel(x, y), 0xFF000000u | GetRValue(c) << 16 | GetGValue(c) << 8 | GetBValue(c))
                    << name << " " << x << "," << y;
            }
    }
}

TEST_F(CVRenderToDIBActionGLTest, CopiesPlainAndStretched) {
    CVRenderToDIBAction action(reference.GetDC());
    action.SetViewport(0, 0, 8, 8);
    Paint(action, RGB(255, 0, 0), RGB(0, 255, 0));
    CVTestBitmap target(32, 32);
    CDC dc;
    dc.Attach(target.GetDC());
    ASSERT_TRUE(action.BitBlt(&dc, 2, 3));
    EXPECT_EQ(GetPixel(target.GetDC(), 2, 3), RGB(255, 0, 0));
    EXPECT_EQ(GetPixel(target.GetDC(), 9, 10), RGB(0, 255, 0));
    EXPECT_EQ(GetPixel(target.GetDC(), 10, 3), RGB(0, 0, 0));  // outside the 8 x 8 copy
    ASSERT_TRUE(action.BitBlt(&dc, 20, 0, 2, 2, 6, 0));
    EXPECT_EQ(GetPixel(target.GetDC(), 20, 0), RGB(0, 255, 0));
    ASSERT_TRUE(action.StretchBlt(&dc, 0, 16, 16, 16, 0, 0, 8, 8));
    EXPECT_EQ(GetPixel(target.GetDC(), 7, 31), RGB(255, 0, 0));
    EXPECT_EQ(GetPixel(target.GetDC(), 8, 16), RGB(0, 255, 0));
    dc.Detach();
    EXPECT_FALSE(action.BitBlt(nullptr, 0, 0));
    EXPECT_FALSE(action.StretchBlt(nullptr, 0, 0, 4, 4, 0, 0, 8, 8));
}

TEST_F(CVRenderToDIBActionGLTest, TransparentBltMasksAtTheDestinationOrigin) {
    const COLORREF key = RGB(255, 0, 255), blue = RGB(0, 0, 255), grey = RGB(128, 128, 128);
    CVRenderToDIBAction action(reference.GetDC());
    action.SetViewport(0, 0, 20, 20);
    Paint(action, key, blue);  // columns 0-9 transparent, 10-19 blue
    CVTestBitmap target(64, 64);
    HDC t = target.GetDC();
    HBRUSH brush = CreateSolidBrush(grey);
    RECT all{0, 0, 64, 64};
    FillRect(t, &all, brush);
    DeleteObject(brush);

    CDC dc;
    dc.Attach(t);
    action.TransparentBlt(&dc, 10, 10, 20, 20, 0, 0, 20, 20, key);
    dc.Detach();
    struct Probe {
        int x, y;
        COLORREF want;
        const char* why;
    } probes[] = {
        {15, 5, RGB(0, 0, 0), "origin area under an opaque pixel is masked"},
        {5, 5, grey, "origin area under a transparent pixel keeps the destination"},
        {15, 15, RGB(0, 0, 0), "the hole at the origin shows through a transparent pixel of the copy"},
        {25, 25, RGB(128, 128, 255), "the copy is ORed onto the destination at (x, y)"},
        {15, 25, grey, "transparent pixels of the copy leave the destination"},
        {40, 40, grey, "outside both"},
    };
    for (const Probe& p : probes) EXPECT_EQ(GetPixel(t, p.x, p.y), p.want) << p.why;
}

TEST_F(CVRenderToDIBActionGLTest, SetPaletteWritesTheColourTable) {
    // An 8-bit reference gives an indexed bitmap (GL cannot draw there; the
    // palette is what such a host uses it for).
    std::vector<BYTE> info(sizeof(BITMAPINFOHEADER) + 256 * sizeof(RGBQUAD));
    *reinterpret_cast<BITMAPINFOHEADER*>(info.data()) = BITMAPINFOHEADER{40, 4, 4, 1, 8, BI_RGB, 0, 0, 0, 0, 0};
    HDC reference8 = CreateCompatibleDC(nullptr);
    void* bits = nullptr;
    HBITMAP section = CreateDIBSection(reference8, reinterpret_cast<BITMAPINFO*>(info.data()), DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ old = SelectObject(reference8, section);
    {
        CVRenderToDIBAction action(reference8);
        ASSERT_EQ(action.GetSimpleDIB()->GetBitCount(), 8);
        struct {
            WORD version, count;
            PALETTEENTRY entries[3];
        } lp{0x300, 3, {{10, 20, 30, 0}, {200, 100, 50, 4}, {1, 2, 3, 0}}};
        CPalette palette;
        ASSERT_TRUE(palette.CreatePalette(reinterpret_cast<LOGPALETTE*>(&lp)));
        action.SetPalette(&palette);
        action.SetPalette(nullptr);
        RGBQUAD table[3] = {};
        ASSERT_EQ(GetDIBColorTable(action.GetSimpleDIB()->GetDC(), 0, 3, table), 3u);
        EXPECT_EQ((std::vector<int>{table[1].rgbRed, table[1].rgbGreen, table[1].rgbBlue, table[1].rgbReserved,
                                    table[2].rgbBlue}),
                  (std::vector<int>{200, 100, 50, 0, 3}));  // flags are not carried over
    }
    SelectObject(reference8, old);
    DeleteObject(section);
    DeleteDC(reference8);
}

}  // namespace
