#include <gtest/gtest.h>

#include <GL/gl.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "image/CVImageFile.h"
#include "nodes/CVImageTexture.h"
#include "nodes/CVMaterial.h"
#include "nodes/CVNodeTestSupport.h"
#include "support/CVTestFiles.h"

namespace {

using cvtest::QuadGeometry;

const uint32_t kRed = 0xFFFF0000u, kGreen = 0xFF00FF00u, kBlue = 0xFF0000FFu, kWhite = 0xFFFFFFFFu;

GLint BoundTexture() {
    GLint name = 0;
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &name);
    return name;
}

GLint LevelParameter(int level, GLenum what) {
    GLint v = 0;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, level, what, &v);
    return v;
}

GLint TexParameter(GLenum what) {
    GLint v = 0;
    glGetTexParameteriv(GL_TEXTURE_2D, what, &v);
    return v;
}

// Level 0 of the bound texture as 0xRRGGBB, row 0 at the bottom.
std::vector<uint32_t> Texels() {
    const int w = LevelParameter(0, GL_TEXTURE_WIDTH), h = LevelParameter(0, GL_TEXTURE_HEIGHT);
    std::vector<uint32_t> texels((size_t)w * h);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_BGRA, GL_UNSIGNED_BYTE, texels.data());
    for (uint32_t& t : texels) t &= 0xFFFFFFu;
    return texels;
}

class CVImageTextureGLTest : public cvtest::NodeGLFixture {
protected:
    ~CVImageTextureGLTest() override {
        for (CVNode* n : held) n->Unref();
    }

    // Writes a PNG whose pixel (x, y), y down from the top, is colour(x, y).
    std::string WriteImage(const std::string& name, int w, int h, const std::function<uint32_t(int, int)>& colour) {
        CVImageFile image;
        image.Create(w, h, 0);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) image.SetPixel(x, y, colour(x, y));
        const std::string path = dir / name;
        EXPECT_EQ(image.WritePNG(CString(path.c_str())), 1);
        return path;
    }
    std::string WriteSolid(const std::string& name, int w, int h, uint32_t colour) {
        return WriteImage(name, w, h, [colour](int, int) { return colour; });
    }

    template <class T>
    T* Hold(T* node) {
        node->Ref();
        held.push_back(node);
        return node;
    }
    CVImageTexture* Texture(const std::string& url, int tileMode = 0) {
        auto* t = Hold(new CVImageTexture);
        t->url.Add(url.c_str());
        t->SetTiled(tileMode);
        return t;
    }
    static void SetUrl(CVImageTexture* t, const std::string& url) { t->url.SetAt(0, CString(url.c_str())); }

    CVTextureCacheElement* Element(const std::string& url, int tileMode = 0) {
        return static_cast<CVTextureCacheElement*>(
            area->GetTextureCache()->Find(CVTextureCacheElement::MakeKey(CString(url.c_str()), tileMode)));
    }

    cvtest::TempDir dir;
    CVState state;
    std::vector<CVNode*> held;
};

TEST_F(CVImageTextureGLTest, TexturedQuadShowsTheImageUpright) {
    const std::string path = WriteImage("quadrants.png", 64, 64, [](int x, int y) {
        if (y < 32) return x < 32 ? kRed : kGreen;
        return x < 32 ? kBlue : kWhite;
    });
    auto* material = new CVMaterial;
    material->diffuseColor.SetValue(1.0f, 1.0f, 1.0f);
    auto* appearance = new CVAppearance;
    appearance->material.SetValue(material);
    appearance->texture.SetValue(Texture(path));
    CVGroup* root = Hold(new CVGroup);
    root->children.Add(cvtest::MakeQuadShape(new QuadGeometry, appearance));
    DrawFrame(root);
    EXPECT_EQ(Pixel(16, 48), 0xFF0000u);  // top left
    EXPECT_EQ(Pixel(48, 48), 0x00FF00u);
    EXPECT_EQ(Pixel(16, 16), 0x0000FFu);
    EXPECT_EQ(Pixel(48, 16), 0xFFFFFFu);
}

struct SizeCase {
    const char* name;
    int width, height, tileMode;
    int size;
};

class CVImageTextureSizeGLTest : public CVImageTextureGLTest, public ::testing::WithParamInterface<SizeCase> {};

TEST_P(CVImageTextureSizeGLTest, ImagesBecomeSquarePowerOfTwoTextures) {
    const SizeCase& c = GetParam();
    CVImageTexture* t = Texture(WriteSolid("image.png", c.width, c.height, kGreen), c.tileMode);
    t->Render(&state, area);
    EXPECT_EQ(t->GetTextureRendered(), 1);
    EXPECT_EQ(LevelParameter(0, GL_TEXTURE_WIDTH), c.size);
    EXPECT_EQ(LevelParameter(0, GL_TEXTURE_HEIGHT), c.size);
    EXPECT_EQ(Texels()[(size_t)c.size * c.size / 2], 0x00FF00u);
}

