#include "render/CVGLErrors.h"

#include "platform/CString.h"
#include "platform/WinGL.h"

unsigned int CVGLErrors::DiscardLastError() {
    DWORD code = GetLastError();
    CString message;
    message.Format(L"system error %u", (unsigned)code);
    return code;
}
