#include "math/CVRay.h"

void CVRay::SetDirection(const CVVector& v, int isNormalized) {
    m_direction = v;
    if (!isNormalized) m_direction.Normalize();
}
