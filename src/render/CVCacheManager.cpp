#include "render/CVCacheManager.h"

#include <GL/gl.h>

#include "platform/WinSys.h"
#include "render/CVGLAction.h"
#include "render/CVGLRenderArea.h"
#include "render/CVImageMapSource.h"

IMPLEMENT_DYNAMIC(CVCacheManager, CVBase)

UINT CVCacheManager::m_nOEMCodePage = 0;
DWORD CVCacheManager::m_nOSMajorVersion = 0;
DWORD CVCacheManager::m_nOSMinorVersion = 0;

namespace {

CVCacheManager* g_pCacheManager = nullptr;
CVCacheManager::CacheActionMaker g_pfnMakeCacheAction = nullptr;

// Fill ramp for 16-bit image maps.
const float kFillRamp[32] = {0.0f,   0.047f, 0.079f, 0.1115f, 0.144f, 0.176f, 0.208f, 0.2405f,
                             0.273f, 0.305f, 0.337f, 0.3695f, 0.402f, 0.434f, 0.466f, 0.4985f,
                             0.531f, 0.563f, 0.595f, 0.6275f, 0.66f,  0.692f, 0.724f, 0.7565f,
                             0.789f, 0.821f, 0.853f, 0.8855f, 0.918f, 0.95f,  0.982f, 1.0f};
// Line ramp for 16-bit image maps: a different ramp, kept as it is.
const float kLineRamp[32] = {0.0f,    0.032f, 0.064f, 0.096f,  0.1285f, 0.161f, 0.193f, 0.225f,
                             0.2575f, 0.29f,  0.322f, 0.354f,  0.3865f, 0.419f, 0.451f, 0.4835f,
                             0.5165f, 0.5485f, 0.58f, 0.6125f, 0.645f,  0.677f, 0.709f, 0.7415f,
                             0.774f,  0.806f, 0.838f, 0.8705f, 0.903f,  0.935f, 0.967f, 1.0f};

bool ListExists(unsigned int id) { return wglGetCurrentContext() && glIsList(id); }

}  // namespace

CVCacheManager* CVGetCacheManagerPtr() { return g_pCacheManager; }
void CVSetCacheManagerPtr(CVCacheManager* manager) { g_pCacheManager = manager; }

CVCacheManager::CVCacheManager() {
    ForgetMaterial();
    for (int i = 0; i < kRingSize; ++i) {
        m_Spheres[i] = {(unsigned)(1000 + i), 0, 0.0f};
        m_Cones[i] = {(unsigned)(2000 + i), 0, 0.0f, 0.0f, 0, 0};
        m_Cylinders[i] = {(unsigned)(3000 + i), 0, 0.0f, 0.0f, 0, 0, 0};
    }
    m_nOEMCodePage = GetOEMCP();
    OSVERSIONINFOW version = {};
    version.dwOSVersionInfoSize = sizeof(version);
    if (GetVersionExW(&version)) {
        m_nOSMajorVersion = version.dwMajorVersion;
        m_nOSMinorVersion = version.dwMinorVersion;
    }
}

CVCacheManager::~CVCacheManager() {
    if (m_pRenderAreaCache) {
        m_pRenderAreaCache->Unref();
        m_pRenderAreaCache = nullptr;
        delete m_pCacheAction;
        m_pCacheAction = nullptr;
    }
}

void CVCacheManager::SetCacheActionMaker(CacheActionMaker maker) { g_pfnMakeCacheAction = maker; }

void CVCacheManager::CreateGLRenderAreaCache(HDC hdc) {
    if (m_pRenderAreaCache || !g_pfnMakeCacheAction) return;
    m_pCacheAction = g_pfnMakeCacheAction(hdc);
    m_pRenderAreaCache = m_pCacheAction->GetRenderArea();
    m_pRenderAreaCache->Ref();
}

void CVCacheManager::DeleteCachedDisplayLists(unsigned int first, unsigned int count) {
    if (m_pRenderAreaCache && wglGetCurrentContext()) glDeleteLists(first, (GLsizei)count);
}

unsigned int CVCacheManager::NewCachedSphere(int precision, float radius) {
    SphereEntry& e = m_Spheres[m_nNextSphere];
    m_nNextSphere = (m_nNextSphere + 1) % kRingSize;
    e.precision = precision;
    e.radius = radius;
    return e.id;
}

