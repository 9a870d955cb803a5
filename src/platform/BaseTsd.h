#pragma once
// Handle <-> 32-bit integer conversions with the Windows names. Handles are
// pointer-typed here, but the GDI handle table hands out small positive
// integers (never reused), so a handle's 32-bit value names it without loss;
// this is the decimal form hosts write into text, as in the render action's
// "HBITMAP:<value>" image names.
#include <cstdint>

#include "WinTypes.h"

template <class H>
inline LONG HandleToLong(H h) {
    return static_cast<LONG>(reinterpret_cast<intptr_t>(h));
}
template <class H>
inline ULONG HandleToULong(H h) {
    return static_cast<ULONG>(reinterpret_cast<uintptr_t>(h));
}
// Sign-extended, as on Windows; the caller casts to the handle type it means.
inline void* LongToHandle(LONG value) { return reinterpret_cast<void*>(static_cast<intptr_t>(value)); }
inline void* ULongToHandle(ULONG value) { return reinterpret_cast<void*>(static_cast<uintptr_t>(value)); }
