#include <gtest/gtest.h>

#include <GL/gl.h>

#include "nodes/CVNodeTestSupport.h"
#include "nodes/CVTextureCacheElement.h"

namespace {

using CVTextureCacheElementGLTest = cvtest::NodeGLFixture;

TEST_F(CVTextureCacheElementGLTest, NamesComeFromAGrowingCounterNotFromGL) {
    const unsigned next = CVTextureCacheElement::PeekNextTextureName();
    EXPECT_GE(next, 1u);
    auto* a = new CVTextureCacheElement(L"a.png", 0);
    auto* b = new CVTextureCacheElement(L"a.png", 0);
    EXPECT_EQ(a->GetTextureName(), next);
    EXPECT_EQ(b->GetTextureName(), next + 1);
    EXPECT_FALSE(glIsTexture(a->GetTextureName()));  // nothing made in GL yet
    EXPECT_EQ(a->GetLoaded(), 1);
    EXPECT_EQ(a->GetTileMode(), 0);
    delete a;
    delete b;
    EXPECT_EQ(CVTextureCacheElement::PeekNextTextureName(), next + 2);  // never handed back
}

TEST_F(CVTextureCacheElementGLTest, KeysSeparateTileModesAndDestructionDeletesTheTexture) {
    EXPECT_NE(CVTextureCacheElement::MakeKey(L"a.png", 0), CVTextureCacheElement::MakeKey(L"a.png", 1));
    EXPECT_NE(CVTextureCacheElement::MakeKey(L"1|a.png", 0), CVTextureCacheElement::MakeKey(L"a.png", 1));
    CVCache* cache = area->GetTextureCache();
    int owner = 0;
    auto* e = new CVTextureCacheElement(L"a.png", 1);
    cache->Add(e, &owner);
    EXPECT_EQ(cache->Find(CVTextureCacheElement::MakeKey(L"a.png", 1)), e);
    const GLuint name = e->GetTextureName();
    glBindTexture(GL_TEXTURE_2D, name);
    EXPECT_TRUE(glIsTexture(name));
    cache->Release(e, &owner);
    EXPECT_FALSE(glIsTexture(name));
}

}  // namespace
