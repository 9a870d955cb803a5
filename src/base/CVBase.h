#pragma once
// Root of every library class. Adds no data to CObject; gives each class its
// run-time class record so type tests are IsKindOf(RUNTIME_CLASS(X)).
#include "../platform/CVExport.h"
#include "../platform/CObject.h"

class CVSCENE_API CVBase : public CObject {
    DECLARE_DYNAMIC(CVBase)
public:
    CVBase() = default;
    ~CVBase() override = default;
};
