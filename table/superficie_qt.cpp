#include "table/superficie_qt.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QResizeEvent>
#include <cmath>

#include "table/immagini.h"

namespace lesta {

QColor colore_qt(Colore c) { return QColor(rosso_di(c), verde_di(c), blu_di(c)); }
Colore colore_word(QRgb c) { return rgb(qRed(c), qGreen(c), qBlue(c)); }

SuperficieQt::SuperficieQt(Immagini& immagini, QWidget* genitore) : QWidget(genitore), immagini_(immagini) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    immagine_ = QImage(QSize(800, 600), QImage::Format_RGB32);
    immagine_.fill(colore_qt(fondo_));
}

QPoint SuperficieQt::dispositivo(float x, float y) const {
    return {static_cast<int>(std::floor(x * sx())), static_cast<int>(std::floor(y * sy()))};
}

void SuperficieQt::dipinto() { update(); }

void SuperficieQt::Cls() {
    immagine_.fill(colore_qt(fondo_));
    dipinto();
}

void SuperficieQt::BackColor(Colore colore) {
    fondo_ = colore;
    Cls();
}

void SuperficieQt::Line(float x1, float y1, float x2, float y2, Colore colore) {
    QPainter p(&immagine_);
    p.setPen(QPen(colore_qt(colore), 0));
    p.drawLine(dispositivo(x1, y1), dispositivo(x2, y2));
    dipinto();
}

void SuperficieQt::Box(float x1, float y1, float x2, float y2, Colore colore) {
    QPainter p(&immagine_);
    p.setPen(QPen(colore_qt(colore), 0));
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRect(dispositivo(x1, y1), dispositivo(x2, y2)).normalized());
    dipinto();
}

void SuperficieQt::BoxFilled(float x1, float y1, float x2, float y2, Colore colore) {
    QPainter p(&immagine_);
    p.fillRect(QRect(dispositivo(x1, y1), dispositivo(x2, y2)).normalized(), colore_qt(colore));
    dipinto();
}

void SuperficieQt::PaintPicture(Figura figura, float x, float y, float w, float h) {
    const QPoint alto = dispositivo(x, y), basso = dispositivo(x + w, y + h);
    const QSize misura(basso.x() - alto.x(), basso.y() - alto.y());
    if (misura.isEmpty()) return;
    QPainter p(&immagine_);
    p.drawImage(alto, immagini_.immagine(figura, misura));
    dipinto();
}

Colore SuperficieQt::Point(float x, float y) const {
    const QPoint punto = dispositivo(x, y);
    if (!immagine_.rect().contains(punto)) return 0xFFFFFFFFu;
    return colore_word(immagine_.pixel(punto));
}

QFont SuperficieQt::carattere() const {
    QFont f = font();
    // About the size of a small system font on a 1024 x 768 screen, and in
    // proportion on others.
    f.setPixelSize(std::max(6, static_cast<int>(std::lround(10.5 * sy()))));
    return f;
}

void SuperficieQt::Print(float x, float y, std::string_view testo, Colore colore) {
    QPainter p(&immagine_);
    p.setFont(carattere());
    p.setPen(colore_qt(colore));
    const QFontMetrics misure(carattere());
    p.drawText(QPoint(dispositivo(x, y).x(), dispositivo(x, y).y() + misure.ascent()),
               QString::fromUtf8(testo.data(), static_cast<qsizetype>(testo.size())));
    dipinto();
}

float SuperficieQt::TextHeight() const {
    return static_cast<float>(QFontMetrics(carattere()).height() / sy());
}

QRect SuperficieQt::in_pixel(const Rett& r) const {
    const double kx = width() / 800.0, ky = height() / 600.0;
    const int sinistra = static_cast<int>(std::lround(r.left * kx));
    const int alto = static_cast<int>(std::lround(r.top * ky));
    return {sinistra, alto, static_cast<int>(std::lround((r.left + r.width) * kx)) - sinistra,
            static_cast<int>(std::lround((r.top + r.height) * ky)) - alto};
}

QPointF SuperficieQt::in_unita(QPointF pixel) const {
    return {pixel.x() * 800.0 / std::max(1, width()), pixel.y() * 600.0 / std::max(1, height())};
}

void SuperficieQt::paintEvent(QPaintEvent* evento) {
    // The image is in device pixels; the painter works in the widget's.
    const qreal dpr = devicePixelRatioF();
    QPainter p(this);
    p.drawImage(QRectF(evento->rect()), immagine_,
                QRectF(QPointF(evento->rect().topLeft()) * dpr, QSizeF(evento->rect().size()) * dpr));
}

void SuperficieQt::mousePressEvent(QMouseEvent* evento) {
    const QPointF punto = in_unita(evento->position());
    emit premuto(static_cast<float>(punto.x()), static_cast<float>(punto.y()));
}

void SuperficieQt::resizeEvent(QResizeEvent* evento) {
    const qreal dpr = devicePixelRatioF();
    const QSize nuova = evento->size() * dpr;
    if (nuova.isEmpty() || nuova == immagine_.size()) return;
    // Stretch what is there; the exact colours stay, so a click's colour test
    // keeps working until the game paints again.
    immagine_ = immagine_.scaled(nuova, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    emit ridimensionata();
}

}  // namespace lesta
