#include "geometry/CVConeDetail.h"

IMPLEMENT_DYNAMIC(CVConeDetail, CVDetail)
