#pragma once
// Array of wide strings.
#include "platform/CArray.h"
#include "platform/CString.h"

class CStringArray : public CArray<CString, const CString&> {};
