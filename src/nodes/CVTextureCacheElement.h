#pragma once
// One texture object in a render area's texture cache, shared by every image
// texture that names the same image with the same tile mode (the cache key).
//
// Texture names come from a process-wide counter starting at 1, not from
// glGenTextures, so they are unique across every render area (all contexts
// of a kind share their objects). Hazard: code that mixes in glGenTextures
// names in the same contexts may collide with them.
//
// The destructor deletes the texture object in whatever context is current;
// the cache deletes elements with its own area's context current.
#include "../platform/CVExport.h"
#include "../platform/CString.h"
#include "../render/CVCacheElement.h"

class CVSCENE_API CVTextureCacheElement : public CVCacheElement {
    DECLARE_DYNAMIC(CVTextureCacheElement)
public:
    CVTextureCacheElement(const CString& imageName, int tileMode);
    ~CVTextureCacheElement() override;

    // The cache key for an image name and tile mode.
    static CString MakeKey(const CString& imageName, int tileMode);

    unsigned int GetTextureName() const { return m_nTextureName; }
    const CString& GetImageName() const { return m_strImageName; }
    int GetTileMode() const { return m_nTileMode; }
    // 1 once an image was loaded into the texture, 0 after a failed load.
    int SetLoaded(int loaded) { m_bLoaded = loaded; return 1; }
    int GetLoaded() const { return m_bLoaded; }
    // The render area's mipmapping setting at the last load, so that one
    // reload serves every texture node sharing the element.
    int SetMipmapped(int on) { m_bMipmapped = on; return 1; }
    int GetMipmapped() const { return m_bMipmapped; }

    // The name the next element will get.
    static unsigned int PeekNextTextureName() { return m_nNextTextureName; }

protected:
    unsigned int m_nTextureName;
    CString m_strImageName;
    int m_nTileMode;
    int m_bLoaded = 1;
    int m_bMipmapped = 0;

private:
    static unsigned int m_nNextTextureName;
};
