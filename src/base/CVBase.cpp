#include "base/CVBase.h"

IMPLEMENT_DYNAMIC(CVBase, CObject)
