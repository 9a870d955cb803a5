#pragma once
// Exception family of the framework. Thrown by value; catch by reference.
// Messages start with the function that raised them.
#include "CVExport.h"
#include <exception>
#include <string>

class CVSCENE_API CException : public std::exception {
public:
    explicit CException(std::string message = "CException");
    const char* what() const noexcept override;

private:
    std::string m_strMessage;
};

// An index or argument outside what the callee accepts.
class CVSCENE_API CInvalidArgException : public CException {
public:
    explicit CInvalidArgException(const std::string& message = "invalid argument");
};

// Memory could not be had.
class CVSCENE_API CMemoryException : public CException {
public:
    explicit CMemoryException(const std::string& message = "out of memory");
};

[[noreturn]] CVSCENE_API void AfxThrowInvalidArgException(const std::string& where);
[[noreturn]] CVSCENE_API void AfxThrowMemoryException(const std::string& where);
