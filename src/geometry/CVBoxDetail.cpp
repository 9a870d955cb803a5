#include "geometry/CVBoxDetail.h"

IMPLEMENT_DYNAMIC(CVBoxDetail, CVDetail)
