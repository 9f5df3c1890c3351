// Lettermine's guess pictures, drawn by code on their silver ground: a yellow smiling face,
// an empty place, a green sad face, and a face behind a red prohibition sign.

#include <QPainter>
#include <QPainterPath>

#include "qt/CardArtDraw.h"

namespace corvanna::cardart {

namespace {

void face(QPainter& p, const QRectF& r, const QColor& skin, bool smiling) {
    const qreal d = std::min(r.width(), r.height()) * 0.86;
    const QRectF f(r.center().x() - d / 2, r.center().y() - d / 2, d, d);
    const qreal line = std::max<qreal>(1.0, d / 14);
    p.setPen(QPen(QColor(0x30, 0x30, 0x30), line));
    p.setBrush(skin);
    p.drawEllipse(f);
    // Eyes, then the mouth: up at its ends for a smile, down for a frown.
    p.setBrush(QColor(0x20, 0x20, 0x20));
    p.setPen(Qt::NoPen);
    const qreal eye = d * 0.11;
    for (qreal x : {0.34, 0.66})
        p.drawEllipse(QPointF(f.left() + d * x, f.top() + d * 0.38), eye / 2, eye * 0.65);
    p.setPen(QPen(QColor(0x20, 0x20, 0x20), line, Qt::SolidLine, Qt::RoundCap));
    p.setBrush(Qt::NoBrush);
    QPainterPath mouth;
    const qreal left = f.left() + d * 0.28, right = f.left() + d * 0.72;
    const qreal y = f.top() + d * (smiling ? 0.62 : 0.74);
    mouth.moveTo(left, y);
    mouth.quadTo(f.center().x(), y + d * (smiling ? 0.2 : -0.18), right, y);
    p.drawPath(mouth);
}

}  // namespace

void paintGuess(QPainter& p, const QRectF& r, Guess kind) {
    p.fillRect(r, QColor(0xC0, 0xC0, 0xC0));
    switch (kind) {
        case Guess::Blank: return;
        case Guess::Happy: face(p, r, QColor(0xFF, 0xD8, 0x1A), true); return;
        case Guess::Unhappy: face(p, r, QColor(0x6C, 0xC0, 0x4A), false); return;
        case Guess::Banned: {
            face(p, r, QColor(0xFF, 0xD8, 0x1A), true);
            const qreal d = std::min(r.width(), r.height()) * 0.92;
            const QRectF ring(r.center().x() - d / 2, r.center().y() - d / 2, d, d);
            const qreal w = std::max<qreal>(1.5, d / 9);
            p.setPen(QPen(QColor(0xE0, 0x10, 0x10), w));
            p.setBrush(Qt::NoBrush);
            p.drawEllipse(ring.adjusted(w / 2, w / 2, -w / 2, -w / 2));
            const qreal k = d / 2 * 0.7071 - w / 2;
            p.drawLine(QPointF(r.center().x() - k, r.center().y() - k),
                       QPointF(r.center().x() + k, r.center().y() + k));
            return;
        }
    }
}

}  // namespace corvanna::cardart
