#pragma once
// How a shape looks: the node a shape applies (Render) before drawing its
// geometry. So far it carries only the texture transform; material and
// texture come with their node classes.
//
// A shape brackets its geometry with the texture transform: it pushes the
// GL texture matrix, calls the transform node's Render (which multiplies the
// texture matrix and returns to model-view mode), draws, and pops.
#include "core/CVNode.h"
#include "core/CVSFNode.h"

class CVAppearance : public CVNode {
    DECLARE_DYNAMIC(CVAppearance)
public:
    CVAppearance() = default;

    // The node that moves texture space for the shape's geometry, or null.
    CVNode* GetTextureTransform() const { return textureTransform.GetValue(); }

    CVSFNode<CVNode> textureTransform;  // null
};
