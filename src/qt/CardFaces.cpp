// The fifty-two faces: corner indices, the pips of 2 to 10, the aces and the
// double-headed court figures of J, Q and K.

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "qt/CardArtDraw.h"

namespace corvanna::cardart {

namespace {

const QColor kCardWhite(0xFF, 0xFD, 0xF7);
const QColor kOutline(0x2A, 0x24, 0x20);
const QColor kSkin(0xF4, 0xD3, 0xB2);

// Below this many real pixels of card height the corners grow and the pips shrink, so the
// index still reads when a window is made very small.
constexpr qreal kCompactHeight = 80;

QString rankText(int rank) {
    switch (rank) {
        case 1: return QStringLiteral("A");
        case 11: return QStringLiteral("J");
        case 12: return QStringLiteral("Q");
        case 13: return QStringLiteral("K");
        default: return QString::number(rank);
    }
}

// Rounds a rect's edges to real pixels, so the index glyphs start and end on them.
QRectF snapped(const QPainter& p, const QRectF& r) {
    const QTransform t = p.deviceTransform();
    const QRectF d = t.mapRect(r);
    const QRectF s(QPointF(std::round(d.left()), std::round(d.top())),
                   QPointF(std::round(d.right()), std::round(d.bottom())));
    return t.inverted().mapRect(s);
}

void paintIndex(QPainter& p, const QRectF& r, const Face& face, bool compact) {
    const qreal w = r.width(), h = r.height();
    const QColor ink = suitColor(face.suit);
    const qreal centreX = r.left() + w * (compact ? 0.135 : 0.1);
    const qreal rankH = h * (compact ? 0.17 : 0.112);
    const qreal rankW = w * (compact ? 0.25 : 0.18);
    const QRectF rankBox = snapped(
        p, QRectF(centreX - rankW / 2, r.top() + h * (compact ? 0.045 : 0.05), rankW, rankH));
    const qreal suitH = h * (compact ? 0.115 : 0.08);
    const QPointF suitCentre(centreX, rankBox.bottom() + h * (compact ? 0.035 : 0.03) + suitH / 2);
    const QString family =
        face.rank == 10 ? QStringLiteral("DejaVu Sans Condensed") : QStringLiteral("DejaVu Sans");
    for (int corner = 0; corner < 2; ++corner) {
        p.save();
        if (corner == 1) {
            // The second index is the first turned half round the card's centre.
            p.translate(r.center());
            p.rotate(180);
            p.translate(-r.center());
        }
        drawTextInBox(p, rankText(face.rank), family, true, rankBox, ink);
        drawSuit(p, face.suit, suitCentre, suitH, false, ink);
        p.restore();
    }
}

// Pip centres as fractions of the pip area: x 0 left column, 0.5 middle, 1 right;
// y 0 top row, 1 bottom row.
struct Pip {
    qreal x, y;
};

std::vector<Pip> pipLayout(int rank) {
    const qreal third = 1.0 / 3.0;
    std::vector<Pip> pips;
    auto columns = [&](std::initializer_list<qreal> rows) {
        for (qreal y : rows) {
            pips.push_back({0, y});
            pips.push_back({1, y});
        }
    };
    switch (rank) {
        case 2: pips = {{0.5, 0}, {0.5, 1}}; break;
        case 3: pips = {{0.5, 0}, {0.5, 0.5}, {0.5, 1}}; break;
        case 4: columns({0, 1}); break;
        case 5:
            columns({0, 1});
            pips.push_back({0.5, 0.5});
            break;
        case 6: columns({0, 0.5, 1}); break;
        case 7:
            columns({0, 0.5, 1});
            pips.push_back({0.5, 0.25});
            break;
        case 8:
            columns({0, 0.5, 1});
            pips.push_back({0.5, 0.25});
            pips.push_back({0.5, 0.75});
            break;
        case 9:
            columns({0, third, 2 * third, 1});
            pips.push_back({0.5, 0.5});
            break;
        case 10:
            columns({0, third, 2 * third, 1});
            pips.push_back({0.5, third / 2});
            pips.push_back({0.5, 1 - third / 2});
            break;
        default: break;
    }
    return pips;
}

void paintPips(QPainter& p, const QRectF& r, const Face& face, bool compact) {
    const qreal w = r.width(), h = r.height();
    const QRectF area = compact
                            ? QRectF(r.left() + w * 0.355, r.top() + h * 0.25, w * 0.29, h * 0.5)
                            : QRectF(r.left() + w * 0.3, r.top() + h * 0.2, w * 0.4, h * 0.6);
    const qreal pipH = h * (compact ? 0.105 : 0.128);
    const QColor ink = suitColor(face.suit);
    for (const Pip& pip : pipLayout(face.rank)) {
        const QPointF c(area.left() + pip.x * area.width(), area.top() + pip.y * area.height());
        // Pips below the middle are printed the other way up, as on any real card.
        drawSuit(p, face.suit, c, pipH, pip.y > 0.5 + 1e-9, ink);
    }
}

void paintAce(QPainter& p, const QRectF& r, const Face& face, bool compact) {
    const qreal w = r.width(), h = r.height();
    const QColor ink = suitColor(face.suit);
    const QPointF c = r.center();
    if (face.suit != 'S' || compact) {
        drawSuit(p, face.suit, c, h * (compact ? 0.34 : 0.3), false, ink);
        return;
    }
    // The ace of spades carries the deck's ornament: a gilt ring of beads round a
    // large spade with an inner line.
    const QColor gilt(0xC2, 0x97, 0x3A);
    const qreal ring = std::min(w * 0.34, h * 0.26);
    p.setPen(QPen(gilt, std::max(0.8, h * 0.006)));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(c, ring, ring);
    p.drawEllipse(c, ring * 0.9, ring * 0.9);
    p.setPen(Qt::NoPen);
    p.setBrush(gilt);
    for (int i = 0; i < 16; ++i) {
        const qreal a = i * M_PI / 8;
        const qreal rr = ring * 0.95;
        p.drawEllipse(c + QPointF(std::cos(a) * rr, std::sin(a) * rr), h * 0.006, h * 0.006);
    }
    const qreal size = h * 0.36;
    drawSuit(p, 'S', c, size, false, ink);
    p.save();
    // The inner line follows the blade only, not the foot.
    p.setClipRect(QRectF(r.left(), r.top(), w, c.y() + size * 0.13 - r.top()), Qt::IntersectClip);
    p.translate(c + QPointF(0, -size * 0.07));
    p.scale(size * 0.72, size * 0.72);
    p.setPen(QPen(gilt, h * 0.005 / (size * 0.72)));
    p.setBrush(Qt::NoBrush);
    p.drawPath(suitPath('S'));
    p.restore();
    drawSuit(p, 'D', c + QPointF(0, -size * 0.08), size * 0.14, false, gilt);
}

// ---- court figures

struct Scheme {
    QColor back, pattern, accent, accentDark, hair, robeMark;
};

Scheme schemeOf(int rank) {
    switch (rank) {
        case 13:  // gold and grey
            return {QColor(0xF8, 0xEC, 0xC8), QColor(0xEF, 0xDC, 0xA4), QColor(0xE0, 0xAA, 0x2E),
                    QColor(0x8A, 0x62, 0x12), QColor(0x9C, 0x96, 0x8E), QColor(0xF2, 0xE2, 0xB0)};
        case 12:  // rose and auburn
            return {QColor(0xF7, 0xE7, 0xEF), QColor(0xEE, 0xD0, 0xE0), QColor(0xCC, 0x5C, 0x8A),
                    QColor(0x7A, 0x2A, 0x50), QColor(0x6B, 0x33, 0x1F), QColor(0xF4, 0xC6, 0xD8)};
        default:  // teal and chestnut
            return {QColor(0xE4, 0xF1, 0xEF), QColor(0xC8, 0xE2, 0xDE), QColor(0x2C, 0x93, 0x8F),
                    QColor(0x15, 0x55, 0x55), QColor(0xB4, 0x76, 0x36), QColor(0xBD, 0xE6, 0xE0)};
    }
}

QColor robeColor(char suit) {
    return isRed(suit) ? QColor(0xB4, 0x14, 0x2C) : QColor(0x24, 0x27, 0x2E);
}

QPainterPath mirrored(const QPainterPath& leftHalf) {
    QTransform m(-1, 0, 0, 1, 1, 0);  // x -> 1 - x
    QPainterPath both = leftHalf;
    both.addPath(m.map(leftHalf));
    both.setFillRule(Qt::WindingFill);
    return both;
}

// The upper half of a court panel in units of the panel's width: x 0..1, y 0..b
// where b is the middle line the bust is cut at. The lower half is this turned round.
void paintCourtHalf(QPainter& p, qreal b, qreal lw, const Face& face) {
    const Scheme s = schemeOf(face.rank);
    const QColor robe = robeColor(face.suit);
    const QPen outline(kOutline, lw, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    auto fill = [&](const QPainterPath& path, const QColor& c, bool line = true) {
        p.setPen(line ? outline : QPen(Qt::NoPen));
        p.setBrush(c);
        p.drawPath(path);
    };
    // The figure fills the panel: drawn a little larger than its unit sketch, from the
    // middle line up.
    p.translate(0.5, b);
    p.scale(1.14, 1.14);
    p.translate(-0.5, -b);
    const qreal headY = b - 0.5;

    // Hair that falls behind the shoulders comes first.
    if (face.rank == 12) {
        QPainterPath hair(QPointF(0.5, headY - 0.17));
        hair.cubicTo(QPointF(0.33, headY - 0.17), QPointF(0.3, headY - 0.02),
                     QPointF(0.31, headY + 0.12));
        hair.cubicTo(QPointF(0.32, headY + 0.2), QPointF(0.28, headY + 0.24),
                     QPointF(0.3, headY + 0.26));
        hair.lineTo(QPointF(0.7, headY + 0.26));
        hair.cubicTo(QPointF(0.72, headY + 0.24), QPointF(0.68, headY + 0.2),
                     QPointF(0.69, headY + 0.12));
        hair.cubicTo(QPointF(0.7, headY - 0.02), QPointF(0.67, headY - 0.17),
                     QPointF(0.5, headY - 0.17));
        fill(hair, s.hair);
    }

    // Shoulders and robe in the suit's colour.
    QPainterPath robePath(QPointF(0.03, b + 0.02));
    robePath.cubicTo(QPointF(0.05, b - 0.15), QPointF(0.12, b - 0.24), QPointF(0.27, b - 0.27));
    robePath.cubicTo(QPointF(0.37, b - 0.29), QPointF(0.42, b - 0.33), QPointF(0.5, b - 0.33));
    robePath.cubicTo(QPointF(0.58, b - 0.33), QPointF(0.63, b - 0.29), QPointF(0.73, b - 0.27));
    robePath.cubicTo(QPointF(0.88, b - 0.24), QPointF(0.95, b - 0.15), QPointF(0.97, b + 0.02));
    robePath.closeSubpath();
    fill(robePath, robe);

    // The robe's pattern, kept inside it.
    p.save();
    p.setClipPath(robePath, Qt::IntersectClip);
    p.setPen(Qt::NoPen);
    if (face.rank == 13) {
        // Ermine-like spots and a broad gold band round the shoulders.
        QPainterPath spots;
        for (int row = 0; row < 4; ++row)
            for (int col = 0; col < 9; ++col) {
                const QPointF c(0.08 + col * 0.105 + (row % 2) * 0.05, b - 0.2 + row * 0.07);
                spots.addPolygon(QPolygonF({c + QPointF(0, -0.02), c + QPointF(0.013, 0),
                                            c + QPointF(0, 0.02), c + QPointF(-0.013, 0)}));
                spots.closeSubpath();
            }
        p.fillPath(spots, s.robeMark);
        p.setPen(QPen(s.accent, 0.05));
        p.setBrush(Qt::NoBrush);
        p.drawPath(robePath);
    } else if (face.rank == 12) {
        // Scallops in rows, and a rose hem along the shoulders.
        // Each scallop a short polyline: cheap to draw, and round enough at a card's size.
        QPainterPath scallops;
        for (int row = 0; row < 4; ++row)
            for (int col = 0; col < 10; ++col) {
                const QPointF c(0.05 + col * 0.1 + (row % 2) * 0.05, b - 0.22 + row * 0.07);
                scallops.moveTo(c + QPointF(-0.038, 0.013));
                for (int k = 1; k <= 6; ++k) {
                    const qreal a = (200 + k * 140.0 / 6) * M_PI / 180;
                    scallops.lineTo(c + QPointF(std::cos(a) * 0.04, -std::sin(a) * 0.04));
                }
            }
        p.setPen(QPen(s.robeMark, lw * 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.setBrush(Qt::NoBrush);
        p.drawPath(scallops);
        p.setPen(QPen(s.accent, 0.035));
        p.drawPath(robePath);
    } else {
        // Upright stripes and a plain collar band.
        p.setPen(QPen(s.robeMark, 0.022));
        for (int i = 0; i < 12; ++i)
            p.drawLine(QPointF(0.06 + i * 0.08, b - 0.35), QPointF(0.06 + i * 0.08, b + 0.02));
        p.setPen(QPen(s.accent, 0.04));
        p.drawPath(robePath);
    }
    p.restore();

    // A front panel down the middle with small signs of the suit.
    QPainterPath front(QPointF(0.44, b - 0.3));
    front.lineTo(QPointF(0.56, b - 0.3));
    front.lineTo(QPointF(0.6, b + 0.02));
    front.lineTo(QPointF(0.4, b + 0.02));
    front.closeSubpath();
    fill(front, s.accent);
    const QColor mark = isRed(face.suit) ? robe : kOutline;
    drawSuit(p, face.suit, QPointF(0.5, b - 0.16), 0.075, false, mark);
    drawSuit(p, face.suit, QPointF(0.5, b - 0.05), 0.06, false, mark);

    // What the king and queen hold: a sceptre, a rose, in a hand at the robe's edge.
    if (face.rank >= 12) {
        const QPointF hand(0.76, b - 0.12);
        const QPointF top(0.8, headY - 0.02);
        p.setPen(QPen(kOutline, lw * 4.2, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(hand + QPointF(-0.01, 0.1), top);
        p.setPen(QPen(face.rank == 13 ? s.accent : QColor(0x4E, 0x9A, 0x4A), lw * 2.4,
                      Qt::SolidLine, Qt::RoundCap));
        p.drawLine(hand + QPointF(-0.01, 0.1), top);
        if (face.rank == 13) {
            QPainterPath orb;
            orb.addEllipse(top, 0.04, 0.04);
            fill(orb, s.accent);
            p.setPen(QPen(s.accentDark, lw * 1.5, Qt::SolidLine, Qt::RoundCap));
            p.drawLine(top + QPointF(0, -0.04), top + QPointF(0, -0.1));
            p.drawLine(top + QPointF(-0.025, -0.075), top + QPointF(0.025, -0.075));
        } else {
            QPainterPath leaf(top + QPointF(0, 0.1));
            leaf.quadTo(top + QPointF(0.07, 0.06), top + QPointF(0.08, 0.12));
            leaf.quadTo(top + QPointF(0.03, 0.13), top + QPointF(0, 0.1));
            fill(leaf, QColor(0x6F, 0xB0, 0x5A));
            QPainterPath rose;
            rose.addEllipse(top, 0.045, 0.04);
            fill(rose, QColor(0xD8, 0x3A, 0x5E));
            p.setPen(QPen(QColor(0x8C, 0x1E, 0x3C), lw, Qt::SolidLine, Qt::RoundCap));
            p.setBrush(Qt::NoBrush);
            p.drawArc(QRectF(top.x() - 0.022, top.y() - 0.02, 0.044, 0.04), 0, 270 * 16);
        }
        QPainterPath fist;
        fist.addEllipse(hand, 0.035, 0.03);
        fill(fist, kSkin);
    }

    // Neck, then head.
    fill(QPainterPath([&] {
             QPainterPath n;
             n.addRect(QRectF(0.455, headY + 0.1, 0.09, 0.1));
             return n;
         }()),
         kSkin, false);
    // Collar: a ruff of three bands in the accent.
    QPainterPath collar(QPointF(0.39, b - 0.31));
    collar.quadTo(QPointF(0.5, b - 0.24), QPointF(0.61, b - 0.31));
    collar.lineTo(QPointF(0.59, b - 0.35));
    collar.quadTo(QPointF(0.5, b - 0.3), QPointF(0.41, b - 0.35));
    collar.closeSubpath();
    fill(collar, face.rank == 13 ? s.robeMark : s.accent);

    const qreal rx = 0.112, ry = 0.14;
    QPainterPath head;
    head.addEllipse(QPointF(0.5, headY), rx, ry);
    fill(head, kSkin);

    // Hair on the head, under the headwear.
    p.setPen(Qt::NoPen);
    p.setBrush(s.hair);
    if (face.rank == 13) {
        QPainterPath sides(QPointF(0.39, headY - 0.04));
        sides.quadTo(QPointF(0.37, headY + 0.06), QPointF(0.4, headY + 0.08));
        sides.lineTo(QPointF(0.41, headY - 0.07));
        sides.closeSubpath();
        p.drawPath(mirrored(sides));
    } else {
        QPainterPath cap(QPointF(0.388, headY - 0.005));
        cap.cubicTo(QPointF(0.385, headY - 0.13), QPointF(0.45, headY - 0.15),
                    QPointF(0.5, headY - 0.15));
        cap.cubicTo(QPointF(0.55, headY - 0.15), QPointF(0.615, headY - 0.13),
                    QPointF(0.612, headY - 0.005));
        cap.quadTo(QPointF(0.58, headY - 0.09), QPointF(0.5, headY - 0.085));
        cap.quadTo(QPointF(0.42, headY - 0.09), QPointF(0.388, headY - 0.005));
        p.drawPath(cap);
    }

    // Face: brows, eyes, nose, mouth; a touch of colour on the cheeks.
    const qreal eyeY = headY - 0.01;
    p.setBrush(QColor(0xEC, 0xA8, 0x95, 150));
    p.drawEllipse(QPointF(0.445, headY + 0.045), 0.022, 0.014);
    p.drawEllipse(QPointF(0.555, headY + 0.045), 0.022, 0.014);
    p.setBrush(kOutline);
    p.drawEllipse(QPointF(0.458, eyeY), 0.011, 0.014);
    p.drawEllipse(QPointF(0.542, eyeY), 0.011, 0.014);
    p.setPen(QPen(kOutline, lw * 0.9, Qt::SolidLine, Qt::RoundCap));
    p.setBrush(Qt::NoBrush);
    p.drawLine(QPointF(0.435, eyeY - 0.035), QPointF(0.475, eyeY - 0.04));
    p.drawLine(QPointF(0.525, eyeY - 0.04), QPointF(0.565, eyeY - 0.035));
    QPainterPath nose(QPointF(0.5, eyeY + 0.005));
    nose.quadTo(QPointF(0.49, eyeY + 0.045), QPointF(0.505, eyeY + 0.05));
    p.drawPath(nose);

    if (face.rank == 13) {
        // A full beard with a moustache; the mouth sits in it.
        QPainterPath beard(QPointF(0.39, headY + 0.0));
        beard.cubicTo(QPointF(0.39, headY + 0.14), QPointF(0.44, headY + 0.2),
                      QPointF(0.5, headY + 0.23));
        beard.cubicTo(QPointF(0.56, headY + 0.2), QPointF(0.61, headY + 0.14),
                      QPointF(0.61, headY + 0.0));
        beard.quadTo(QPointF(0.585, headY + 0.08), QPointF(0.5, headY + 0.07));
        beard.quadTo(QPointF(0.415, headY + 0.08), QPointF(0.39, headY + 0.0));
        beard.closeSubpath();
        fill(beard, s.hair);
        p.setPen(QPen(kOutline, lw * 0.8, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(0.5, headY + 0.12), QPointF(0.5, headY + 0.19));
        p.setPen(QPen(QColor(0x9C, 0x3A, 0x30), lw * 1.1, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(0.48, headY + 0.09), QPointF(0.52, headY + 0.09));
    } else {
        QPainterPath mouth(QPointF(0.475, headY + 0.07));
        mouth.quadTo(QPointF(0.5, headY + 0.09), QPointF(0.525, headY + 0.07));
        p.setPen(QPen(face.rank == 12 ? QColor(0xC2, 0x2D, 0x4A) : QColor(0x9C, 0x3A, 0x30),
                      lw * (face.rank == 12 ? 1.6 : 1.1), Qt::SolidLine, Qt::RoundCap));
        p.drawPath(mouth);
    }

    // Headwear: crown, tiara or cap.
    if (face.rank == 13) {
        const qreal base = headY - 0.1, top = headY - 0.27;
        QPainterPath crown(QPointF(0.38, base));
        crown.lineTo(QPointF(0.37, top + 0.05));
        crown.lineTo(QPointF(0.43, base - 0.07));
        crown.lineTo(QPointF(0.5, top));
        crown.lineTo(QPointF(0.57, base - 0.07));
        crown.lineTo(QPointF(0.63, top + 0.05));
        crown.lineTo(QPointF(0.62, base));
        crown.closeSubpath();
        fill(crown, s.accent);
        QPainterPath band;
        band.addRect(QRectF(0.375, base - 0.035, 0.25, 0.045));
        fill(band, s.accent);
        p.setPen(Qt::NoPen);
        const QColor jewels[] = {QColor(0xC8, 0x1E, 0x3A), QColor(0x1F, 0x6F, 0xB8),
                                 QColor(0xC8, 0x1E, 0x3A)};
        for (int i = 0; i < 3; ++i) {
            p.setBrush(jewels[i]);
            p.drawEllipse(QPointF(0.43 + i * 0.07, base - 0.0125), 0.014, 0.014);
        }
        p.setBrush(s.accentDark);
        for (qreal x : {0.37, 0.5, 0.63})
            p.drawEllipse(QPointF(x, (x == 0.5 ? top : top + 0.05) - 0.012), 0.016, 0.016);
    } else if (face.rank == 12) {
        QPainterPath tiara(QPointF(0.39, headY - 0.075));
        tiara.quadTo(QPointF(0.45, headY - 0.13), QPointF(0.47, headY - 0.14));
        tiara.lineTo(QPointF(0.5, headY - 0.22));
        tiara.lineTo(QPointF(0.53, headY - 0.14));
        tiara.quadTo(QPointF(0.55, headY - 0.13), QPointF(0.61, headY - 0.075));
        tiara.quadTo(QPointF(0.5, headY - 0.12), QPointF(0.39, headY - 0.075));
        tiara.closeSubpath();
        fill(tiara, QColor(0xE6, 0xE2, 0xEA));
        QPainterPath jewel;
        jewel.addEllipse(QPointF(0.5, headY - 0.155), 0.022, 0.026);
        fill(jewel, QColor(0x2B, 0x9C, 0xC4));
        // Pearl earrings.
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0xF4, 0xF0, 0xF8));
        p.drawEllipse(QPointF(0.385, headY + 0.05), 0.014, 0.014);
        p.drawEllipse(QPointF(0.615, headY + 0.05), 0.014, 0.014);
    } else {
        // A soft cap worn aslant, with a long feather sweeping back.
        QPainterPath feather(QPointF(0.58, headY - 0.15));
        feather.cubicTo(QPointF(0.66, headY - 0.26), QPointF(0.76, headY - 0.31),
                        QPointF(0.86, headY - 0.3));
        feather.cubicTo(QPointF(0.78, headY - 0.25), QPointF(0.7, headY - 0.2),
                        QPointF(0.6, headY - 0.12));
        feather.closeSubpath();
        fill(feather, QColor(0xFA, 0xF6, 0xEA));
        p.setPen(QPen(s.accent, lw));
        p.drawLine(QPointF(0.6, headY - 0.14), QPointF(0.82, headY - 0.29));
        QPainterPath cap(QPointF(0.37, headY - 0.06));
        cap.cubicTo(QPointF(0.33, headY - 0.2), QPointF(0.5, headY - 0.26),
                    QPointF(0.66, headY - 0.17));
        cap.lineTo(QPointF(0.64, headY - 0.08));
        cap.quadTo(QPointF(0.5, headY - 0.13), QPointF(0.37, headY - 0.06));
        cap.closeSubpath();
        fill(cap, s.accent);
        QPainterPath brim(QPointF(0.36, headY - 0.055));
        brim.quadTo(QPointF(0.5, headY - 0.125), QPointF(0.645, headY - 0.075));
        p.setPen(QPen(s.accentDark, 0.03, Qt::SolidLine, Qt::RoundCap));
        p.setBrush(Qt::NoBrush);
        p.drawPath(brim);
    }

    // The suit sign at the figure's shoulder, where the panel is free.
    drawSuit(p, face.suit, QPointF(0.16, headY - 0.16), 0.17, false, suitColor(face.suit));
}

void paintCourt(QPainter& p, const QRectF& r, const Face& face, bool compact) {
    const qreal w = r.width(), h = r.height();
    const Scheme s = schemeOf(face.rank);
    const qreal scale = deviceScale(p);
    const QRectF frame =
        snapped(p, compact ? QRectF(r.left() + w * 0.28, r.top() + h * 0.05, w * 0.44, h * 0.9)
                           : QRectF(r.left() + w * 0.2, r.top() + h * 0.065, w * 0.6, h * 0.87));
    // The panel's field: a fine lattice of diamonds on the rank's pale tint.
    p.save();
    p.setPen(Qt::NoPen);
    p.setBrush(s.back);
    p.drawRect(frame);
    p.setClipRect(frame, Qt::IntersectClip);
    p.setBrush(s.pattern);
    const qreal cell = frame.width() / 7;
    for (int row = 0; row * cell * 0.5 < frame.height() + cell; ++row)
        for (int col = 0; col * cell < frame.width() + cell; ++col) {
            const QPointF c(frame.left() + col * cell + (row % 2) * cell / 2,
                            frame.top() + row * cell / 2);
            const QPointF pts[] = {c + QPointF(0, -cell * 0.12), c + QPointF(cell * 0.12, 0),
                                   c + QPointF(0, cell * 0.12), c + QPointF(-cell * 0.12, 0)};
            p.drawPolygon(pts, 4);
        }

    const qreal unit = frame.width();
    const qreal b = frame.height() / 2 / unit;
    const qreal lw = std::max(0.7 / (unit * scale), 0.011);
    for (int half = 0; half < 2; ++half) {
        p.save();
        if (half == 1) {
            p.translate(frame.center());
            p.rotate(180);
            p.translate(-frame.center());
        }
        p.setClipRect(QRectF(frame.left(), frame.top(), frame.width(), frame.height() / 2),
                      Qt::IntersectClip);
        p.translate(frame.topLeft());
        p.scale(unit, unit);
        paintCourtHalf(p, b, lw, face);
        p.restore();
    }
    p.restore();

    // The middle line and the frame, on whole pixels.
    const qreal px = 1.0 / scale;
    const qreal line = std::max(1.0, std::round(unit * scale / 60)) * px;
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(s.accentDark, line));
    const qreal mid = std::round((frame.center().y()) * scale) / scale;
    p.drawLine(QPointF(frame.left(), mid), QPointF(frame.right(), mid));
    p.setPen(QPen(suitColor(face.suit), line));
    p.drawRect(frame.adjusted(line / 2, line / 2, -line / 2, -line / 2));
}

}  // namespace

void paintFace(QPainter& p, const QRectF& r, const Face& face) {
    const QRectF card = cardBase(p, r, kCardWhite);
    const bool compact = card.height() * deviceScale(p) < kCompactHeight;
    if (face.rank >= 11)
        paintCourt(p, card, face, compact);
    else if (face.rank == 1)
        paintAce(p, card, face, compact);
    else
        paintPips(p, card, face, compact);
    paintIndex(p, card, face, compact);
}

}  // namespace corvanna::cardart
