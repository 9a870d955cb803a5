#pragma once
// Base of the pick details: what a picked geometry says about the sub-item
// that was hit. A geometry's GetPickDetail makes one and hands it to the pick
// action; the picked shape that keeps it owns and deletes it. GetDetail calls
// ComputeDetails before handing the detail out.
#include "../platform/CVExport.h"
#include "../base/CVBase.h"

class CVSCENE_API CVDetail : public CVBase {
    DECLARE_DYNAMIC(CVDetail)
public:
    CVDetail() = default;
    ~CVDetail() override = default;
    CVDetail(const CVDetail&) = delete;
    CVDetail& operator=(const CVDetail&) = delete;

    // Works out whatever the detail derives from its hit. Nothing here.
    virtual void ComputeDetails() {}
};
