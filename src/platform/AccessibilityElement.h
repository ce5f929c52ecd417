#pragma once

#include <memory>

// A reference to one element of another application's accessibility tree. What it holds belongs to the
// tree implementation that made it; comparing two references for the same element is the tree's job
// (AccessibilityTree::isSameElement), since two references may name one element.
class AccessibilityElement {
public:
    AccessibilityElement() = default;
    explicit AccessibilityElement(std::shared_ptr<void> handle) : m_handle(std::move(handle)) {}

    bool isNull() const { return !m_handle; }
    explicit operator bool() const { return !isNull(); }
    template <typename T> T* handle() const { return static_cast<T*>(m_handle.get()); }

    // Identity of the reference, not of the element.
    bool operator==(const AccessibilityElement& other) const { return m_handle == other.m_handle; }

private:
    std::shared_ptr<void> m_handle;
};
