#include "Shared/Utils/Exceptions.h"

#include <algorithm>
#include <new>

namespace Nvr {

Exception& Exception::operator=(const Exception& other) noexcept {
    if (this == &other)
        return *this;
    InterruptException::operator=(other);
    m_Message = other.m_Message;
    m_Text.reset();
    return *this;
}

Exception::~Exception() = default;

const char* Exception::what() const noexcept {
    if (m_Text == nullptr) {
        m_Text.reset(new (std::nothrow) char[std::size_t{m_Message.Length()} + 1]);
        if (m_Text == nullptr)
            return m_Message.CStr();
        std::copy_n(m_Message.CStr(), std::size_t{m_Message.Length()} + 1, m_Text.get());
    }
    return m_Text.get();
}

const char* OutOfMemoryException::what() const noexcept {
    return "Out of memory";
}

} // namespace Nvr
