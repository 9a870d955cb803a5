#pragma once
#include "../platform/CVExport.h"
// What the image-map colour code (CVCacheManager::SetImageMapColor) reads of
// a geometry. Geometry lies above the cache manager, so CVGeometry implements
// this and the manager sees nothing else of it.

// The kind flags (0 or 1) and the overlay index of a geometry.
struct CVImageMapKeyStruct {
    int bDetailPieSlice;
    int bGraphShape;
    int bAnnotation;
    int bLineGeometry;  // drawn as lines: coded with the line ramp at 16 bits
    short nOverlayIndex;
};

class CVSCENE_API CVImageMapSource {
public:
    virtual CVImageMapKeyStruct GetImageMapKey() const = 0;

protected:
    ~CVImageMapSource() = default;
};
