#pragma once
// Base of every action. Nodes drive the walk (Traverse) and call PreActOn and
// PostActOn on the action; grouping nodes bracket their children with
// PushState/PopState. An action owns its CVState. Clearing the continue flag
// makes groups skip their remaining children.
#include "../platform/CVExport.h"
#include "../base/CVBase.h"
#include "CVState.h"

class CVNode;

class CVSCENE_API CVAction : public CVBase {
    DECLARE_DYNAMIC(CVAction)
public:
    CVAction();
    ~CVAction() override;
    CVAction(const CVAction&) = delete;
    CVAction& operator=(const CVAction&) = delete;

    virtual int Apply(CVNode* node) = 0;
    virtual void PreActOn(CVNode* node);
    virtual void PostActOn(CVNode* node);
    virtual void PushState();
    virtual void PopState();
    virtual void PushLights();
    virtual void PopLights();
    virtual void PushModelView();
    virtual void PopModelView();
    virtual void PushProjection();
    virtual void PopProjection();

    int DoTraversal() const { return m_bContinue; }
    CVState* GetState() const { return m_pState; }

protected:
    // Sets the two work integers to 0 and -1 and the continue flag to 1.
    virtual void Reset();

    int m_nWork0 = 0;   // meaning chosen by derived actions
    int m_nWork1 = -1;  // meaning chosen by derived actions
    CVState* m_pState;
    int m_bContinue = 1;
};
