#include "nodes/CVNodeTestSupport.h"
#include "nodes/CVTextureCacheElement.h"

namespace {

using CVTextureCacheElementGLTest = cvtest::NodeGLFixture;

TEST_F(CVTextureCacheElementGLTest, NamesComeFromACounterAndDieWithTheElement) {
    const unsigned next = CVTextureCacheElement::PeekNextTextureName();
    CVCache* cache = area->GetTextureCache();
    int owner = 0;
    auto* a = static_cast<CVTextureCacheElement*>(cache->Add(new CVTextureCacheElement(L"a.png", 0), &owner));
    auto* b = static_cast<CVTextureCacheElement*>(cache->Add(new CVTextureCacheElement(L"a.png", 1), &owner));
    EXPECT_EQ(a->GetTextureName(), next);
    EXPECT_EQ(b->GetTextureName(), next + 1);
    EXPECT_FALSE(glIsTexture(a->GetTextureName()));  // not asked of GL
    EXPECT_EQ(a->GetLoaded(), 1);

    const GLuint name = a->GetTextureName();
    glBindTexture(GL_TEXTURE_2D, name);
    ASSERT_TRUE(glIsTexture(name));
    cache->Release(a, &owner);
    EXPECT_FALSE(glIsTexture(name));
    EXPECT_EQ(cache->Find(CVTextureCacheElement::MakeKey(L"a.png", 1)), b);  // tile mode is in the key
    EXPECT_EQ(CVTextureCacheElement::PeekNextTextureName(), next + 2);     // names are never handed back
}

}  // namespace
