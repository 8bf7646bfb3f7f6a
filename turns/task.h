#pragma once
// The game's routines that wait (the start panel, the player's card, the
// selection, every pause) are coroutines returning Task. A Task is lazy: it
// starts when it is awaited, or when its owner calls start(). Awaiting a Task
// transfers control straight into it and back (symmetric transfer), so a hand
// of many nested waits never deepens the stack.
//
// Destroying a Task destroys its frame and, through the awaiters it holds,
// every routine it is waiting on: ending the program in the middle of a hand
// needs nothing more.

#include <coroutine>
#include <exception>
#include <utility>

namespace lesta {

class [[nodiscard]] Task {
public:
    struct promise_type {
        std::coroutine_handle<> chiamante;  // who awaits this routine, if anyone

        Task get_return_object() {
            return Task{std::coroutine_handle<promise_type>::from_promise(*this)};
        }
        std::suspend_always initial_suspend() noexcept { return {}; }

        struct Ritorno {
            bool await_ready() noexcept { return false; }
            std::coroutine_handle<> await_suspend(std::coroutine_handle<promise_type> h) noexcept {
                if (auto c = h.promise().chiamante) return c;
                return std::noop_coroutine();
            }
            void await_resume() noexcept {}
        };
        Ritorno final_suspend() noexcept { return {}; }
        void return_void() noexcept {}
        // The game has no error paths; an exception here is a bug.
        void unhandled_exception() noexcept { std::terminate(); }
    };

    Task() = default;
    Task(Task&& altro) noexcept : h_(std::exchange(altro.h_, {})) {}
    Task& operator=(Task&& altro) noexcept {
        if (this != &altro) {
            distruggi();
            h_ = std::exchange(altro.h_, {});
        }
        return *this;
    }
    Task(const Task&) = delete;
    Task& operator=(const Task&) = delete;
    ~Task() { distruggi(); }

    // Runs a top-level routine until its first wait.
    void start() { h_.resume(); }
    bool done() const { return !h_ || h_.done(); }

    auto operator co_await() && noexcept {
        struct Attesa {
            std::coroutine_handle<promise_type> h;
            bool await_ready() noexcept { return false; }
            std::coroutine_handle<> await_suspend(std::coroutine_handle<> chi) noexcept {
                h.promise().chiamante = chi;
                return h;
            }
            void await_resume() noexcept {}
        };
        return Attesa{h_};
    }

private:
    explicit Task(std::coroutine_handle<promise_type> h) : h_(h) {}
    void distruggi() {
        if (h_) h_.destroy();
        h_ = {};
    }
    std::coroutine_handle<promise_type> h_;
};

}  // namespace lesta
