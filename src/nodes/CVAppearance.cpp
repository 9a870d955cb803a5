#include "nodes/CVAppearance.h"

IMPLEMENT_DYNAMIC(CVAppearance, CVNode)
