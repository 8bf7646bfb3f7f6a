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
// window is maximised: the manager says so in the window's _NET_WM_STATE, and
// then the offer of maximise is taken back. Whenever the manager says that
// the window, on screen, is maximised no more, maximise is offered and asked
// for again: a manager takes its windows anew when the screen changes size,
// and keeps maximised only those that offer to be, which would leave the
// table at the old screen's size with no way to bring it back. What the
// state says while the window is not on screen counts for nothing: before the
// window is mapped it is Qt's own request, and a minimised window is left as
// it is until it comes back.
class Sorveglia final : public QObject, public QAbstractNativeEventFilter {
public:
    Sorveglia(QWidget& finestra, xcb_connection_t* c)
        : QObject(&finestra),
          c_(c),
          finestra_(static_cast<xcb_window_t>(finestra.winId())),
          radice_(radice(c, finestra_)),
          hints_(atomo(c, "_MOTIF_WM_HINTS")),
          stato_(atomo(c, "_NET_WM_STATE")),
          verticale_(atomo(c, "_NET_WM_STATE_MAXIMIZED_VERT")),
          orizzontale_(atomo(c, "_NET_WM_STATE_MAXIMIZED_HORZ")),
          nascosta_(atomo(c, "_NET_WM_STATE_HIDDEN")) {
        QAbstractEventDispatcher::instance()->installNativeEventFilter(this);
    }
    ~Sorveglia() override {
        if (auto* d = QAbstractEventDispatcher::instance()) d->removeNativeEventFilter(this);
    }

    // Qt's show asks for the maximised window itself.
    void chiedi_ingrandita() {
        attesa_ = true;
        offri(true);
    }

    bool nativeEventFilter(const QByteArray& tipo, void* messaggio, qintptr*) override {
        if (tipo != "xcb_generic_event_t") return false;
        const auto* evento = static_cast<const xcb_generic_event_t*>(messaggio);
        switch (evento->response_type & 0x7f) {
            case XCB_PROPERTY_NOTIFY: {
                const auto* cambio = static_cast<const xcb_property_notify_event_t*>(messaggio);
                if (cambio->window == finestra_ && cambio->atom == stato_) segui();
                break;
            }
            case XCB_MAP_NOTIFY:
                if (static_cast<const xcb_map_notify_event_t*>(messaggio)->window == finestra_) segui();
                break;
            default: break;
        }
        return false;
    }

private:
    static xcb_window_t radice(xcb_connection_t* c, xcb_window_t w) {
        xcb_get_geometry_reply_t* r = xcb_get_geometry_reply(c, xcb_get_geometry(c, w), nullptr);
        const xcb_window_t radice = r != nullptr ? r->root : xcb_window_t{XCB_WINDOW_NONE};
        std::free(r);
        return radice;
    }

    void segui() {
        if (!sullo_schermo()) return;
        bool ingrandita = false, nascosta = false;
        leggi_stato(ingrandita, nascosta);
        if (ingrandita && attesa_) {
            attesa_ = false;
            offri(false);
        } else if (!ingrandita && !nascosta && !attesa_) {
            attesa_ = true;
            offri(true);
            chiedi();
        }
    }

    void offri(bool anche_ingrandisci) {
        const std::array<std::uint32_t, 5> hints{mwm_funzioni | mwm_decorazioni,
                                                 riduci | chiudi | (anche_ingrandisci ? ingrandisci : 0),
                                                 bordo | titolo | menu | bottone_riduci, 0, 0};
        xcb_change_property(c_, XCB_PROP_MODE_REPLACE, finestra_, hints_, hints_, 32,
                            static_cast<std::uint32_t>(hints.size()), hints.data());
        xcb_flush(c_);
    }

    // Asks the manager to maximise the window both ways, as a program asks
    // for a window already mapped.
    void chiedi() {
        xcb_client_message_event_t richiesta{};
        richiesta.response_type = XCB_CLIENT_MESSAGE;
        richiesta.format = 32;
        richiesta.window = finestra_;
        richiesta.type = stato_;
        richiesta.data.data32[0] = 1;  // add
        richiesta.data.data32[1] = verticale_;
        richiesta.data.data32[2] = orizzontale_;
        richiesta.data.data32[3] = 1;  // from a program
        xcb_send_event(c_, 0, radice_, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&richiesta));
        xcb_flush(c_);
    }

    bool sullo_schermo() const {
        xcb_get_window_attributes_reply_t* r =
            xcb_get_window_attributes_reply(c_, xcb_get_window_attributes(c_, finestra_), nullptr);
        const bool si = r != nullptr && r->map_state == XCB_MAP_STATE_VIEWABLE;
        std::free(r);
        return si;
    }

    // Whether the manager says the window is maximised both ways, and
    // whether it says it is minimised.
    void leggi_stato(bool& ingrandita, bool& nascosta) const {
        xcb_get_property_reply_t* risposta =
            xcb_get_property_reply(c_, xcb_get_property(c_, 0, finestra_, stato_, XCB_ATOM_ATOM, 0, 64), nullptr);
        if (risposta == nullptr) return;
        const auto* atomi = static_cast<const xcb_atom_t*>(xcb_get_property_value(risposta));
        const auto* fine =
            atomi + static_cast<std::size_t>(xcb_get_property_value_length(risposta)) / sizeof(xcb_atom_t);
        auto presente = [&](xcb_atom_t a) { return std::find(atomi, fine, a) != fine; };
        ingrandita = presente(verticale_) && presente(orizzontale_);
        nascosta = presente(nascosta_);
        std::free(risposta);
    }

    xcb_connection_t* c_;
    xcb_window_t finestra_, radice_;
    xcb_atom_t hints_, stato_, verticale_, orizzontale_, nascosta_;
    bool attesa_ = false;  // maximise is offered, and the window waits to be maximised
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
