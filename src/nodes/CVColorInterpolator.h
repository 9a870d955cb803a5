#pragma once
// Key-frame colours held for the host: key[i] is the fraction at which
// keyValue[i] applies. Nothing is drawn or interpolated here.
#include "../platform/CVExport.h"
#include "../core/CVChild.h"
#include "../core/CVMFColor.h"
#include "../core/CVMFFloat.h"

class CVSCENE_API CVColorInterpolator : public CVChild {
    DECLARE_DYNAMIC(CVColorInterpolator)
public:
    CVColorInterpolator() = default;

    CVMFFloat key;       // empty
    CVMFColor keyValue;  // empty
};
