#pragma once
// Device over a memory DC with a 32- or 16-bit DIB section selected.
#include "../platform/CVExport.h"
#include "CVGLDevice.h"

class CVSCENE_API CVBitmapDevice : public CVGLDevice {
public:
    explicit CVBitmapDevice(HDC hdc);

    void GetPFD(PIXELFORMATDESCRIPTOR& pfd) override;
};
