#pragma once
// Key-frame points held for the host: key[i] is the fraction at which the
// i-th set of keyValue points applies. Nothing is drawn or interpolated here.
#include "../platform/CVExport.h"
#include "../core/CVChild.h"
#include "../core/CVMFFloat.h"
#include "../core/CVMFVec3f.h"

class CVSCENE_API CVCoordinateInterpolator : public CVChild {
    DECLARE_DYNAMIC(CVCoordinateInterpolator)
public:
    CVCoordinateInterpolator() = default;

    CVMFFloat key;       // empty
    CVMFVec3f keyValue;  // empty
};
