#pragma once
// Ray: direction, then origin. Default construction leaves both
// vectors uninitialised.
#include "../platform/CVExport.h"
#include "CVVector.h"

class CVSCENE_API CVRay {
public:
    CVRay() = default;
    CVRay(const CVRay&) = default;

    // Copies v and normalises it unless isNormalized is non-zero.
    void SetDirection(const CVVector& v, int isNormalized);
    const CVVector& GetDirection() const { return m_direction; }
    void SetOrigin(const CVVector& v) { m_origin = v; }
    const CVVector& GetOrigin() const { return m_origin; }

    CVRay& operator=(const CVRay& r) = default;

private:
    CVVector m_direction;
    CVVector m_origin;
};
