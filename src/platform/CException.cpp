#include "platform/CException.h"

#include <utility>

CException::CException(std::string message) : m_strMessage(std::move(message)) {}

const char* CException::what() const noexcept { return m_strMessage.c_str(); }

CInvalidArgException::CInvalidArgException(const std::string& message) : CException(message) {}

CMemoryException::CMemoryException(const std::string& message) : CException(message) {}

void AfxThrowInvalidArgException(const std::string& where) { throw CInvalidArgException(where); }

void AfxThrowMemoryException(const std::string& where) { throw CMemoryException(where); }
