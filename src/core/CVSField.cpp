#include "core/CVSField.h"

IMPLEMENT_DYNAMIC(CVSField, CVField)
