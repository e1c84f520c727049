#pragma once

#include "Shared/Utils/NonCopyable.h"

#include <utility>

namespace Nvr {

/// What all guards have in common: they can be held and destroyed without knowing of what type they guard.
class DeleterHelperBase : private NonCopyable {
public:
    virtual ~DeleterHelperBase() = default;
};

/// Holds an object that has no owner yet, and deletes it when an exception or an early return leaves the
/// scope. Release it once somebody owns it. A moved guard holds nothing.
template <class T>
class TDeleterHelper final : public DeleterHelperBase {
public:
    explicit TDeleterHelper(T* pointer = nullptr) noexcept : m_Pointer(pointer) {}
    TDeleterHelper(TDeleterHelper&& other) noexcept : DeleterHelperBase(), m_Pointer(other.Release()) {}
    TDeleterHelper& operator=(TDeleterHelper&& other) noexcept {
        Reset(other.Release());
        return *this;
    }
    ~TDeleterHelper() override { delete m_Pointer; }

    /// Deletes the object now; the guard holds nothing.
    virtual void Delete() { delete std::exchange(m_Pointer, nullptr); }
    /// Lets go of the object, which is the caller's from here on. Null when the guard held nothing.
    virtual T* Release() { return std::exchange(m_Pointer, nullptr); }
    /// Deletes the object and holds `pointer` instead. Nothing when it holds that already.
    virtual void Reset(T* pointer) {
        if (pointer != m_Pointer)
            delete std::exchange(m_Pointer, pointer);
    }

    T* Get() const noexcept { return m_Pointer; }
    T* operator->() const noexcept { return m_Pointer; }
    T& operator*() const noexcept { return *m_Pointer; }

private:
    T* m_Pointer;
};

} // namespace Nvr
