#pragma once
// File lookup in the shape of the system call.
#include "CVExport.h"
#include "WinTypes.h"

#define MAX_PATH 260

#ifdef CVSCENE_INTERNAL
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
#endif

// Global memory blocks: the container in which packed DIBs and other
// clipboard-style data travel between a host and the library. A handle names
// one block until GlobalFree; null, unknown and freed handles make every call
// fail without touching memory. A fixed block's handle is its address;
// a movable block's handle is not, and GlobalLock gives the address. The
// handle table is guarded, the blocks are not.
typedef void* HANDLE;
typedef HANDLE HGLOBAL;
typedef size_t SIZE_T;

#define GMEM_FIXED 0x0000
#define GMEM_MOVEABLE 0x0002
#define GMEM_ZEROINIT 0x0040
#define GHND (GMEM_MOVEABLE | GMEM_ZEROINIT)
#define GPTR (GMEM_FIXED | GMEM_ZEROINIT)

#ifdef CVSCENE_INTERNAL
// Null for zero bytes, unknown flags or when memory runs out.
HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes);
#endif
// The block's first byte; counts a lock on movable blocks. Null for a bad handle.
CVSCENE_API LPVOID GlobalLock(HGLOBAL mem);
// Drops one lock: TRUE while locks remain, FALSE otherwise (and for fixed
// blocks, which are never locked).
CVSCENE_API BOOL GlobalUnlock(HGLOBAL mem);
// Null on success; the handle itself when it names no live block.
CVSCENE_API HGLOBAL GlobalFree(HGLOBAL mem);
// Bytes in the block; 0 for a bad handle.
CVSCENE_API SIZE_T GlobalSize(HGLOBAL mem);
