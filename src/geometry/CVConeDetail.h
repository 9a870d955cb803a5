#pragma once
// Pick detail of a cone: the cone that was hit (borrowed) and the part.
#include "../platform/CVExport.h"
#include "CVDetail.h"
#include "CVCone.h"

class CVSCENE_API CVConeDetail : public CVDetail {
    DECLARE_DYNAMIC(CVConeDetail)
public:
    explicit CVConeDetail(CVCone* geometry) : m_pGeometry(geometry) {}

    CVCone* GetGeometry() const { return m_pGeometry; }
    int SetPart(CVCone::Part part) { m_ePart = part; return 1; }
    CVCone::Part GetPart() const { return m_ePart; }

private:
    CVCone* m_pGeometry;
    CVCone::Part m_ePart = CVCone::Part(0);
};
