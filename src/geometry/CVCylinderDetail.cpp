#include "geometry/CVCylinderDetail.h"

IMPLEMENT_DYNAMIC(CVCylinderDetail, CVDetail)
