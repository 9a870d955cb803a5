#pragma once
// Pick detail of a cylinder: the cylinder that was hit (borrowed) and the part.
#include "../platform/CVExport.h"
#include "CVDetail.h"
#include "CVCylinder.h"

class CVSCENE_API CVCylinderDetail : public CVDetail {
    DECLARE_DYNAMIC(CVCylinderDetail)
public:
    explicit CVCylinderDetail(CVCylinder* geometry) : m_pGeometry(geometry) {}

    CVCylinder* GetGeometry() const { return m_pGeometry; }
    int SetPart(CVCylinder::Part part) { m_ePart = part; return 1; }
    CVCylinder::Part GetPart() const { return m_ePart; }

private:
    CVCylinder* m_pGeometry;
    CVCylinder::Part m_ePart = CVCylinder::Part(0);
};
