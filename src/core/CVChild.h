#pragma once
// Marks the nodes that may stand in a group's children list.
#include "../platform/CVExport.h"
#include "CVNode.h"

class CVSCENE_API CVChild : public CVNode {
    DECLARE_DYNAMIC(CVChild)
public:
    CVChild() = default;
};
