#pragma once
// How a shape looks: material, texture and texture transform, applied by the
// shape before it draws its geometry. Render applies the material, then the
// texture (which binds it).
//
// Side effect: when the texture reports that it could not be loaded, the
// material's diffuse colour is overwritten with the texture's fall-back
// colour and the material applied again. The overwrite is permanent: the
// material keeps that colour after the texture loads again, and every shape
// sharing the material shows it.
//
// The texture transform is not applied here: the shape brackets its geometry
// with the transform's PushMatrix, Apply and PopMatrix.
#include "../platform/CVExport.h"
#include "../core/CVNode.h"
#include "../core/CVSFNode.h"
#include "CVMaterial.h"
#include "CVTexture.h"
#include "CVTextureTransform.h"

class CVSCENE_API CVAppearance : public CVNode {
    DECLARE_DYNAMIC(CVAppearance)
public:
    CVAppearance() = default;

    void Render(CVState* state, CVGLRenderArea* area) override;

    CVMaterial* GetMaterial() const { return material.GetValue(); }
    CVTexture* GetTexture() const { return texture.GetValue(); }
    CVTextureTransform* GetTextureTransform() const { return textureTransform.GetValue(); }

    CVSFNode<CVMaterial> material;                  // null
    CVSFNode<CVTexture> texture;                    // null
    CVSFNode<CVTextureTransform> textureTransform;  // null
};
