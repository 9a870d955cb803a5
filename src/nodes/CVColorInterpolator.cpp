#include "nodes/CVColorInterpolator.h"

IMPLEMENT_DYNAMIC(CVColorInterpolator, CVChild)
