#pragma once
// Array of wide strings.
#include "CArray.h"
#include "CString.h"

class CStringArray : public CArray<CString, const CString&> {};
