#pragma once
// Marks the nodes that may stand in a group's children list.
#include "core/CVNode.h"

class CVChild : public CVNode {
    DECLARE_DYNAMIC(CVChild)
public:
    CVChild() = default;
};
