#include "geometry/CVDetail.h"

IMPLEMENT_DYNAMIC(CVDetail, CVBase)
