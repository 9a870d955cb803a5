#include "platform/CVGdiObject.h"

CVGdiObject::~CVGdiObject() = default;

int CVGdiObject::GetObjectInfo(int, void*) const { return 0; }

int CVGdiObject::CanDelete() const { return 1; }
