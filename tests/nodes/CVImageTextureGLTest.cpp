#include <functional>
#include <set>
#include <string>

#include "platform/CVImageFile.h"
#include "nodes/CVImageTexture.h"
#include "nodes/CVMaterial.h"
#include "nodes/CVNodeTestSupport.h"
#include "support/CVTestFiles.h"

namespace {

using cvtest::GetInt;
using cvtest::QuadGeometry;

const uint32_t kRed = 0xFFFF0000u, kGreen = 0xFF00FF00u, kBlue = 0xFF0000FFu, kWhite = 0xFFFFFFFFu;

GLint BoundTexture() { return GetInt(GL_TEXTURE_BINDING_2D); }

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
    std::vector<uint32_t> texels((size_t)LevelParameter(0, GL_TEXTURE_WIDTH) * LevelParameter(0, GL_TEXTURE_HEIGHT));
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
    int Cached() { return area->GetTextureCache()->GetCount(); }
    // A frame of a white quad over the viewport with the texture.
    CVMaterial* DrawTexturedQuad(CVImageTexture* texture) {
        auto* material = new CVMaterial;
        material->diffuseColor.SetValue(1.0f, 1.0f, 1.0f);
        auto* appearance = new CVAppearance;
        appearance->material.SetValue(material);
        appearance->texture.SetValue(texture);
        CVGroup* root = Hold(new CVGroup);
        root->children.Add(cvtest::MakeQuadShape(new QuadGeometry, appearance));
        DrawFrame(root);
        return material;
    }

    cvtest::TempDir dir;
    CVState state;
    std::vector<CVNode*> held;
};

TEST_F(CVImageTextureGLTest, TexturedQuadShowsTheImageUpright) {
    DrawTexturedQuad(Texture(WriteImage("quadrants.png", 64, 64, [](int x, int y) {
        return y < 32 ? (x < 32 ? kRed : kGreen) : (x < 32 ? kBlue : kWhite);
    })));
    EXPECT_EQ(Pixel(16, 48), 0xFF0000u);  // top left
    EXPECT_EQ(Pixel(48, 48), 0x00FF00u);
    EXPECT_EQ(Pixel(16, 16), 0x0000FFu);
    EXPECT_EQ(Pixel(48, 16), 0xFFFFFFu);
}

TEST_F(CVImageTextureGLTest, ImagesBecomeSquarePowerOfTwoTextures) {
    const struct {
        int width, height, tileMode, size;
    } cases[] = {{300, 200, 0, 256}, {40, 30, 0, 64},   {2000, 100, 0, 512},
                 {8, 1, 0, 64},      {300, 200, 1, 256}, {40, 30, 2, 512}};
    int i = 0;
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.width << " x " << c.height << ", tile mode " << c.tileMode);
        CVImageTexture* t = Texture(WriteSolid("image" + std::to_string(i++) + ".png", c.width, c.height, kGreen),
                                    c.tileMode);
        t->Render(&state, area);
        EXPECT_EQ(t->GetTextureRendered(), 1);
        EXPECT_EQ(LevelParameter(0, GL_TEXTURE_WIDTH), c.size);
        EXPECT_EQ(LevelParameter(0, GL_TEXTURE_HEIGHT), c.size);
        EXPECT_EQ(Texels()[(size_t)c.size * c.size / 2], 0x00FF00u);
    }
}

TEST_F(CVImageTextureGLTest, TileModeRepeatsTheImageInsteadOfScalingIt) {
    // Left half red, right half blue, 32 wide: scaled it fills 64 texels,
    // stretched pixel for pixel with a hard edge; tiled it appears twice.
    const std::string path = WriteImage("halves.png", 32, 32, [](int x, int) { return x < 16 ? kRed : kBlue; });
    Texture(path)->Render(&state, area);
    std::vector<uint32_t> texels = Texels();
    EXPECT_EQ(std::vector<uint32_t>({texels[10], texels[31], texels[32], texels[40]}),
              std::vector<uint32_t>({0xFF0000u, 0xFF0000u, 0x0000FFu, 0x0000FFu}));
    Texture(path, 1)->Render(&state, area);
    texels = Texels();
    EXPECT_EQ(std::vector<uint32_t>({texels[10], texels[40], texels[54]}),
              std::vector<uint32_t>({0xFF0000u, 0xFF0000u, 0x0000FFu}));
    EXPECT_EQ(Cached(), 2);  // tile mode is part of the key
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
    CVImageTexture *a = Texture(path), *b = Texture(path);
    a->Render(&state, area);
    const GLint first = BoundTexture();
    b->Render(&state, area);
    EXPECT_EQ(BoundTexture(), first);
    ASSERT_EQ(Cached(), 1);
    EXPECT_EQ(Element(path)->GetUserCount(), 2);
    // One user leaving keeps the texture for the other.
    SetUrl(a, WriteSolid("other.png", 16, 16, kBlue));
    a->Render(&state, area);
    ASSERT_NE(Element(path), nullptr);
    EXPECT_EQ(Element(path)->GetUserCount(), 1);
    EXPECT_TRUE(glIsTexture(first));
}

TEST_F(CVImageTextureGLTest, ChangingTheNameReleasesTheOldTexture) {
    const std::string first = WriteSolid("first.png", 16, 16, kRed), second = WriteSolid("second.png", 16, 16, kGreen);
    CVImageTexture* t = Texture(first);
    t->Render(&state, area);
    const GLint oldName = BoundTexture();
    SetUrl(t, second);
    t->Render(&state, area);
    EXPECT_EQ(Element(first), nullptr);
    EXPECT_NE(Element(second), nullptr);
    EXPECT_EQ(Cached(), 1);
    EXPECT_FALSE(glIsTexture(oldName));
    EXPECT_EQ(Texels()[0], 0x00FF00u);

    t->SetTiled(1);  // a new tile mode is a new texture too
    t->Render(&state, area);
    EXPECT_EQ(Element(second), nullptr);
    EXPECT_NE(Element(second, 1), nullptr);
    EXPECT_EQ(Cached(), 1);
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
    EXPECT_EQ(Cached(), 1);
    EXPECT_EQ(seen.size(), 1000u);  // every switch loads afresh under a new name
    int alive = 0;
    for (GLint name : seen) alive += glIsTexture(name) ? 1 : 0;
    EXPECT_EQ(alive, 1);
    EXPECT_TRUE(glIsTexture(BoundTexture()));
}

TEST_F(CVImageTextureGLTest, MissingImageFallsBackToTheTextureColour) {
    CVImageTexture* t = Texture(dir / "missing.png");
    t->SetFallBackColor({0.0f, 0.0f, 1.0f});
    CVMaterial* material = DrawTexturedQuad(t);
    EXPECT_EQ(t->GetTextureRendered(), 0);
    EXPECT_EQ(Pixel(32, 32), 0x0000FFu);
    EXPECT_FLOAT_EQ(material->diffuseColor.GetValue().r, 0.0f);  // kept
    EXPECT_EQ(LevelParameter(0, GL_TEXTURE_WIDTH), 0);
    // The file turning up does not bring the texture back under the same
    // name: the failed element stays cached.
    WriteSolid("missing.png", 16, 16, kRed);
    DrawTexturedQuad(t);
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
    EXPECT_EQ(Cached(), 0);

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
