#include "nodes/CVCoordinateInterpolator.h"

IMPLEMENT_DYNAMIC(CVCoordinateInterpolator, CVChild)
