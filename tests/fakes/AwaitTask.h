#pragma once

#include <QEventLoop>
#include <QTimer>
#include <chrono>
#include <exception>
#include <memory>
#include <optional>
#include <qcoro/qcorotask.h>
#include <stdexcept>

// Runs the event loop until a coroutine is done and hands back its value or rethrows its exception.
// A coroutine still running after `limit` is a test failure (std::runtime_error), never a hung test.
namespace AwaitTask {

namespace detail {

template <typename T> struct Outcome {
    bool done = false;
    std::exception_ptr failure;
    std::optional<T> value;
    QEventLoop* loop = nullptr;
};

struct Nothing {};

// Shared ownership: a coroutine that outlives its wait must not write into a gone stack frame.
template <typename T, typename Awaitable>
QCoro::Task<> settle(Awaitable task, std::shared_ptr<Outcome<T>> outcome)
{
    try {
        if constexpr (std::is_same_v<T, Nothing>) {
            co_await std::move(task);
            outcome->value.emplace();
        } else {
            outcome->value.emplace(co_await std::move(task));
        }
    } catch (...) {
        outcome->failure = std::current_exception();
    }
    outcome->done = true;
    if (outcome->loop != nullptr) {
        outcome->loop->quit();
    }
}

template <typename T, typename Awaitable> T wait(Awaitable task, std::chrono::milliseconds limit)
{
    auto outcome = std::make_shared<Outcome<T>>();
    QEventLoop loop;
    settle<T>(std::move(task), outcome);
    if (!outcome->done) {
        outcome->loop = &loop;
        QTimer::singleShot(limit, &loop, &QEventLoop::quit);
        loop.exec();
        outcome->loop = nullptr;
    }
    if (!outcome->done) {
        throw std::runtime_error("coroutine did not finish in time");
    }
    if (outcome->failure) {
        std::rethrow_exception(outcome->failure);
    }
    return std::move(*outcome->value);
}

} // namespace detail

template <typename T> T run(QCoro::Task<T> task, std::chrono::milliseconds limit = std::chrono::seconds(20))
{
    if constexpr (std::is_void_v<T>) {
        detail::wait<detail::Nothing>(std::move(task), limit);
    } else {
        return detail::wait<T>(std::move(task), limit);
    }
}

// Runs the event loop until the condition holds, for work started elsewhere (a timer, a fire-and-forget
// task). Gives up after `limit` and reports whether the condition held.
template <typename Predicate>
bool until(Predicate condition, std::chrono::milliseconds limit = std::chrono::seconds(20))
{
    QEventLoop loop;
    QTimer poll;
    // A condition may itself run the event loop (asking another process and waiting for its answer); the
    // poll must not ask again from inside that wait, or answers go to the wrong question.
    bool checking = false;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        if (checking) {
            return;
        }
        checking = true;
        const bool done = condition();
        checking = false;
        if (done) {
            loop.quit();
        }
    });
    QTimer::singleShot(limit, &loop, &QEventLoop::quit);
    if (!condition()) {
        poll.start(2);
        loop.exec();
    }
    return condition();
}

} // namespace AwaitTask
