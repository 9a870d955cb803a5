#pragma once
// Window-creation record that a host view fills before creating its window.
#include "WinTypes.h"

struct CREATESTRUCTW {
    void* lpCreateParams;
    void* hInstance;
    void* hMenu;
    void* hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCWSTR lpszName;
    LPCWSTR lpszClass;
    DWORD dwExStyle;
};

#define WS_CLIPSIBLINGS 0x04000000L
#define WS_CLIPCHILDREN 0x02000000L
