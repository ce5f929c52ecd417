#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <utility>

// Owns one Core Foundation reference (a +1 from a Create or Copy call) and releases it once.
template <typename T> class MacCFRef {
public:
    MacCFRef() = default;
    // Adopts a reference the caller already owns; null holds nothing.
    explicit MacCFRef(T owned) : m_ref(owned) {}
    MacCFRef(const MacCFRef&) = delete;
    MacCFRef& operator=(const MacCFRef&) = delete;
    MacCFRef(MacCFRef&& other) noexcept : m_ref(std::exchange(other.m_ref, nullptr)) {}
    MacCFRef& operator=(MacCFRef&& other) noexcept
    {
        if (this != &other) {
            reset(std::exchange(other.m_ref, nullptr));
        }
        return *this;
    }
    ~MacCFRef() { reset(); }

    // The handle, still owned here; null when empty.
    T get() const { return m_ref; }
    explicit operator bool() const { return m_ref != nullptr; }
    // Releases the held reference and adopts `owned` in its place.
    void reset(T owned = nullptr)
    {
        if (m_ref != nullptr) {
            CFRelease(m_ref);
        }
        m_ref = owned;
    }

private:
    T m_ref = nullptr;
};
