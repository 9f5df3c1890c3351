// The four back designs as single cards and stacks, the empty card place, the
// pointer and Tierfall's splash picture.

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>

#include "qt/CardArtDraw.h"

namespace corvanna::cardart {

namespace {

const QColor kBackWhite(0xFF, 0xFD, 0xF7);

void paintPalm(QPainter& p, const QRectF& in) {
    const qreal w = in.width(), h = in.height();
    QLinearGradient g(in.topLeft(), in.bottomRight());
    g.setColorAt(0, QColor(0x2A, 0x86, 0x4A));
    g.setColorAt(1, QColor(0x0C, 0x45, 0x24));
    p.fillRect(in, g);
    // A woven lattice behind the tree.
    p.setPen(QPen(QColor(255, 255, 255, 34), std::max(1.0 / deviceScale(p), w / 90.0)));
    const qreal step = w / 6.0;
    for (qreal d = -h; d < w; d += step) {
        p.drawLine(QPointF(in.left() + d, in.top()), QPointF(in.left() + d + h, in.bottom()));
        p.drawLine(QPointF(in.left() + d + h, in.top()), QPointF(in.left() + d, in.bottom()));
    }
    // A low sun behind the crown, and the island the palm grows on.
    const QPointF crown(in.left() + w * 0.56, in.top() + h * 0.34);
    QRadialGradient sun(crown, w * 0.38);
    sun.setColorAt(0, QColor(0xF6, 0xF0, 0xB0, 150));
    sun.setColorAt(1, QColor(0xF6, 0xF0, 0xB0, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(sun);
    p.drawEllipse(crown, w * 0.38, w * 0.38);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xE9, 0xD3, 0x8E));
    p.drawEllipse(QPointF(in.left() + w * 0.46, in.bottom() + h * 0.02), w * 0.42, h * 0.12);

    // The trunk: a tapering curve with the rings old leaves leave on it.
    const QPointF base(in.left() + w * 0.4, in.bottom() - h * 0.06);
    const QPointF bend(in.left() + w * 0.64, in.top() + h * 0.62);
    auto along = [&](qreal t) {
        return (1 - t) * (1 - t) * base + 2 * (1 - t) * t * bend + t * t * crown;
    };
    auto across = [&](qreal t) {
        const QPointF d = 2 * (1 - t) * (bend - base) + 2 * t * (crown - bend);
        const qreal len = std::hypot(d.x(), d.y());
        return QPointF(-d.y() / len, d.x() / len) * (w * (0.05 - 0.022 * t));
    };
    const int steps = 16;
    QPolygonF trunk;
    for (int i = 0; i <= steps; ++i)
        trunk << along(i / qreal(steps)) + across(i / qreal(steps));
    for (int i = steps; i >= 0; --i)
        trunk << along(i / qreal(steps)) - across(i / qreal(steps));
    p.setPen(QPen(QColor(0x4A, 0x2C, 0x12), w * 0.01));
    p.setBrush(QColor(0x8E, 0x5E, 0x30));
    p.drawPolygon(trunk);
    p.setPen(QPen(QColor(0x5E, 0x3A, 0x1A), w * 0.012, Qt::SolidLine, Qt::RoundCap));
    for (int i = 1; i < 12; ++i) {
        const qreal t = i / 12.0;
        p.drawLine(along(t) + across(t) * 0.9, along(t + 0.02) - across(t) * 0.9);
    }

    // Fronds arching out and drooping at their tips, light on the dark field.
    struct Frond {
        qreal angle, length, droop;
    };
    const Frond fronds[] = {{200, 0.40, 0.18}, {160, 0.42, 0.1}, {125, 0.36, 0.0},
                            {90, 0.30, -0.04}, {55, 0.36, 0.0},  {20, 0.42, 0.1},
                            {-15, 0.40, 0.2}};
    for (int layer = 0; layer < 2; ++layer) {
        for (const Frond& f : fronds) {
            const qreal a = f.angle * M_PI / 180.0;
            const qreal len = w * f.length;
            const QPointF dir(std::cos(a), -std::sin(a));
            const QPointF tip = crown + dir * len + QPointF(0, f.droop * len);
            const QPointF ctrl = crown + dir * (len * 0.55) - QPointF(0, len * 0.22);
            const QPointF along = tip - crown;
            const qreal norm = std::hypot(along.x(), along.y());
            const QPointF n(-along.y() / norm, along.x() / norm);
            if (layer == 0) {
                QPainterPath leaf(crown);
                leaf.quadTo(ctrl - n * len * 0.22, tip);
                leaf.quadTo(ctrl + n * len * 0.05, crown);
                p.setPen(QPen(QColor(0x1F, 0x5A, 0x25), w * 0.01));
                p.setBrush(f.angle > 100 && f.angle < 180 ? QColor(0x9C, 0xD8, 0x6A)
                                                          : QColor(0x7F, 0xC4, 0x58));
                p.drawPath(leaf);
            } else {
                QPainterPath rib(crown);
                rib.quadTo(ctrl - n * len * 0.06, tip);
                p.setPen(QPen(QColor(0x3E, 0x7F, 0x2E), w * 0.012, Qt::SolidLine, Qt::RoundCap));
                p.setBrush(Qt::NoBrush);
                p.drawPath(rib);
            }
        }
    }
    // Coconuts under the crown.
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0x5A, 0x36, 0x1A));
    for (const QPointF& off : {QPointF(-0.03, 0.03), QPointF(0.03, 0.035), QPointF(0, 0.06)})
        p.drawEllipse(crown + QPointF(off.x() * w, off.y() * w), w * 0.032, w * 0.032);
}

