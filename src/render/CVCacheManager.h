#pragma once
// The process-wide helper created at library load (CVGetCacheManagerPtr):
// the material state cache, three ring caches of display lists for spheres,
// cones and cylinders with fixed list ids (1000-1127, 2000-2127, 3000-3127,
// reserved for them), the image-map colour coding, and a shared off-screen
// render area whose display lists other areas may share.
//
// Ring caches replace strictly round-robin: the 129th new entry of a kind
// reuses entry 0 and its list id. Lookup scans all entries and only accepts
// an entry whose list exists in the current context (glIsList).
#include "../platform/CVExport.h"
#include "../base/CVBase.h"
#include "../math/CVStructs.h"
#include "../platform/WinGDI.h"

class CVGLAction;
class CVGLRenderArea;
class CVImageMapSource;

class CVSCENE_API CVCacheManager : public CVBase {
    DECLARE_DYNAMIC(CVCacheManager)
public:
    static const int kRingSize = 128;

    CVCacheManager();
    ~CVCacheManager() override;
    CVCacheManager(const CVCacheManager&) = delete;
    CVCacheManager& operator=(const CVCacheManager&) = delete;

    // Creates the shared off-screen render area once, as the area of a DIB
    // render action (32 x 32, for hdc's depth) that the manager keeps until
    // it is destroyed; later calls do nothing. Throws CMemoryException when
    // the bitmap cannot be made.
    void CreateGLRenderAreaCache(HDC hdc);
    // That action is a class of a higher layer, so the layer above says how
    // to make one (the library's load does). Without a maker nothing is created.
    typedef CVGLAction* (*CacheActionMaker)(HDC hdc);
    static void SetCacheActionMaker(CacheActionMaker maker);
    CVGLRenderArea* GetGLRenderAreaCache() const { return m_pRenderAreaCache; }
    // glDeleteLists, only once a render area cache exists.
    void DeleteCachedDisplayLists(unsigned int first, unsigned int count);

    unsigned int NewCachedSphere(int precision, float radius);
    unsigned int GetCachedSphere(int precision, float radius);
    unsigned int NewCachedCone(int precision, float radius, float height, int bottom, int side);
    unsigned int GetCachedCone(int precision, float radius, float height, int bottom, int side);
    unsigned int NewCachedCylinder(int precision, float a, float b, int f1, int f2, int f3);
    unsigned int GetCachedCylinder(int precision, float a, float b, int f1, int f2, int f3);

    // Material state cache: -1 means unknown.
    void InitGLColor();
    // Every material slot back to unknown, so the next material sends all.
    void ForgetMaterial();
    // Stores the colour and calls glColor3f every time (alpha ignored).
    void SetGLColor(const RGBColorStruct* color);
    void SetGLColor(const RGBAColorStruct* color);
    // Sets the current colour to the code of data element index (see the
    // image-map action); some flag combinations set no colour at all. The
    // geometry (a CVGeometry; null for none) gives its kind flags.
    void SetImageMapColor(int colorBits, int index, const CVImageMapSource* geometry);

    RGBColorStruct m_CurrentColor;
    RGBColorStruct m_EmissiveColor;
    RGBColorStruct m_SpecularColor;
    float m_fAmbientIntensity;
    float m_fShininess;
    float m_fTransparency;

    static UINT m_nOEMCodePage;
    static DWORD m_nOSMajorVersion;
    static DWORD m_nOSMinorVersion;

private:
    struct SphereEntry {
        unsigned int id;
        int precision;
        float radius;
    };
    struct ConeEntry {
        unsigned int id;
        int precision;
        float radius, height;
        int bottom, side;
    };
    struct CylinderEntry {
        unsigned int id;
        int precision;
        float a, b;
        int f1, f2, f3;
    };

    CVGLRenderArea* m_pRenderAreaCache = nullptr;
    CVGLAction* m_pCacheAction = nullptr;
    SphereEntry m_Spheres[kRingSize];
    int m_nNextSphere = 0;
    ConeEntry m_Cones[kRingSize];
    int m_nNextCone = 0;
    CylinderEntry m_Cylinders[kRingSize];
    int m_nNextCylinder = 0;
};

// The manager the library created at load; null outside load and unload.
CVSCENE_API CVCacheManager* CVGetCacheManagerPtr();
#ifdef CVSCENE_INTERNAL
void CVSetCacheManagerPtr(CVCacheManager* manager);
#endif
