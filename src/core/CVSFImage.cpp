#include "core/CVSFImage.h"

IMPLEMENT_DYNAMIC(CVSFImage, CVSField)

CVSFImage::CVSFImage() : CVSField(274) {}

void CVSFImage::Clone(const CVSFImage&) {}
