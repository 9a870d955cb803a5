#include "core/CVBase.h"

IMPLEMENT_DYNAMIC(CVBase, CObject)
