// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/qt/superficie_qt.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QResizeEvent>
#include <cmath>

#include "table/qt/immagini.h"

namespace lesta {

QColor colore_qt(Colore c) { return QColor(rosso_di(c), verde_di(c), blu_di(c)); }
Colore colore_word(QRgb c) { return rgb(qRed(c), qGreen(c), qBlue(c)); }

SuperficieQt::SuperficieQt(Immagini& immagini, QWidget* genitore) : QWidget(genitore), immagini_(immagini) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

// The picture is made when something is first painted on it, not when the
// widget is built: until then the surface is all of its back colour, and
// shows so. By then the window has its real size, so the picture is made once
// and at that size, and the window's start waits for none of it.
QImage& SuperficieQt::tela() const {
    if (immagine_.isNull()) {
        immagine_ = QImage(area_.expandedTo(QSize(800, 600)), QImage::Format_RGB32);
        immagine_.fill(colore_qt(fondo_));
    }
    return immagine_;
}

QPoint SuperficieQt::dispositivo(float x, float y) const {
    return {static_cast<int>(std::floor(x * sx())), static_cast<int>(std::floor(y * sy()))};
}

int SuperficieQt::tratto() const { return std::max(1, static_cast<int>(std::lround(devicePixelRatioF()))); }

void SuperficieQt::dipinto() { update(); }

void SuperficieQt::Cls() {
    if (!immagine_.isNull()) immagine_.fill(colore_qt(fondo_));
    dipinto();
}

void SuperficieQt::BackColor(Colore colore) {
    fondo_ = colore;
    Cls();
}

void SuperficieQt::Line(float x1, float y1, float x2, float y2, Colore colore) {
    const int t = tratto();
    QPainter p(&tela());
    // A pen t pixels wide is centred on the line; moved by half of it, it
    // covers the pixels from the line's own to the right and below, as an
    // outline does.
    p.translate((t - 1) / 2.0, (t - 1) / 2.0);
    p.setPen(QPen(colore_qt(colore), t == 1 ? 0 : t, Qt::SolidLine, Qt::SquareCap));
    p.drawLine(dispositivo(x1, y1), dispositivo(x2, y2));
    dipinto();
}

// An outline takes the pixels of both corners and those between, in lines
// one of the window's pixels wide: the right and bottom lines stand on the
// pixel of the second corner, as the left and top ones on that of the first.
void SuperficieQt::Box(float x1, float y1, float x2, float y2, Colore colore) {
    const QPoint a = dispositivo(std::min(x1, x2), std::min(y1, y2));
    const QPoint b = dispositivo(std::max(x1, x2), std::max(y1, y2));
    const int t = tratto(), larga = b.x() - a.x() + t, alta = b.y() - a.y() + t;
    const QColor c = colore_qt(colore);
    QPainter p(&tela());
    p.fillRect(a.x(), a.y(), larga, t, c);
    p.fillRect(a.x(), b.y(), larga, t, c);
    p.fillRect(a.x(), a.y(), t, alta, c);
    p.fillRect(b.x(), a.y(), t, alta, c);
    dipinto();
}

// A filled box covers what the outline with the same corners covers.
void SuperficieQt::BoxFilled(float x1, float y1, float x2, float y2, Colore colore) {
    const QPoint a = dispositivo(std::min(x1, x2), std::min(y1, y2));
    const QPoint b = dispositivo(std::max(x1, x2), std::max(y1, y2));
    const int t = tratto();
    QPainter p(&tela());
    p.fillRect(a.x(), a.y(), b.x() - a.x() + t, b.y() - a.y() + t, colore_qt(colore));
    dipinto();
}

void SuperficieQt::PaintPicture(Figura figura, float x, float y, float w, float h) {
    const QPoint alto = dispositivo(x, y), basso = dispositivo(x + w, y + h);
    const QSize misura(basso.x() - alto.x(), basso.y() - alto.y());
    if (misura.isEmpty()) return;
    QPainter p(&tela());
    p.drawImage(alto, immagini_.immagine(figura, misura));
    dipinto();
}

Colore SuperficieQt::Point(float x, float y) const {
    const QPoint punto = dispositivo(x, y);
    if (!QRect(QPoint(0, 0), area_).contains(punto)) return 0xFFFFFFFFu;
    return colore_word(immagine_.isNull() ? colore_qt(fondo_).rgb() : immagine_.pixel(punto));
}

// The window's font, 8 points, as the desktop shows 8 points at the window's
// display scale; it does not grow with the window.
QFont SuperficieQt::carattere() const {
    QFont f = font();
    const double punti = 8;
    f.setPixelSize(std::max(1, static_cast<int>(std::lround(punti * logicalDpiY() / 72.0 * devicePixelRatioF()))));
    return f;
}

void SuperficieQt::Print(float x, float y, std::string_view testo, Colore colore) {
    QPainter p(&tela());
    p.setFont(carattere());
    p.setPen(colore_qt(colore));
    const QFontMetrics misure(carattere());
    p.drawText(QPoint(dispositivo(x, y).x(), dispositivo(x, y).y() + misure.ascent()),
               QString::fromUtf8(testo.data(), static_cast<qsizetype>(testo.size())));
    dipinto();
}

float SuperficieQt::TextHeight() const { return static_cast<float>(QFontMetrics(carattere()).height() / sy()); }

QRect SuperficieQt::in_pixel(const Rett& r) const {
    const double kx = width() / 800.0, ky = height() / 600.0;
    const int sinistra = static_cast<int>(std::lround(r.left * kx));
    const int alto = static_cast<int>(std::lround(r.top * ky));
    return {sinistra, alto, static_cast<int>(std::lround((r.left + r.width) * kx)) - sinistra,
            static_cast<int>(std::lround((r.top + r.height) * ky)) - alto};
}

QPointF SuperficieQt::in_unita(QPointF pixel) const {
    const qreal dpr = devicePixelRatioF();
    const double px = std::floor(pixel.x() * dpr) + 0.5, py = std::floor(pixel.y() * dpr) + 0.5;
    return {px * 800.0 / std::max(1, area_.width()), py * 600.0 / std::max(1, area_.height())};
}

bool SuperficieQt::segui_area() {
    const QSize nuova = (QSizeF(size()) * devicePixelRatioF()).toSize();
    if (nuova.isEmpty() || nuova == area_) return false;
    area_ = nuova;
    if (!immagine_.isNull() && (area_.width() > immagine_.width() || area_.height() > immagine_.height())) {
        QImage piu_grande(immagine_.size().expandedTo(area_), QImage::Format_RGB32);
        piu_grande.fill(colore_qt(fondo_));
        QPainter(&piu_grande).drawImage(0, 0, immagine_);
        immagine_ = std::move(piu_grande);
    }
    return true;
}

void SuperficieQt::paintEvent(QPaintEvent* evento) {
    // A move to a screen of another display scale changes the device pixels
    // with no resize; the picture keeps its pixels then too.
    segui_area();
    QPainter p(this);
    if (immagine_.isNull()) {
        p.fillRect(evento->rect(), colore_qt(fondo_));
        return;
    }
    // The image is in device pixels; the painter works in the widget's.
    const qreal dpr = devicePixelRatioF();
    p.drawImage(QRectF(evento->rect()), immagine_,
                QRectF(QPointF(evento->rect().topLeft()) * dpr, QSizeF(evento->rect().size()) * dpr));
}

void SuperficieQt::mousePressEvent(QMouseEvent* evento) {
    const QPointF punto = in_unita(evento->position());
    emit premuto(static_cast<float>(punto.x()), static_cast<float>(punto.y()));
}

void SuperficieQt::resizeEvent(QResizeEvent*) {
    if (segui_area()) emit ridimensionata();
}

}  // namespace lesta
