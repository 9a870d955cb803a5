#include "core/CVField.h"

IMPLEMENT_DYNAMIC(CVField, CVBase)

int CVField::GetType() const { return m_nType; }

int CVField::Set(const char*) { return 1; }
