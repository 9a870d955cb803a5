#include "nodes/CVTextureCacheElement.h"

#include <GL/gl.h>

#include "platform/WinGL.h"

IMPLEMENT_DYNAMIC(CVTextureCacheElement, CVCacheElement)

unsigned int CVTextureCacheElement::m_nNextTextureName = 1;

CVTextureCacheElement::CVTextureCacheElement(const CString& imageName, int tileMode)
    : CVCacheElement(MakeKey(imageName, tileMode)),
      m_nTextureName(m_nNextTextureName++),
      m_strImageName(imageName),
      m_nTileMode(tileMode) {}

CVTextureCacheElement::~CVTextureCacheElement() {
    // Without a context there is nothing to delete from.
    if (wglGetCurrentContext()) glDeleteTextures(1, &m_nTextureName);
}

CString CVTextureCacheElement::MakeKey(const CString& imageName, int tileMode) {
    CString key;
    key.Format(L"%d|", tileMode);
    return key + imageName;
}
