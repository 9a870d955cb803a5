#include "core/CVMField.h"

#include <string>

#include "platform/CException.h"

IMPLEMENT_DYNAMIC(CVMField, CVField)

namespace {
[[noreturn]] void ThrowOutOfRange(LONGLONG i, const char* where) {
    AfxThrowInvalidArgException(std::string(where) + ": index " + std::to_string(i) + " out of range");
}
}  // namespace

void CVMField::CheckIndex(LONGLONG i, LONGLONG count, const char* where) {
    if (i < 0 || i >= count) ThrowOutOfRange(i, where);
}

void CVMField::CheckNotNegative(LONGLONG i, const char* where) {
    if (i < 0) ThrowOutOfRange(i, where);
}
