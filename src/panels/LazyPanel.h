#pragma once

#include <functional>
#include <memory>

// A panel's surface, made by its factory the first time it is needed and kept from then on: a panel the
// user never opens costs nothing, and one opened again keeps its place, size and contents.
template <typename Surface> class LazyPanel {
public:
    using Factory = std::function<std::unique_ptr<Surface>()>;

    explicit LazyPanel(Factory make) : m_make(std::move(make)) {}

    // The surface, made now if this is the first use.
    Surface& get()
    {
        if (!m_surface) {
            m_surface = m_make();
        }
        return *m_surface;
    }
    // The surface if it was ever made; null otherwise, without making it.
    Surface* ifMade() const { return m_surface.get(); }

private:
    Factory m_make;
    std::unique_ptr<Surface> m_surface;
};
