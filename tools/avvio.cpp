// SPDX-License-Identifier: GPL-3.0-or-later
// The start-up a player waits for, seen from outside the program: the time
// from the program's start to the moment the X server maps its first window,
// as a window manager shows it.
//
// lesta-avvio <program> [arguments...]
// starts the program, writes the milliseconds it took to map a window of its
// own (the window that carries its process id) and, after a blank, the
// milliseconds of CPU its threads had used by then, and ends it. The CPU
// hardly depends on what else the machine is doing; the time does. Nothing of the
// program is changed or asked: the same measure serves the game and any other
// program beside it.

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace {

using Orologio = std::chrono::steady_clock;

struct Libera {
    void operator()(void* p) const { std::free(p); }
};
template <class T>
using Risposta = std::unique_ptr<T, Libera>;

xcb_atom_t atomo(xcb_connection_t* c, const char* nome) {
    Risposta<xcb_intern_atom_reply_t> r(
        xcb_intern_atom_reply(c, xcb_intern_atom(c, 0, static_cast<std::uint16_t>(std::strlen(nome)), nome), nullptr));
    return r != nullptr ? r->atom : xcb_atom_t{XCB_ATOM_NONE};
}

// The process id a window says it belongs to, or 0.
pid_t pid_di(xcb_connection_t* c, xcb_window_t w, xcb_atom_t net_wm_pid) {
    Risposta<xcb_get_property_reply_t> r(
        xcb_get_property_reply(c, xcb_get_property(c, 0, w, net_wm_pid, XCB_ATOM_CARDINAL, 0, 1), nullptr));
    if (r == nullptr || xcb_get_property_value_length(r.get()) != 4) return 0;
    std::uint32_t pid = 0;
    std::memcpy(&pid, xcb_get_property_value(r.get()), 4);
    return static_cast<pid_t>(pid);
}

bool mappata(xcb_connection_t* c, xcb_window_t w) {
    Risposta<xcb_get_window_attributes_reply_t> r(
        xcb_get_window_attributes_reply(c, xcb_get_window_attributes(c, w), nullptr));
    return r != nullptr && r->map_state != XCB_MAP_STATE_UNMAPPED;
}

// The CPU time the threads of a process have used, in milliseconds.
double cpu_ms(pid_t pid) {
    double ns = 0;
    std::error_code errore;
    for (const auto& thread : std::filesystem::directory_iterator("/proc/" + std::to_string(pid) + "/task", errore)) {
        double sul_processore = 0;
        if (std::ifstream(thread.path() / "schedstat") >> sul_processore) ns += sul_processore;
    }
    return ns / 1e6;
}

void ascolta(xcb_connection_t* c, xcb_window_t w, std::uint32_t maschera) {
    xcb_change_window_attributes(c, w, XCB_CW_EVENT_MASK, &maschera);
}

}  // namespace

int main(int argc, char* argv[]) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: lesta-avvio <program> [arguments...]\n");
        return 2;
    }
    xcb_connection_t* c = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(c) != 0) {
        std::fprintf(stderr, "no X display\n");
        return 1;
    }
    const xcb_window_t radice = xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
    const xcb_atom_t net_wm_pid = atomo(c, "_NET_WM_PID");
    // Every window made on the screen is announced here; each is then watched
    // for its own map, which a window manager does after taking it into a
    // frame of its own.
    ascolta(c, radice, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    std::free(xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));  // in force before the start

    const auto inizio = Orologio::now();
    const pid_t figlio = fork();
    if (figlio == 0) {
        execvp(argv[1], argv + 1);
        _exit(127);
    }
    if (figlio < 0) return 1;

    auto fine = [&](int esito) {
        kill(figlio, SIGTERM);
        waitpid(figlio, nullptr, 0);
        xcb_disconnect(c);
        return esito;
    };
    auto nostra = [&](xcb_window_t w) { return pid_di(c, w, net_wm_pid) == figlio; };
    pollfd attesa{xcb_get_file_descriptor(c), POLLIN, 0};
    for (;;) {
        Risposta<xcb_generic_event_t> e(xcb_poll_for_event(c));
        if (e == nullptr) {
            if (xcb_connection_has_error(c) != 0 || Orologio::now() - inizio > std::chrono::seconds(20)) {
                std::fprintf(stderr, "no window of the program was mapped\n");
                return fine(1);
            }
            poll(&attesa, 1, 100);
            continue;
        }
        xcb_window_t mappa = XCB_WINDOW_NONE;
        switch (e->response_type & 0x7f) {
            case XCB_CREATE_NOTIFY: {
                const auto* creata = reinterpret_cast<xcb_create_notify_event_t*>(e.get());
                if (creata->override_redirect != 0) break;
                ascolta(c, creata->window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
                // Mapped already, before the watch was in force.
                if (mappata(c, creata->window)) mappa = creata->window;
                break;
            }
            case XCB_MAP_NOTIFY: mappa = reinterpret_cast<xcb_map_notify_event_t*>(e.get())->window; break;
            default: break;
        }
        if (mappa != XCB_WINDOW_NONE && nostra(mappa)) {
            const std::chrono::duration<double, std::milli> ms = Orologio::now() - inizio;
            std::printf("%.1f %.1f\n", ms.count(), cpu_ms(figlio));
            return fine(0);
        }
    }
}
