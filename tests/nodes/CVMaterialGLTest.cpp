#include "nodes/CVMaterial.h"
#include "nodes/CVNodeTestSupport.h"

namespace {

using cvtest::GetRgba;
using cvtest::Rgba;
using cvtest::RgbaNear;

Rgba Front(GLenum what) { return cvtest::GetMaterial(GL_FRONT, what); }
Rgba Scaled(const RGBColorStruct& c, float k, float alpha) { return {c.r * k, c.g * k, c.b * k, alpha}; }

// Colour material is switched off so that what glMaterial received can be
// read back unaltered.
class CVMaterialGLTest : public cvtest::NodeGLFixture {
protected:
    CVMaterialGLTest() { glDisable(GL_COLOR_MATERIAL); }
};

TEST_F(CVMaterialGLTest, FirstRenderSendsEveryDefault) {
    CVMaterial material;
    material.Render(nullptr, area);
    EXPECT_TRUE(RgbaNear(GetRgba(GL_CURRENT_COLOR), (Rgba{0.8f, 0.8f, 0.8f, 1.0f})));
    EXPECT_TRUE(RgbaNear(Front(GL_AMBIENT), (Rgba{0.64f, 0.64f, 0.64f, 1.0f})));  // ambient intensity 0.8
    EXPECT_TRUE(RgbaNear(Front(GL_SPECULAR), (Rgba{0.0f, 0.0f, 0.0f, 1.0f})));
    EXPECT_TRUE(RgbaNear(Front(GL_EMISSION), (Rgba{0.0f, 0.0f, 0.0f, 1.0f})));
    EXPECT_FLOAT_EQ(Front(GL_SHININESS)[0], 0.2f * 128.0f);
    EXPECT_FLOAT_EQ(cvtest::GetMaterial(GL_BACK, GL_AMBIENT)[0], 0.64f);
    const CVCacheManager* cache = CVGetCacheManagerPtr();
    EXPECT_FLOAT_EQ(cache->m_CurrentColor.g, 0.8f);
    EXPECT_FLOAT_EQ(cache->m_fAmbientIntensity, 0.8f);
    EXPECT_FLOAT_EQ(cache->m_fShininess, 0.2f);
    EXPECT_FLOAT_EQ(cache->m_fTransparency, 0.0f);
}

// A second material differing from the first in one respect: which of the
// skippable values reach GL again? Values not resent keep a poked sentinel.
TEST_F(CVMaterialGLTest, OnlyChangedValuesAreResent) {
    const struct {
        const char* name;
        std::function<void(CVMaterial&)> change;
        bool specular, shininess, emission;
    } cases[] = {
        {"Equal", [](CVMaterial&) {}, false, false, false},
        {"Diffuse", [](CVMaterial& m) { m.diffuseColor.SetValue(0.0f, 1.0f, 0.0f); }, false, false, false},
        {"AmbientIntensity", [](CVMaterial& m) { m.ambientIntensity.SetValue(0.5f); }, false, false, false},
        {"Specular", [](CVMaterial& m) { m.specularColor.SetValue(0.75f, 0.5f, 0.5f); }, true, false, false},
        {"Shininess", [](CVMaterial& m) { m.shininess.SetValue(0.25f); }, false, true, false},
        {"Emissive", [](CVMaterial& m) { m.emissiveColor.SetValue(0.25f, 0.0f, 0.5f); }, false, false, true},
        {"Transparency", [](CVMaterial& m) { m.transparency.SetValue(0.5f); }, true, false, true},
    };
    const Rgba sentinel = {0.125f, 0.25f, 0.375f, 0.5f};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ForgetMaterial();
        CVMaterial first, second;
        for (CVMaterial* m : {&first, &second}) {
            m->specularColor.SetValue(0.5f, 0.5f, 0.5f);
            m->emissiveColor.SetValue(0.25f, 0.0f, 0.0f);
            m->shininess.SetValue(0.5f);
        }
        c.change(second);
        first.Render(nullptr, area);
        for (GLenum what : {GL_SPECULAR, GL_EMISSION, GL_AMBIENT})
            glMaterialfv(GL_FRONT_AND_BACK, what, sentinel.data());
        glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, 7.0f);
        glColor4fv(sentinel.data());
        second.Render(nullptr, area);

        // Colour and ambient go out every time.
        const float a = 1.0f - second.transparency.GetValue();
        const RGBColorStruct &d = second.diffuseColor.GetValue(), &sp = second.specularColor.GetValue(),
                             &e = second.emissiveColor.GetValue();
        EXPECT_TRUE(RgbaNear(GetRgba(GL_CURRENT_COLOR), Scaled(d, 1.0f, a)));
        EXPECT_TRUE(RgbaNear(Front(GL_AMBIENT), Scaled(d, second.ambientIntensity.GetValue(), a)));
        EXPECT_TRUE(RgbaNear(Front(GL_SPECULAR), c.specular ? Scaled(sp, 1, a) : sentinel));
        EXPECT_TRUE(RgbaNear(Front(GL_EMISSION), c.emission ? Scaled(e, 1, a) : sentinel));
        EXPECT_FLOAT_EQ(Front(GL_SHININESS)[0], c.shininess ? second.shininess.GetValue() * 128.0f : 7.0f);
    }
}

}  // namespace