void drawStar(QPainter& p, const QPointF& c, qreal outer, qreal inner, const QColor& color) {
    QPolygonF star;
    for (int i = 0; i < 10; ++i) {
        const qreal r = i % 2 ? inner : outer;
        const qreal a = (-90 + i * 36) * M_PI / 180.0;
        star << c + QPointF(std::cos(a) * r, std::sin(a) * r);
    }
    p.setPen(Qt::NoPen);
    p.setBrush(color);
    p.drawPolygon(star);
}

// One open hand, fingers up, thumb to the right, about one unit tall round the origin.
QPainterPath handPath() {
    // Worked large, as uniting flattens curves at a fixed step.
    const QTransform big = QTransform::fromScale(1000, 1000);
    auto rounded = [&](const QRectF& r, qreal radius) {
        QPainterPath path;
        path.addRoundedRect(r, radius, radius);
        return big.map(path);
    };
    QPainterPath h = rounded(QRectF(-0.26, -0.12, 0.5, 0.46), 0.14);
    const qreal fingerX[] = {-0.195, -0.065, 0.065, 0.19};
    const qreal fingerTop[] = {-0.5, -0.6, -0.57, -0.46};
    for (int i = 0; i < 4; ++i)
        h = h.united(rounded(QRectF(fingerX[i] - 0.058, fingerTop[i], 0.116, 0.5), 0.058));
    QTransform thumb;
    thumb.translate(0.2, 0.2);
    thumb.rotate(-50);
    QPainterPath t;
    t.addRoundedRect(QRectF(-0.06, -0.38, 0.12, 0.4), 0.06, 0.06);
    h = h.united(big.map(thumb.map(t)));
    h = h.united(rounded(QRectF(-0.2, 0.3, 0.38, 0.22), 0));
    return QTransform::fromScale(0.001, 0.001).map(h);
}

// A four-pointed twinkle.
void drawSparkle(QPainter& p, const QPointF& c, qreal r, const QColor& color) {
    QPainterPath s(c + QPointF(0, -r));
    s.quadTo(c, c + QPointF(r, 0));
    s.quadTo(c, c + QPointF(0, r));
    s.quadTo(c, c + QPointF(-r, 0));
    s.quadTo(c, c + QPointF(0, -r));
    p.fillPath(s, color);
}

