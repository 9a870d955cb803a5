#pragma once
// Umbrella header: every public header of the library.
#include "platform/WinTypes.h"
#include "platform/CException.h"
#include "platform/CObject.h"
#include "platform/CString.h"
#include "platform/CArray.h"
#include "platform/CStringArray.h"
#include "platform/CList.h"
#include "platform/CMapStringToOb.h"

#include "core/CVBase.h"
#include "core/CVRefCount.h"
#include "core/CVNode.h"
#include "core/CVChild.h"
#include "core/CVLibrary.h"

#include "actions/CVState.h"
#include "actions/CVAction.h"

#include "platform/WinGDI.h"
#include "platform/WinGL.h"
#include "platform/CDC.h"
#include "platform/CPalette.h"
#include "platform/CVAccumBuffer.h"
