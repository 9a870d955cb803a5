#pragma once
// Records of nodes deferred during a render traversal. Plain malloc'ed blocks
// that do not count references on the nodes they name.
#include "../platform/WinTypes.h"

class CVNode;

// Why a shape went on the transparent list; the replay draws each kind its way.
enum CVDeferKind {
    CVDeferSortedOpaque = 0,  // opaque, only sorted with the transparent ones
    CVDeferTransparent = 1,   // transparent, antialiased lines or drop-shadowed
    CVDeferText = 2,          // antialiased text: depth from a unit box, drawn as it is
};

struct TranspNodeInfoStruct {
    CVNode* node;
    double projectionMatrix[16];  // GL_PROJECTION_MATRIX at deferral
    float modelviewMatrix[16];    // GL_MODELVIEW_MATRIX at deferral
    int polygonMode;              // front GL_POLYGON_MODE
    float depth;                  // eye-space z of the node's box centre: the sort key
    float lineWidth;
    int polygonOffsetMode;        // GL_POLYGON_OFFSET_FILL, _LINE or 0
    float polygonOffsetFactor;
    float polygonOffsetUnits;
    int numClipPlanes;            // how many of clip planes 0-5 were enabled
    BYTE lightingEnabled;
    BYTE twoSidedLighting;
    int type;                     // a CVDeferKind
};

struct AnnotateNodeInfoStruct {
    CVNode* node;
    double projectionMatrix[16];
    float modelviewMatrix[16];
};
