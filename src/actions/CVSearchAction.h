#pragma once
// Finds nodes by pointer, name or class and collects the paths from the root
// to each match. Criteria accumulate over the action's life: every setter
// adds its criterion and none is ever cleared, so after SetNode(n) and
// SetType(t) a node matches when it is n or of kind t. Criteria are tried in
// the order node, name, class; a node without a name never matches by name.
//
// The walk records paths in the state (the identification flag), so
// geometry, lights and cameras reached by it behave as in a pick walk.
//
// A match found with no grouping node above it (the action applied straight
// to a matching leaf) has no path to report and throws CInvalidArgException.
#include "../platform/CVExport.h"
#include "../core/CVAction.h"
#include "../platform/CArray.h"
#include "../platform/CString.h"

class CVSCENE_API CVSearchAction : public CVAction {
    DECLARE_DYNAMIC(CVSearchAction)
public:
    // First stops the walk at the first match; any other value collects all.
    enum Interest : int { First = 0, All = 2 };
    enum Criteria { ByNode = 1, ByType = 2, ByName = 4 };
    typedef CArray<CVNode*, CVNode*> CVPath;

    CVSearchAction();
    ~CVSearchAction() override;

    void SetNode(CVNode* node);
    CVNode* GetNode() const { return m_pNode; }
    // Matches IsKindOf, so subclasses match too.
    void SetType(CRuntimeClass* type);
    CRuntimeClass* GetType() const { return m_pType; }
    // Case-sensitive.
    void SetName(const CString& name);
    const CString& GetName() const { return m_strName; }
    int GetCriteria() const { return m_nCriteria; }

    void SetInterest(Interest interest) { m_eInterest = interest; }
    Interest GetInterest() const { return m_eInterest; }

    // Forgets earlier paths, then walks root. Returns 0 for a null root, else 1.
    int Apply(CVNode* root) override;
    void PreActOn(CVNode* node) override;

    // Each path runs from the root to a found node; owned by the action and
    // deleted by the next Apply.
    const CArray<CVPath*, CVPath*>& GetPathList() const { return m_PathList; }
    int GetNumPathsFound() const { return m_nPathsFound; }

protected:
    int MatchesSearchCriteria(CVNode* node);
    void DeletePaths();
    // The base reset and DeletePaths; the criteria stay.
    void Reset() override;

private:
    CArray<CVPath*, CVPath*> m_PathList;
    Interest m_eInterest = All;
    int m_nCriteria = 0;
    CVNode* m_pNode = nullptr;
    CString m_strName;
    int m_nPathsFound = 0;
    CRuntimeClass* m_pType = nullptr;
};