unsigned int CVCacheManager::GetCachedSphere(int precision, float radius) {
    for (const SphereEntry& e : m_Spheres)
        if (e.precision == precision && e.radius == radius && ListExists(e.id)) return e.id;
    return 0;
}

unsigned int CVCacheManager::NewCachedCone(int precision, float radius, float height, int bottom, int side) {
    ConeEntry& e = m_Cones[m_nNextCone];
    m_nNextCone = (m_nNextCone + 1) % kRingSize;
    e.precision = precision;
    e.radius = radius;
    e.height = height;
    e.bottom = bottom;
    e.side = side;
    return e.id;
}

unsigned int CVCacheManager::GetCachedCone(int precision, float radius, float height, int bottom, int side) {
    for (const ConeEntry& e : m_Cones)
        if (e.precision == precision && e.radius == radius && e.height == height && e.bottom == bottom &&
            e.side == side && ListExists(e.id))
            return e.id;
    return 0;
}

unsigned int CVCacheManager::NewCachedCylinder(int precision, float a, float b, int f1, int f2, int f3) {
    CylinderEntry& e = m_Cylinders[m_nNextCylinder];
    m_nNextCylinder = (m_nNextCylinder + 1) % kRingSize;
    e = {e.id, precision, a, b, f1, f2, f3};
    return e.id;
}

unsigned int CVCacheManager::GetCachedCylinder(int precision, float a, float b, int f1, int f2, int f3) {
    for (const CylinderEntry& e : m_Cylinders)
        if (e.precision == precision && e.a == a && e.b == b && e.f1 == f1 && e.f2 == f2 && e.f3 == f3 &&
            ListExists(e.id))
            return e.id;
    return 0;
}

void CVCacheManager::InitGLColor() { m_CurrentColor = {-1.0f, -1.0f, -1.0f}; }

void CVCacheManager::ForgetMaterial() {
    InitGLColor();
    m_EmissiveColor = m_SpecularColor = {-1.0f, -1.0f, -1.0f};
    m_fAmbientIntensity = m_fShininess = m_fTransparency = -1.0f;
}

void CVCacheManager::SetGLColor(const RGBColorStruct* color) {
    m_CurrentColor = *color;
    glColor3f(color->r, color->g, color->b);
}

void CVCacheManager::SetGLColor(const RGBAColorStruct* color) {
    m_CurrentColor = {color->r, color->g, color->b};
    glColor3f(color->r, color->g, color->b);
}

void CVCacheManager::SetImageMapColor(int colorBits, int index, const CVImageMapSource* geometry) {
    const CVImageMapKeyStruct key = geometry ? geometry->GetImageMapKey() : CVImageMapKeyStruct{};
    if (colorBits != 16) {
        int value = index;
        int high = 0;
        if (geometry) {
            if (key.bDetailPieSlice) {
                value = -index;
                high = 128;
            } else if (key.bGraphShape) {
                int k = (index >> 24) & 0xF;
                if (k == 15) return;
                high = (index < 0 ? 128 : 0) | (k * 4 + 4);
            } else if (!key.bAnnotation) {
                if (key.nOverlayIndex > 15) return;
                high = key.nOverlayIndex * 4;
            } else {
                high = 64;
            }
        }
        glColor3ub((GLubyte)(high | ((value >> 16) & 0x3)), (GLubyte)((value >> 8) & 0xFF),
                   (GLubyte)(value & 0xFF));
        return;
    }

    int value = index;
    int r = 0;
    if (geometry) {
        if (key.bGraphShape) {
            r = (index < 0 ? 16 : 0) | (((index >> 24) & 0x7) + 1);
            value = index & 0x3FFF;
        } else {
            r = key.bAnnotation ? 8 : key.nOverlayIndex;
        }
        if (key.bDetailPieSlice) {
            value = -value;
            r = 31;
        }
    }
    int g = (value >> 5) & 0x1F;
    int b = value & 0x1F;
    r &= 0x1F;
    GLint mode[2] = {GL_FILL, GL_FILL};
    glGetIntegerv(GL_POLYGON_MODE, mode);
    const float* ramp = (mode[0] != GL_LINE && !key.bLineGeometry) ? kFillRamp : kLineRamp;
    glColor3f(ramp[r], ramp[g], ramp[b]);
}
