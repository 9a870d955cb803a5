#pragma once
// The model-view scope of one marker shape's drawing. The constructor pushes
// the matrix, turns the shape's x-z outline to face the viewer (a quarter
// turn about x) when asked and the geometry carries the Marker flag, and
// scales by size; a negative size.x scales by the negated size and switches
// polygons to lines, which stay lines after the scope. The destructor pops.
#include "../platform/CVExport.h"
#include "../geometry/CVGeometry.h"
#include "../math/CVStructs.h"

class CVSCENE_API CVMarkerTransform {
public:
    CVMarkerTransform(const CVGeometry& geometry, const Point3fStruct& size, int turnMarker);
    ~CVMarkerTransform();
    CVMarkerTransform(const CVMarkerTransform&) = delete;
    CVMarkerTransform& operator=(const CVMarkerTransform&) = delete;
};
