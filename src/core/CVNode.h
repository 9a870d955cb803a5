#pragma once
// Base of every scene-graph node: a unique id from a process-wide counter, an
// entry in the live-node registry, an optional name entered in the current
// name space, and the virtual operations through which actions walk nodes.
//
// Name spaces form a strict stack and only the top one is read or written. A
// node removes its name from whatever space is on top when it is renamed or
// destroyed, not from the space it was entered in. Every name operation throws
// CInvalidArgException while no space is open (before Init, after the last pop).
#include "../platform/CVExport.h"
#include "CVRefCount.h"
#include "../platform/CArray.h"
#include "../platform/CMapStringToOb.h"
#include "../platform/CString.h"

class CVAction;
class CVState;
class CVGLRenderArea;
class CVBox3f;
class CVDetail;
class CVNode;
class CVNodeRegistry;

typedef CTypedPtrMap<CMapStringToOb, CString, CVNode*> CVNameSpace;
typedef CArray<CVNode*, CVNode*> CVNodePath;

class CVSCENE_API CVNode : public CVRefCount {
    DECLARE_DYNAMIC(CVNode)
public:
    CVNode();
    // Removes the name from the current space (if one is open) and the node from the registry.
    ~CVNode() override;

    // Default walk: PreActOn then PostActOn on the action.
    virtual void Traverse(CVAction* action, const CArray<CVNode*, CVNode*>* path, int index);
    virtual void Render(CVState* state, CVGLRenderArea* area);
    // Unites this node's box, in its own coordinates, into box. Default: nothing.
    virtual void ComputeBoundingBox(CVState* state, CVGLRenderArea* area, CVBox3f* box);
    // 1 when valid; otherwise 0 with the reason in message.
    virtual int IsValid(CString& message);
    virtual CVDetail* GetPickDetail(unsigned int hitName);

    int GetID() const { return m_nID; }
    // Stores a copy and maps it to this node in the current name space; the
    // last node given a name wins the entry.
    void SetName(const CString& name);
    const CString* GetName() const { return m_pName; }

    static CVNode* NameToNode(const CString& name);
    static void Init();
    static void UnInit();
    static void PushNameSpace();
    static void PopNameSpace();
    static CVNameSpace* TopNameSpace();
    // The area whose display lists serve area: the area it shares its caches
    // with (CVGLRenderArea::SetRenderCache), else area itself.
    static CVGLRenderArea* MakeCacheCurrent(CVGLRenderArea* area);
    static void UnMakeCacheCurrent(CVGLRenderArea* area);
    // Render areas belong to a higher layer, which says how to read an area's
    // shared cache (the library's load does). Until then every area serves itself.
    typedef CVGLRenderArea* (*RenderCacheProc)(CVGLRenderArea* area);
    static void SetRenderCacheProc(RenderCacheProc proc);
    static void AddToTypeNameSpace() {}

    // The live node with this id, or null (what picking maps hit names with).
    static CVNode* FindNodeByID(int id);
    // Live nodes in construction order.
    static INT_PTR GetNodeCount();
    static CVNode* GetNodeAt(INT_PTR index);
    // Hands out the next id, for sub-items drawn under their own selection names.
    static int TakeNextID() { return nextID++; }

    static int depth;      // index of the current name space; -2 before Init
    static int nextID;     // next id to hand out; ids start at 1 and only grow
    static CArray<CVNameSpace*, CVNameSpace*>& NameStack();
    static CVNodeRegistry& NodeList();

protected:
    int m_nID;
    CString* m_pName = nullptr;

private:
    void AddName();
    void RemoveName();
    static CVNameSpace* CurrentNameSpace(const char* caller);
};
