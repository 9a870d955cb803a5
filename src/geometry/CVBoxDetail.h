#pragma once
// Pick detail of a box: the box that was hit (borrowed) and the part.
#include "../platform/CVExport.h"
#include "CVDetail.h"
#include "CVBox.h"

class CVSCENE_API CVBoxDetail : public CVDetail {
    DECLARE_DYNAMIC(CVBoxDetail)
public:
    explicit CVBoxDetail(CVBox* geometry) : m_pGeometry(geometry) {}

    CVBox* GetGeometry() const { return m_pGeometry; }
    int SetPart(CVBox::Part part) { m_ePart = part; return 1; }
    CVBox::Part GetPart() const { return m_ePart; }

private:
    CVBox* m_pGeometry;
    CVBox::Part m_ePart = CVBox::Part(0);
};