const SizeCase kSizes[] = {
    {"Scaled300x200", 300, 200, 0, 256}, {"Scaled40x30", 40, 30, 0, 64},   {"Scaled2000x100", 2000, 100, 0, 512},
    {"Scaled8x1", 8, 1, 0, 64},          {"Tiled300x200", 300, 200, 1, 256}, {"TileModeTwoIs512", 40, 30, 2, 512},
};

INSTANTIATE_TEST_SUITE_P(Images, CVImageTextureSizeGLTest, ::testing::ValuesIn(kSizes),
                         [](const ::testing::TestParamInfo<SizeCase>& info) { return std::string(info.param.name); });

TEST_F(CVImageTextureGLTest, TileModeRepeatsTheImageInsteadOfScalingIt) {
    // Left half red, right half blue, 32 wide: scaled it fills 64 texels,
    // tiled it appears twice.
    const std::string path = WriteImage("halves.png", 32, 32, [](int x, int) { return x < 16 ? kRed : kBlue; });
    CVImageTexture* scaled = Texture(path);
    scaled->Render(&state, area);
    std::vector<uint32_t> texels = Texels();
    EXPECT_EQ(texels[10], 0xFF0000u);
    EXPECT_EQ(texels[40], 0x0000FFu);
    // Stretched pixel for pixel: the edge stays hard, no blended texel.
    EXPECT_EQ(texels[31], 0xFF0000u);
    EXPECT_EQ(texels[32], 0x0000FFu);

    CVImageTexture* tiled = Texture(path, 1);
    tiled->Render(&state, area);
    texels = Texels();
    EXPECT_EQ(texels[10], 0xFF0000u);
    EXPECT_EQ(texels[40], 0xFF0000u);
    EXPECT_EQ(texels[54], 0x0000FFu);
    EXPECT_EQ(area->GetTextureCache()->GetCount(), 2);  // tile mode is part of the key
}

TEST_F(CVImageTextureGLTest, BareNamesAreSearchedForAndPathsUsedAsTheyStand) {
    WriteSolid("found.png", 16, 16, kBlue);
    cvtest::ScopedEnv imagePath("CVSCENE_IMAGE_PATH", dir.Path().c_str());
    CVImageTexture* bare = Texture("found.png");
    bare->Render(&state, area);
    EXPECT_EQ(bare->GetTextureRendered(), 1);
    EXPECT_EQ(Texels()[0], 0x0000FFu);

    CVImageTexture* doubleSlash = Texture("/" + (dir / "found.png"));
    doubleSlash->Render(&state, area);
    EXPECT_EQ(doubleSlash->GetTextureRendered(), 1);

    // A drive path is not searched for, so the file found above is not used.
    CVImageTexture* drive = Texture("c:found.png");
    drive->Render(&state, area);
    EXPECT_EQ(drive->GetTextureRendered(), 0);
}

TEST_F(CVImageTextureGLTest, NodesNamingTheSameImageShareOneElement) {
    const std::string path = WriteSolid("shared.png", 16, 16, kRed);
    CVImageTexture* a = Texture(path);
    CVImageTexture* b = Texture(path);
    a->Render(&state, area);
    const GLint first = BoundTexture();
    b->Render(&state, area);
    EXPECT_EQ(BoundTexture(), first);
    ASSERT_EQ(area->GetTextureCache()->GetCount(), 1);
    EXPECT_EQ(Element(path)->GetUserCount(), 2);

    // One user leaving keeps the texture for the other.
    SetUrl(a, WriteSolid("other.png", 16, 16, kBlue));
    a->Render(&state, area);
    ASSERT_NE(Element(path), nullptr);
    EXPECT_EQ(Element(path)->GetUserCount(), 1);
    EXPECT_TRUE(glIsTexture(first));
}

TEST_F(CVImageTextureGLTest, ChangingTheNameReleasesTheOldTexture) {
    const std::string first = WriteSolid("first.png", 16, 16, kRed);
    const std::string second = WriteSolid("second.png", 16, 16, kGreen);
    CVImageTexture* t = Texture(first);
    t->Render(&state, area);
    const GLint oldName = BoundTexture();
    SetUrl(t, second);
    t->Render(&state, area);
    EXPECT_EQ(Element(first), nullptr);
    EXPECT_NE(Element(second), nullptr);
    EXPECT_EQ(area->GetTextureCache()->GetCount(), 1);
    EXPECT_FALSE(glIsTexture(oldName));
    EXPECT_EQ(Texels()[0], 0x00FF00u);

    t->SetTiled(1);  // a new tile mode is a new texture too
    t->Render(&state, area);
    EXPECT_EQ(Element(second), nullptr);
    EXPECT_NE(Element(second, 1), nullptr);
    EXPECT_EQ(area->GetTextureCache()->GetCount(), 1);
}

