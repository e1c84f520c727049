#pragma once

#include "Shared/Utils/NvrString.h"

#include <cstdint>
#include <exception>
#include <memory>

/// The exceptions of the system: for what cannot go on. What can is reported with ReportError and told by a
/// null or false result. All are thrown by value and caught by reference.
namespace Nvr {

/// The base of the system's exceptions. Carries a code, which means what the thrower says; 0 is none.
class InterruptException : public std::exception {
public:
    explicit InterruptException(std::int32_t code = 0) noexcept : m_Code(code) {}

    std::int32_t GetCode() const noexcept { return m_Code; }

private:
    std::int32_t m_Code;
};

/// A failure with a message.
class Exception : public InterruptException {
public:
    explicit Exception(const String& message, std::int32_t code = 0) noexcept
        : InterruptException(code), m_Message(message) {}
    /// A copy makes its own text when it is asked for it.
    Exception(const Exception& other) noexcept : InterruptException(other), m_Message(other.m_Message) {}
    Exception& operator=(const Exception& other) noexcept;
    ~Exception() override;

    const String& GetMessage() const noexcept { return m_Message; }
    /// The message; the same pointer on every call, valid as long as the exception.
    const char* what() const noexcept override;

private:
    String m_Message;
    mutable std::unique_ptr<char[]> m_Text;
};

/// A failure to read a tree.
class TreeNodeException : public Exception {
public:
    using Exception::Exception;
};

/// A failure in the window toolkit.
class WindowException : public Exception {
public:
    using Exception::Exception;
};

/// A file cannot be opened for writing.
class FileOpenWriteFailedException : public Exception {
public:
    using Exception::Exception;
};

/// A file cannot be saved.
class FileSaveFailedException : public Exception {
public:
    using Exception::Exception;
};

/// An allocation has failed; see AllocationFailure.h. Holds nothing, as there is no memory for it.
class OutOfMemoryException : public std::exception {
public:
    const char* what() const noexcept override;
};

} // namespace Nvr
