#include "render/CVCacheUser.h"

IMPLEMENT_DYNAMIC(CVCacheUser, CVBase)
