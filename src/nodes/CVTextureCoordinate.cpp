#include "nodes/CVTextureCoordinate.h"

IMPLEMENT_DYNAMIC(CVTextureCoordinate, CVNode)
