#pragma once

#include <functional>
#include <list>
#include <memory>

// Keeps one listener registered for as long as it lives; moving it moves the registration.
class ListenerSubscription {
public:
    ListenerSubscription() = default;
    explicit ListenerSubscription(std::shared_ptr<void> token) : m_token(std::move(token)) {}

    void reset() { m_token.reset(); }
    explicit operator bool() const { return m_token != nullptr; }

private:
    std::shared_ptr<void> m_token;
};

// The listeners of one kind of event, called in the order they subscribed. A listener may subscribe or
// unsubscribe others, or itself, from inside a call; one unsubscribed before its turn is not called. A
// subscription may outlive the list. Single thread.
template <typename... Args> class ListenerList {
public:
    using Listener = std::function<void(Args...)>;

    [[nodiscard]] ListenerSubscription subscribe(Listener listener)
    {
        auto shared = std::make_shared<Listener>(std::move(listener));
        m_listeners.push_back(shared);
        return ListenerSubscription(std::move(shared));
    }

    void notify(Args... args)
    {
        m_listeners.remove_if([](const std::weak_ptr<Listener>& listener) { return listener.expired(); });
        // A copy, so calls may change the list.
        const auto listeners = m_listeners;
        for (const auto& weak : listeners) {
            if (const auto listener = weak.lock()) {
                (*listener)(args...);
            }
        }
    }

    // Whether no subscription is alive.
    bool isEmpty()
    {
        m_listeners.remove_if([](const std::weak_ptr<Listener>& listener) { return listener.expired(); });
        return m_listeners.empty();
    }

private:
    std::list<std::weak_ptr<Listener>> m_listeners;
};