void paintMagic(QPainter& p, const QRectF& in) {
    const qreal w = in.width(), h = in.height();
    QRadialGradient g(in.center(), std::max(w, h) * 0.75);
    g.setColorAt(0, QColor(0x8A, 0x4B, 0xC8));
    g.setColorAt(1, QColor(0x2C, 0x10, 0x52));
    p.fillRect(in, g);
    // Small twinkles on a fixed grid, every other row shifted.
    const qreal step = w / 5.0;
    int row = 0;
    for (qreal y = in.top() + step / 2; y < in.bottom(); y += step, ++row)
        for (qreal x = in.left() + (row % 2 ? step : step / 2); x < in.right(); x += step)
            drawSparkle(p, QPointF(x, y), step * 0.14, QColor(255, 225, 255, 70));

    // A glowing star held up between two open hands.
    const QPointF star(in.left() + w * 0.5, in.top() + h * 0.36);
    QRadialGradient glow(star, w * 0.42);
    glow.setColorAt(0, QColor(255, 236, 150, 200));
    glow.setColorAt(0.4, QColor(255, 210, 120, 70));
    glow.setColorAt(1, QColor(255, 210, 120, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(glow);
    p.drawEllipse(star, w * 0.42, w * 0.42);
    drawStar(p, star, w * 0.19, w * 0.08, QColor(0xFF, 0xD8, 0x5C));
    drawSparkle(p, star + QPointF(-w * 0.26, -h * 0.16), w * 0.06, QColor(255, 245, 210));
    drawSparkle(p, star + QPointF(w * 0.27, -h * 0.1), w * 0.045, QColor(255, 245, 210));
    drawSparkle(p, star + QPointF(w * 0.2, -h * 0.24), w * 0.035, QColor(255, 245, 210));
    drawSparkle(p, star + QPointF(-w * 0.12, -h * 0.27), w * 0.03, QColor(255, 245, 210));

    static const QPainterPath hand = handPath();
    const qreal size = w * 0.46;
    for (int side = 0; side < 2; ++side) {
        p.save();
        if (side == 1) {
            p.translate(in.center().x(), 0);
            p.scale(-1, 1);
            p.translate(-in.center().x(), 0);
        }
        p.translate(in.left() + w * 0.25, in.top() + h * 0.74);
        p.rotate(22);
        p.scale(size, size);
        p.setPen(QPen(QColor(0x3A, 0x17, 0x62), 0.035));
        p.setBrush(QColor(0xF1, 0xE6, 0xFB));
        p.drawPath(hand);
        // A gold cuff at the wrist.
        p.setBrush(QColor(0xE8, 0xB8, 0x3C));
        p.drawRoundedRect(QRectF(-0.24, 0.44, 0.46, 0.16), 0.04, 0.04);
        p.restore();
    }
}

void paintNight(QPainter& p, const QRectF& in) {
    QLinearGradient g(in.topLeft(), in.bottomLeft());
    g.setColorAt(0, QColor(0x0A, 0x11, 0x28));
    g.setColorAt(1, QColor(0x1D, 0x35, 0x66));
    p.fillRect(in, g);
    const qreal w = in.width(), h = in.height();
    // Stars at fixed spots, the moon top right.
    static const qreal spots[][2] = {{0.15, 0.1},  {0.35, 0.2}, {0.22, 0.35}, {0.5, 0.08},
                                     {0.85, 0.42}, {0.1, 0.55}, {0.62, 0.3},  {0.4, 0.45}};
    for (auto& s : spots)
        drawStar(p, QPointF(in.left() + w * s[0], in.top() + h * s[1]), w * 0.03, w * 0.012,
                 QColor(255, 255, 220, 200));
    // A crescent moon: a disc with a slightly moved disc taken out of it.
    const QPointF moonAt(in.left() + w * 0.74, in.top() + h * 0.17);
    QPainterPath moon, bite;
    moon.addEllipse(moonAt, w * 0.11, w * 0.11);
    bite.addEllipse(moonAt + QPointF(-w * 0.05, -w * 0.03), w * 0.095, w * 0.095);
    QRadialGradient halo(moonAt, w * 0.3);
    halo.setColorAt(0, QColor(0xF4, 0xF1, 0xC9, 70));
    halo.setColorAt(1, QColor(0xF4, 0xF1, 0xC9, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(halo);
    p.drawEllipse(moonAt, w * 0.3, w * 0.3);
    p.fillPath(moon.subtracted(bite), QColor(0xF4, 0xF1, 0xC9));
    // A dark hill, and on it the castle: a crenellated wall, two round-roofed towers and a
    // keep with a pennant, all one silhouette with a few lit windows.
    auto at = [&](qreal x, qreal y) { return QPointF(in.left() + w * x, in.top() + h * y); };
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0x0E, 0x1A, 0x36));
    p.drawEllipse(at(0.5, 1.04), w * 0.8, h * 0.15);
    QPainterPath castle;
    castle.setFillRule(Qt::WindingFill);
    const qreal ground = 0.97;
    auto block = [&](qreal x0, qreal x1, qreal top, int merlons) {
        castle.addRect(QRectF(at(x0, top), at(x1, ground)));
        const qreal m = (x1 - x0) / (2 * merlons - 1);
        for (int i = 0; i < merlons; ++i)
            castle.addRect(
                QRectF(at(x0 + 2 * i * m, top - 0.03), at(x0 + (2 * i + 1) * m, top + 0.01)));
    };
    auto roof = [&](qreal x0, qreal x1, qreal top, qreal peak) {
        QPolygonF cone;
        cone << at(x0 - 0.02, top) << at((x0 + x1) / 2, peak) << at(x1 + 0.02, top);
        castle.addPolygon(cone);
        castle.closeSubpath();
    };
    block(0.2, 0.8, 0.7, 6);
    castle.addRect(QRectF(at(0.13, 0.52), at(0.31, ground)));
    roof(0.13, 0.31, 0.52, 0.38);
    castle.addRect(QRectF(at(0.69, 0.52), at(0.87, ground)));
    roof(0.69, 0.87, 0.52, 0.38);
    block(0.4, 0.6, 0.56, 3);
    p.fillPath(castle, QColor(0x04, 0x07, 0x12));
    // The keep's pennant.
    p.setPen(QPen(QColor(0x04, 0x07, 0x12), std::max(1.0 / deviceScale(p), w * 0.012)));
    p.drawLine(at(0.5, 0.53), at(0.5, 0.43));
    p.setPen(Qt::NoPen);
    QPolygonF pennant;
    pennant << at(0.5, 0.43) << at(0.6, 0.455) << at(0.5, 0.48);
    p.setBrush(QColor(0xC8, 0x3A, 0x3A));
    p.drawPolygon(pennant);
    p.setBrush(QColor(0xF5, 0xC8, 0x42));
    for (const QPointF& win : {at(0.47, 0.62), at(0.2, 0.6), at(0.76, 0.6), at(0.33, 0.78)})
        p.drawRoundedRect(QRectF(win, QSizeF(w * 0.055, h * 0.05)), w * 0.02, w * 0.02);
}

void paintHot(QPainter& p, const QRectF& in) {
    QLinearGradient g(in.bottomLeft(), in.topLeft());
    g.setColorAt(0, QColor(0xF7, 0x9F, 0x1B));
    g.setColorAt(0.55, QColor(0xE2, 0x3B, 0x1E));
    g.setColorAt(1, QColor(0x8E, 0x10, 0x10));
    p.fillRect(in, g);
    // Rows of flame tongues rising from the bottom.
    const qreal w = in.width(), h = in.height();
    const QColor shades[] = {QColor(0xFF, 0xD1, 0x4A, 200), QColor(0xFF, 0x8C, 0x1A, 170),
                             QColor(0xFF, 0xF0, 0x9E, 220)};
    for (int row = 0; row < 3; ++row) {
        const qreal baseY = in.bottom();
        const qreal peak = h * (0.72 - row * 0.17);
        const int tongues = 4 + row;
        const qreal tw = w / tongues;
        QPainterPath flames(QPointF(in.left(), baseY));
        for (int i = 0; i < tongues; ++i) {
            const qreal x0 = in.left() + i * tw;
            const qreal tip = peak * (i % 2 ? 0.8 : 1.0);
            flames.cubicTo(QPointF(x0 + tw * 0.1, baseY - tip * 0.5),
                           QPointF(x0 + tw * 0.6, baseY - tip * 0.6),
                           QPointF(x0 + tw * 0.45, baseY - tip));
            flames.cubicTo(QPointF(x0 + tw * 0.75, baseY - tip * 0.55),
                           QPointF(x0 + tw * 0.9, baseY - tip * 0.3), QPointF(x0 + tw, baseY));
        }
        flames.closeSubpath();
        p.fillPath(flames, shades[row]);
    }
    // Sparks rising from the fire, at fixed spots so every card is the same.
    static const qreal sparks[][3] = {{0.2, 0.3, 0.022},   {0.72, 0.22, 0.018}, {0.5, 0.12, 0.026},
                                      {0.33, 0.16, 0.014}, {0.84, 0.4, 0.02},   {0.12, 0.5, 0.016},
                                      {0.6, 0.33, 0.015},  {0.42, 0.42, 0.012}};
    for (const auto& sp : sparks) {
        const QPointF c(in.left() + w * sp[0], in.top() + h * sp[1]);
        QRadialGradient spark(c, w * sp[2] * 2.2);
        spark.setColorAt(0, QColor(0xFF, 0xF4, 0xB0, 255));
        spark.setColorAt(0.45, QColor(0xFF, 0xB0, 0x30, 200));
        spark.setColorAt(1, QColor(0xFF, 0x80, 0x20, 0));
        p.setPen(Qt::NoPen);
        p.setBrush(spark);
        p.drawEllipse(c, w * sp[2] * 2.2, w * sp[2] * 2.2);
    }
}

void paintBack(QPainter& p, const QRectF& r, Design design) {
    const QRectF card = cardBase(p, r, kBackWhite);
    // A white margin round the design, as printed backs have.
    const qreal margin = std::min(r.width(), r.height()) * 0.06;
    const QRectF in = card.adjusted(margin, margin, -margin, -margin);
    const qreal radius = cornerRadius(r) * 0.6;
    // A plain rect clip keeps the raster engine on its fast path; the rounded corners are
    // put back afterwards by painting the card's white over them.
    p.save();
    p.setClipRect(in, Qt::IntersectClip);
    switch (design) {
        case Design::Palm: paintPalm(p, in); break;
        case Design::Magic: paintMagic(p, in); break;
        case Design::Night: paintNight(p, in); break;
        case Design::Hot: paintHot(p, in); break;
    }
    // A thin light frame inside the edge, as printed backs have.
    const qreal inset = std::min(in.width(), in.height()) * 0.045;
    p.setPen(QPen(QColor(255, 255, 255, 150), std::max(1.0 / deviceScale(p), in.width() / 110)));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(in.adjusted(inset, inset, -inset, -inset), radius * 0.7, radius * 0.7);
    QPainterPath corners, rounded;
    corners.addRect(in);
    rounded.addRoundedRect(in, radius, radius);
    p.fillPath(corners.subtracted(rounded), kBackWhite);
    p.restore();
}

}  // namespace

// "full" is a stack of four cards, "half" of two, "back" one. Only the top card's face
// shows; of the others just their edges, so those are plain cards.
void paintBacks(QPainter& p, const QRectF& r, Design design, int cards) {
    const qreal off = std::max(1.0 / deviceScale(p), std::min(r.width(), r.height()) * 0.03);
    const QSizeF size(r.width() - off * (cards - 1), r.height() - off * (cards - 1));
    for (int i = 0; i + 1 < cards; ++i)
        cardBase(p, QRectF(r.topLeft() + QPointF(off * i, off * i), size),
                 QColor(0xF4, 0xF1, 0xEA));
    paintBack(p, QRectF(r.topLeft() + QPointF(off * (cards - 1), off * (cards - 1)), size), design);
}

void paintEmptyPlace(QPainter& p, const QRectF& r) {
    const qreal pen = std::max(1.5, r.width() / 40.0);
    const QRectF body = r.adjusted(pen, pen, -pen, -pen);
    p.setBrush(QColor(255, 255, 255, 28));
    QPen dashed(QColor(235, 235, 235, 200), pen, Qt::DashLine, Qt::RoundCap);
    dashed.setDashPattern({3, 2.5});
    p.setPen(dashed);
    p.drawRoundedRect(body, cornerRadius(r), cornerRadius(r));
}

void paintSplash(QPainter& p, const QRectF& r) {
    QLinearGradient g(r.topLeft(), r.bottomRight());
    g.setColorAt(0, QColor(0x1B, 0x5E, 0x3B));
    g.setColorAt(1, QColor(0x0B, 0x2E, 0x1C));
    const qreal pen = std::max(1.0, r.width() / 90.0);
    p.setPen(QPen(QColor(0xD9, 0xB3, 0x4A), pen * 2));
    p.setBrush(g);
    p.drawRoundedRect(r.adjusted(pen, pen, -pen, -pen), cornerRadius(r), cornerRadius(r));
    const qreal w = r.width(), h = r.height();
    drawTextInBox(p, QStringLiteral("Tierfall"), QStringLiteral("DejaVu Serif"), true,
                  QRectF(r.left() + w * 0.12, r.top() + h * 0.38, w * 0.76, h * 0.2),
                  QColor(0xF6, 0xE7, 0xB8));
    // The four suits in a row under the name, and a spade above.
    const char suits[] = {'S', 'H', 'C', 'D'};
    const qreal cell = w * 0.14;
    for (int i = 0; i < 4; ++i) {
        const QColor c = isRed(suits[i]) ? QColor(0xF0, 0x6A, 0x6A) : QColor(0xF6, 0xE7, 0xB8);
        drawSuit(p, suits[i], QPointF(r.left() + w * 0.29 + i * cell, r.top() + h * 0.72),
                 cell * 0.6, false, c);
    }
    drawSuit(p, 'S', QPointF(r.center().x(), r.top() + h * 0.22), h * 0.16, false,
             QColor(0xD9, 0xB3, 0x4A));
}

void paintPointer(QPainter& p, const QRectF& r) {
    // An arrow with a blunt, finger-like tip, pointing up and to the left.
    const qreal s = std::min(r.width(), r.height());
    const QPointF o = r.topLeft() + QPointF((r.width() - s) / 2, (r.height() - s) / 2);
    const QPointF pts[] = {{0.12, 0.06}, {0.12, 0.8},  {0.32, 0.62}, {0.47, 0.94},
                           {0.6, 0.88},  {0.45, 0.57}, {0.72, 0.57}};
    QPolygonF arrow;
    for (auto& pt : pts)
        arrow << o + pt * s;
    p.setPen(QPen(Qt::black, std::max(1.0, s / 16.0), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::white);
    p.drawPolygon(arrow);
}
}  // namespace corvanna::cardart
