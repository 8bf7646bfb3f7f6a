// SPDX-License-Identifier: GPL-3.0-or-later
// The table and the score sheet on a real X server under a window manager
// (tests/sotto_x11: Xvfb and jwm, a screen of 1920 x 1080 that can become
// 1024 x 768): maximised with the fixed frame, still so when the screen
// changes size under them, smaller and then larger, as a laptop's screen does
// when it leaves its dock and comes back; and the song frame of the first blue
// screen painted where the maximised window puts it.

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <QApplication>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QTest>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "banco.h"
#include "table/qt/applicazione.h"
#include "table/qt/immagini.h"
#include "table/qt/superficie_qt.h"

namespace lesta {
namespace {

constexpr int attesa_ms = 5000;  // for the window manager to do its work

Immagini& immagini() {
    static Immagini tutte;
    return tutte;
}

xcb_connection_t* x11() {
    auto* x = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x != nullptr ? x->connection() : nullptr;
}

xcb_atom_t atomo(const char* nome) {
    xcb_intern_atom_reply_t* r = xcb_intern_atom_reply(
        x11(), xcb_intern_atom(x11(), 0, static_cast<std::uint16_t>(std::strlen(nome)), nome), nullptr);
    const xcb_atom_t a = r != nullptr ? r->atom : xcb_atom_t{XCB_ATOM_NONE};
    std::free(r);
    return a;
}

// A property of 32-bit items of the window, as the X server holds it now.
std::vector<std::uint32_t> proprieta(const QWidget& w, const char* nome) {
    const xcb_atom_t a = atomo(nome);
    xcb_get_property_reply_t* r = xcb_get_property_reply(
        x11(), xcb_get_property(x11(), 0, static_cast<xcb_window_t>(w.winId()), a, XCB_GET_PROPERTY_TYPE_ANY, 0, 64),
        nullptr);
    std::vector<std::uint32_t> valori;
    if (r != nullptr && r->format == 32) {
        const auto* v = static_cast<const std::uint32_t*>(xcb_get_property_value(r));
        valori.assign(v, v + xcb_get_property_value_length(r) / 4);
    }
    std::free(r);
    return valori;
}

bool ha(const std::vector<std::uint32_t>& atomi, const char* nome) {
    return std::find(atomi.begin(), atomi.end(), atomo(nome)) != atomi.end();
}

std::string nomi(const std::vector<std::uint32_t>& atomi) {
    std::string s;
    for (std::uint32_t a : atomi) {
        xcb_get_atom_name_reply_t* r = xcb_get_atom_name_reply(x11(), xcb_get_atom_name(x11(), a), nullptr);
        if (r == nullptr) continue;
        s += std::string(xcb_get_atom_name_name(r), static_cast<std::size_t>(xcb_get_atom_name_name_length(r))) + " ";
        std::free(r);
    }
    return s;
}

// The functions that the window offers its manager: minimise (8) and close
// (32), and with them neither move, nor resize, nor maximise.
constexpr std::uint32_t solo_riduci_e_chiudi = 8 | 32;
std::uint32_t funzioni(const QWidget& w) {
    const auto hints = proprieta(w, "_MOTIF_WM_HINTS");
    return hints.size() >= 2 && (hints[0] & 1) ? hints[1] : 0xFFFFFFFFu;
}

// The screen takes this mode (1920x1080 or 1024x768), as its settings would.
void modo(const char* nome) {
    ASSERT_EQ(QProcess::execute(QStringLiteral("xrandr"), {"--output", "screen", "--mode", nome}), 0) << nome;
}

// The window fills the free area of a screen of this size, the manager says it
// is maximised, and its frame offers no move, resize or maximise. Looked at
// again until it does, for at most a few seconds.
::testing::AssertionResult a_tutto_schermo(const char* nome, const QWidget& w, QSize schermo) {
    QRect finestra, libera, tutto;
    std::vector<std::uint32_t> stato;
    std::uint32_t offerte = 0;
    const bool si = QTest::qWaitFor(
        [&] {
            tutto = w.screen()->geometry();
            libera = w.screen()->availableGeometry();
            finestra = w.frameGeometry();
            stato = proprieta(w, "_NET_WM_STATE");
            offerte = funzioni(w);
            return tutto.size() == schermo && finestra == libera && ha(stato, "_NET_WM_STATE_MAXIMIZED_VERT") &&
                   ha(stato, "_NET_WM_STATE_MAXIMIZED_HORZ") && offerte == solo_riduci_e_chiudi;
        },
        attesa_ms);
    if (si) return ::testing::AssertionSuccess();
    auto testo = [](QRect r) {
        return std::to_string(r.width()) + "x" + std::to_string(r.height()) + "+" + std::to_string(r.x()) + "+" +
               std::to_string(r.y());
    };
    return ::testing::AssertionFailure() << nome << " on a screen of " << testo(tutto) << " (free " << testo(libera)
                                         << "): " << testo(finestra) << ", state " << nomi(stato)
                                         << ", functions offered " << offerte;
}

// A control lies wholly on the screen, where the player can reach it.
bool sullo_schermo(const QWidget& c) {
    return c.isVisible() && c.screen()->availableGeometry().contains(QRect(c.mapToGlobal(QPoint(0, 0)), c.size()));
}

std::filesystem::path con_impostazioni(const std::filesystem::path& cartella, std::string_view impostazioni) {
    prova::scrivi_tutto(cartella / "Config.brx", impostazioni);
    return cartella;
}

TEST(Schermi, TheTestRunsOnX11UnderAWindowManager) {
    ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb")) << "run it through tests/sotto_x11";
    ASSERT_NE(x11(), nullptr);
}

// The start panel stays within reach through both changes: the table and the
// sheet are maximised again on the smaller screen, and again on the larger.
TEST(Schermi, TheTableAndTheSheetStayMaximisedWhenTheScreenChangesSize) {
    prova::CartellaTemporanea cartella;
    Applicazione lesta(immagini(), con_impostazioni(cartella.percorso(), " 3 \r\n 0 \r\n 75 \r\n"));
    lesta.avvia();
    QWidget& go = *lesta.tavolo().widget(Controllo::GO);
    ASSERT_TRUE(QTest::qWaitFor([&] { return go.isVisible(); }, attesa_ms));
    lesta.foglio().Show();
    lesta.tavolo().raise();
    lesta.tavolo().activateWindow();

    for (const auto& [nome, misura] :
         {std::pair{"1920x1080", QSize(1920, 1080)}, std::pair{"1024x768", QSize(1024, 768)},
          std::pair{"1920x1080", QSize(1920, 1080)}}) {
        SCOPED_TRACE(nome);
        modo(nome);
        EXPECT_TRUE(a_tutto_schermo("the table", lesta.tavolo(), misura));
        EXPECT_TRUE(a_tutto_schermo("the sheet", lesta.foglio(), misura));
        EXPECT_TRUE(sullo_schermo(go));
    }
}

// At the first start the song frame stands on the blue screen where it stands
// from the start panel on: painted once the window has its maximised size,
// not before, with the title button in the middle of it.
TEST(Schermi, TheSongFrameOfTheFirstBlueScreenIsPaintedWhereTheMaximisedWindowPutsIt) {
    prova::CartellaTemporanea cartella;
    std::filesystem::create_directories(cartella.percorso() / "music");
    prova::scrivi_tutto(cartella.percorso() / "music" / "Prova.mid", "");
    // "Low", the first song: the blue screen stays up for over a second.
    Applicazione lesta(immagini(), con_impostazioni(cartella.percorso(), " 1 \r\n 1 \r\n 75 \r\n"));
    lesta.avvia();
    SuperficieQt& s = lesta.tavolo().superficie();
    ASSERT_TRUE(QTest::qWaitFor([&] { return lesta.tavolo().widget(Controllo::CmdSong)->isVisible(); }, attesa_ms));
    ASSERT_TRUE(a_tutto_schermo("the table", lesta.tavolo(), QSize(1920, 1080)));
    ASSERT_EQ(s.BackColor(), blu) << "the blue screen is gone";

    // The frame's column through its middle: what is not blue in it, from
    // where to where.
    const Rett& cornice = lesta.gioco().rett(Controllo::quadro);
    const Rett posto{10, 300 - cornice.height / 2, cornice.width, cornice.height};
    const qreal dpr = s.devicePixelRatioF();
    const QRect atteso = s.in_pixel(posto);
    const int x = static_cast<int>(atteso.center().x() * dpr);
    int alto = -1, basso = -1;
    for (int y = 0; y < s.area().height(); ++y) {
        if (colore_word(s.immagine().pixel(x, y)) == blu) continue;
        if (alto < 0) alto = y;
        basso = y;
    }
    EXPECT_NEAR(alto, atteso.top() * dpr, 1.0 + dpr);
    EXPECT_NEAR(basso + 1, (atteso.bottom() + 1) * dpr, 1.0 + dpr);
    // The title button stands in the middle of the painted frame.
    const QRect bottone = lesta.tavolo().widget(Controllo::CmdSong)->geometry();
    EXPECT_NEAR((alto + basso + 1) / 2.0, (bottone.top() + bottone.bottom() + 1) / 2.0 * dpr, 1.0 + dpr);
}

}  // namespace
}  // namespace lesta