TEST_F(CVImageTextureGLTest, SwitchingTexturesLeaksNoTextureObjects) {
    const std::string names[2] = {WriteSolid("a.png", 8, 8, kRed), WriteSolid("b.png", 8, 8, kBlue)};
    CVImageTexture* t = Texture(names[0]);
    std::set<GLint> seen;
    for (int i = 0; i < 1000; ++i) {
        SetUrl(t, names[i % 2]);
        t->Render(&state, area);
        seen.insert(BoundTexture());
    }
    EXPECT_EQ(area->GetTextureCache()->GetCount(), 1);
    EXPECT_EQ(seen.size(), 1000u);  // every switch loads afresh under a new name
    const GLint current = BoundTexture();
    int alive = 0;
    for (GLint name : seen) alive += glIsTexture(name) ? 1 : 0;
    EXPECT_EQ(alive, 1);
    EXPECT_TRUE(glIsTexture(current));
}

TEST_F(CVImageTextureGLTest, MissingImageFallsBackToTheTextureColour) {
    auto* material = new CVMaterial;
    material->diffuseColor.SetValue(1.0f, 1.0f, 1.0f);
    auto* appearance = new CVAppearance;
    appearance->material.SetValue(material);
    CVImageTexture* t = Texture(dir / "missing.png");
    t->SetFallBackColor({0.0f, 0.0f, 1.0f});
    appearance->texture.SetValue(t);
    CVGroup* root = Hold(new CVGroup);
    root->children.Add(cvtest::MakeQuadShape(new QuadGeometry, appearance));
    DrawFrame(root);
    EXPECT_EQ(t->GetTextureRendered(), 0);
    EXPECT_EQ(Pixel(32, 32), 0x0000FFu);
    EXPECT_FLOAT_EQ(material->diffuseColor.GetValue().r, 0.0f);  // kept
    EXPECT_EQ(LevelParameter(0, GL_TEXTURE_WIDTH), 0);

    // The file turning up does not bring the texture back under the same name:
    // the failed element stays cached.
    WriteSolid("missing.png", 16, 16, kRed);
    DrawFrame(root);
    EXPECT_EQ(t->GetTextureRendered(), 0);
}

TEST_F(CVImageTextureGLTest, TurningMipmappingOnReloadsWithMipmaps) {
    CVImageTexture* t = Texture(WriteSolid("mip.png", 64, 64, kGreen));
    t->Render(&state, area);
    const GLint name = BoundTexture();
    EXPECT_EQ(TexParameter(GL_TEXTURE_MIN_FILTER), GL_NEAREST);
    EXPECT_EQ(LevelParameter(1, GL_TEXTURE_WIDTH), 0);

    area->SetMipmappingEnabled(1);
    t->Render(&state, area);
    EXPECT_EQ(BoundTexture(), name);  // the same element, loaded again
    EXPECT_EQ(TexParameter(GL_TEXTURE_MIN_FILTER), GL_LINEAR_MIPMAP_LINEAR);
    EXPECT_EQ(TexParameter(GL_TEXTURE_MAG_FILTER), GL_LINEAR);
    EXPECT_EQ(LevelParameter(1, GL_TEXTURE_WIDTH), 32);
    EXPECT_EQ(LevelParameter(6, GL_TEXTURE_WIDTH), 1);

    area->SetMipmappingEnabled(0);
    t->Render(&state, area);
    EXPECT_EQ(TexParameter(GL_TEXTURE_MIN_FILTER), GL_NEAREST);
}

TEST_F(CVImageTextureGLTest, NothingIsBoundWhilePickingOrWithTexturingOff) {
    CVImageTexture* t = Texture(WriteSolid("pick.png", 16, 16, kRed));
    t->SetTextureRendered(0);
    state.m_bRecordPath = 1;
    t->Render(&state, area);
    EXPECT_EQ(BoundTexture(), 0);
    EXPECT_EQ(area->GetTextureCache()->GetCount(), 0);

    state.m_bRecordPath = 0;
    area->SetTexturingEnabled(0);
    t->Render(&state, area);
    EXPECT_EQ(BoundTexture(), 0);
    EXPECT_EQ(t->GetTextureRendered(), 0);  // untouched

    area->SetTexturingEnabled(1);
    t->Render(&state, area);
    EXPECT_NE(BoundTexture(), 0);
    EXPECT_EQ(t->GetTextureRendered(), 1);
}

}  // namespace
