#include "core/CVChild.h"

IMPLEMENT_DYNAMIC(CVChild, CVNode)
