#include <gtest/gtest.h>

#include "image/CVSearchPaths.h"
#include "library/CVLibrary.h"
#include "platform/CVMesaQuirks.h"
#include "render/CVCacheManager.h"
#include "render/CVGLRenderArea.h"

namespace {

HRESULT NoDownload(IUnknown*, LPCWSTR, LPWSTR, DWORD, DWORD, void*) { return E_FAIL; }

// Everything a test or a host job may change comes back; ids do not.
TEST(CVLibraryTest, ResetSettingsPutsBackWhatAttachLeft) {
    ASSERT_TRUE(CVLibrary::IsAttached());
    CVCacheManager* manager = CVGetCacheManagerPtr();
    ASSERT_NE(manager, nullptr);
    CVGLRenderArea::SetInflateWorld(0);
    manager->m_fShininess = 0.5f;
    manager->m_CurrentColor = {0.1f, 0.2f, 0.3f};
    CVMesaQuirks::SetWorkaroundEnabled(CVMesaQuirk::TrackedAmbientIgnored, 0);
    const CVURLDownloadToCacheFileProc original = CVSetURLDownloadToCacheFileProc(NoDownload);

    CVLibrary::ResetSettings();
    EXPECT_EQ(CVGLRenderArea::GetWorldInflationFactor(), 3.0f);
    EXPECT_EQ(manager->m_fShininess, -1.0f);
    EXPECT_EQ(manager->m_CurrentColor.g, -1.0f);
    EXPECT_TRUE(CVMesaQuirks::IsWorkaroundEnabled(CVMesaQuirk::TrackedAmbientIgnored));
    EXPECT_EQ(CVSetURLDownloadToCacheFileProc(original), original);
    EXPECT_EQ(CVGetCacheManagerPtr(), manager);  // the manager itself stays
}

}  // namespace
