#pragma once
// File lookup in the shape of the system call.
#include "platform/WinTypes.h"

#define MAX_PATH 260

// Looks for fileName and writes its full path (absolute, "." and ".."
// resolved by name) into buffer.
// - path given: only that folder. Null: the current directory, then each
//   folder of $CVSCENE_IMAGE_PATH (colon-separated, empty entries skipped).
// - Backslashes in path and fileName are read as '/', so names built with
//   Windows separators ("C:\\Data" + "\\Images") resolve here too.
// - An absolute fileName is checked as it is, whatever path says.
// - ext ("." included) is appended when the file's own name has none.
// - Only files count; a folder of that name is not a match.
// Returns the length written without the zero; when the buffer is too small,
// the length needed including the zero, with nothing written; 0 when nothing
// is found or fileName is null or empty. filePart, when not null, receives
// the start of the file's name inside buffer on success.
DWORD SearchPathW(LPCWSTR path, LPCWSTR fileName, LPCWSTR ext, DWORD bufferLength, LPWSTR buffer, LPWSTR* filePart);
