// SPDX-License-Identifier: GPL-3.0-or-later
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

#include <array>
#include <coroutine>
#include <cstddef>
#include <exception>
#include <new>
#include <utility>

namespace lesta {

// The frames of the game's routines come and go by the hundred in every hand;
// freed frames are kept per size and used again, so that a hand costs no trip
// to the system's allocator once the first has run. (Under AddressSanitizer
// every frame comes from the system, so that the sanitizer sees misuse.)
class MemoriaFrame {
public:
    static void* prendi(std::size_t n) {
#if defined(__SANITIZE_ADDRESS__)
        return ::operator new(n);
#else
        const std::size_t c = classe(n);
        if (c >= classi) return ::operator new(n);
        auto& libero = liberi().testa[c];
        if (libero == nullptr) return ::operator new(c* passo);
        return std::exchange(libero, *static_cast<void**>(libero));
#endif
    }
    static void rendi(void* p, [[maybe_unused]] std::size_t n) noexcept {
#if defined(__SANITIZE_ADDRESS__)
        ::operator delete(p);
#else
        const std::size_t c = classe(n);
        if (c >= classi) return ::operator delete(p);
        auto& libero = liberi().testa[c];
        *static_cast<void**>(p) = libero;
        libero = p;
#endif
    }

private:
    static constexpr std::size_t passo = 64, classi = 64;
    static constexpr std::size_t classe(std::size_t n) { return (n + passo - 1) / passo; }
    struct Liberi {
        std::array<void*, classi> testa{};
        ~Liberi() {
            for (void* p : testa)
                while (p != nullptr) ::operator delete(std::exchange(p, *static_cast<void**>(p)));
        }
    };
    static Liberi& liberi() {
        thread_local Liberi l;
        return l;
    }
};

class [[nodiscard]] Task {
public:
    struct promise_type {
        std::coroutine_handle<> chiamante;  // who awaits this routine, if anyone

        static void* operator new(std::size_t n) { return MemoriaFrame::prendi(n); }
        static void operator delete(void* p, std::size_t n) noexcept { MemoriaFrame::rendi(p, n); }

        Task get_return_object() { return Task{std::coroutine_handle<promise_type>::from_promise(*this)}; }
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
