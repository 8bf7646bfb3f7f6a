// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/qt/cornice_fissa.h"

#include <xcb/xcb.h>

#include <QAbstractEventDispatcher>
#include <QAbstractNativeEventFilter>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace lesta {
namespace {

// The Motif window manager hints, as X11 window managers read them.
constexpr std::uint32_t mwm_funzioni = 1, mwm_decorazioni = 2;
constexpr std::uint32_t riduci = 8, ingrandisci = 16, chiudi = 32;              // functions
constexpr std::uint32_t bordo = 2, titolo = 8, menu = 16, bottone_riduci = 32;  // decorations

xcb_connection_t* connessione_x11() {
    auto* x11 = qGuiApp != nullptr ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 != nullptr ? x11->connection() : nullptr;
}

xcb_atom_t atomo(xcb_connection_t* c, const char* nome) {
    xcb_intern_atom_reply_t* risposta =
        xcb_intern_atom_reply(c, xcb_intern_atom(c, 0, static_cast<std::uint16_t>(std::strlen(nome)), nome), nullptr);
    if (risposta == nullptr) return XCB_ATOM_NONE;
    const xcb_atom_t a = risposta->atom;
    std::free(risposta);
    return a;
}

// Offers the window manager minimise and close, and maximise until the
// window is maximised: the manager says so by changing the window's
// _NET_WM_STATE, and then the offer of maximise is taken back.
class Sorveglia final : public QObject, public QAbstractNativeEventFilter {
public:
    Sorveglia(QWidget& finestra, xcb_connection_t* c)
        : QObject(&finestra),
          c_(c),
          finestra_(static_cast<xcb_window_t>(finestra.winId())),
          hints_(atomo(c, "_MOTIF_WM_HINTS")),
          stato_(atomo(c, "_NET_WM_STATE")),
          verticale_(atomo(c, "_NET_WM_STATE_MAXIMIZED_VERT")),
          orizzontale_(atomo(c, "_NET_WM_STATE_MAXIMIZED_HORZ")) {
        QAbstractEventDispatcher::instance()->installNativeEventFilter(this);
    }
    ~Sorveglia() override {
        if (auto* d = QAbstractEventDispatcher::instance()) d->removeNativeEventFilter(this);
    }

    void chiedi_ingrandita() {
        attesa_ = true;
        offri(true);
    }

    bool nativeEventFilter(const QByteArray& tipo, void* messaggio, qintptr*) override {
        if (!attesa_ || tipo != "xcb_generic_event_t") return false;
        const auto* evento = static_cast<const xcb_generic_event_t*>(messaggio);
        if ((evento->response_type & 0x7f) != XCB_PROPERTY_NOTIFY) return false;
        const auto* cambio = static_cast<const xcb_property_notify_event_t*>(messaggio);
        if (cambio->window != finestra_ || cambio->atom != stato_ || !ingrandita()) return false;
        attesa_ = false;
        offri(false);
        return false;
    }

private:
    void offri(bool anche_ingrandisci) {
        const std::array<std::uint32_t, 5> hints{mwm_funzioni | mwm_decorazioni,
                                                 riduci | chiudi | (anche_ingrandisci ? ingrandisci : 0),
                                                 bordo | titolo | menu | bottone_riduci, 0, 0};
        xcb_change_property(c_, XCB_PROP_MODE_REPLACE, finestra_, hints_, hints_, 32,
                            static_cast<std::uint32_t>(hints.size()), hints.data());
        xcb_flush(c_);
    }

    // Whether the window manager says the window is maximised both ways.
    bool ingrandita() const {
        xcb_get_property_reply_t* risposta =
            xcb_get_property_reply(c_, xcb_get_property(c_, 0, finestra_, stato_, XCB_ATOM_ATOM, 0, 64), nullptr);
        if (risposta == nullptr) return false;
        const auto* atomi = static_cast<const xcb_atom_t*>(xcb_get_property_value(risposta));
        const auto* fine =
            atomi + static_cast<std::size_t>(xcb_get_property_value_length(risposta)) / sizeof(xcb_atom_t);
        const bool si = std::find(atomi, fine, verticale_) != fine && std::find(atomi, fine, orizzontale_) != fine;
        std::free(risposta);
        return si;
    }

    xcb_connection_t* c_;
    xcb_window_t finestra_;
    xcb_atom_t hints_, stato_, verticale_, orizzontale_;
    bool attesa_ = false;
};

}  // namespace

void mostra_a_cornice_fissa(QWidget& finestra) {
    // A window manager that maximises nothing still gives the window the
    // whole free area of its screen.
    if (!finestra.isVisible())
        if (const QScreen* schermo = finestra.screen()) finestra.setGeometry(schermo->availableGeometry());
    if (xcb_connection_t* c = connessione_x11()) {
        Sorveglia* sorveglia = nullptr;
        for (QObject* figlio : finestra.children())
            if (auto* s = dynamic_cast<Sorveglia*>(figlio)) sorveglia = s;
        if (sorveglia == nullptr) sorveglia = new Sorveglia(finestra, c);
        sorveglia->chiedi_ingrandita();
    }
    finestra.showMaximized();
}

}  // namespace lesta
