// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The game's waits. A routine that waits suspends at a co_await and the
// program's event loop goes on; the event that makes the awaited condition
// true wakes it. On the desktop that is Qt's loop and Timer2 a QTimer; in
// tests and the simulator the clock is virtual and input is scripted, so a
// wait completes at once and a whole match runs in milliseconds.

#include <coroutine>

namespace lesta {

// A suspended routine and the condition it waits for.
class Risveglio {
public:
    virtual bool pronto() const = 0;
    std::coroutine_handle<> chi;

protected:
    ~Risveglio() = default;
};

class Orologio {
public:
    virtual ~Orologio() = default;

    // Timer2: while on, it fires every intervallo_ms milliseconds.
    virtual void Timer2(int intervallo_ms, bool acceso) = 0;

    // Holds r.chi until r.pronto() is true after some event. Returns false
    // when the routine can go straight on (the condition already holds), in
    // which case r.chi must not be resumed by the clock.
    virtual bool sospendi(Risveglio& r) = 0;

    // A pause on Timer2 where waiting costs nothing (the simulator's clock):
    // counts the interval, fires Timer2 once and returns true, so the routine
    // goes straight on without suspending. A real clock returns false and
    // the routine sleeps until Timer2 fires.
    virtual bool pausa_immediata(int intervallo_ms) {
        static_cast<void>(intervallo_ms);
        return false;
    }

    // Holds r.chi until what is painted so far has reached the screen.
    // Returns false when it can go straight on.
    virtual bool sospendi_un_frame(std::coroutine_handle<> chi) = 0;
};

// co_await finche(orologio, [&] { return condition; });
template <class Condizione>
class Finche final : public Risveglio {
public:
    Finche(Orologio& o, Condizione c) : orologio_(o), condizione_(std::move(c)) {}
    bool pronto() const override { return condizione_(); }
    bool await_ready() const { return condizione_(); }
    bool await_suspend(std::coroutine_handle<> h) {
        chi = h;
        return orologio_.sospendi(*this);
    }
    void await_resume() const noexcept {}

private:
    Orologio& orologio_;
    Condizione condizione_;
};

template <class Condizione>
Finche<Condizione> finche(Orologio& o, Condizione c) {
    return Finche<Condizione>(o, std::move(c));
}

// co_await un_frame(orologio);
struct UnFrame {
    Orologio& orologio;
    bool await_ready() const noexcept { return false; }
    bool await_suspend(std::coroutine_handle<> h) { return orologio.sospendi_un_frame(h); }
    void await_resume() const noexcept {}
};
inline UnFrame un_frame(Orologio& o) { return UnFrame{o}; }

}  // namespace lesta
