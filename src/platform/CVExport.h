#pragma once
// What the shared library exports. It is built with hidden visibility, so
// only classes and functions marked CVSCENE_API are seen by hosts; the rest
// is the library's own. Declarations under CVSCENE_INTERNAL (defined while the
// library and its tests compile) are for the library alone.
#define CVSCENE_API __attribute__((visibility("default")))
