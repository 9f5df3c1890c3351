#include "qt/CardArt.h"

#include <QFont>
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPixmapCache>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>

namespace corvanna {

namespace {

const QColor kRed(0xC4, 0x12, 0x2F);
const QColor kBlack(0x1A, 0x1A, 0x1A);
const QColor kCardBorder(0x8C, 0x8C, 0x8C);

struct Face {
    int rank = 0;
    char suit = 0;
};

// "1S" .. "13D"
bool parseFace(const std::string& name, Face& out) {
    if (name.size() < 2 || name.size() > 3)
        return false;
    const char suit = name.back();
    if (suit != 'S' && suit != 'H' && suit != 'C' && suit != 'D')
        return false;
    int rank = 0;
    for (std::size_t i = 0; i + 1 < name.size(); ++i) {
        if (name[i] < '0' || name[i] > '9')
            return false;
        rank = rank * 10 + (name[i] - '0');
    }
    if (rank < 1 || rank > 13 || name[0] == '0')
        return false;
    out = {rank, suit};
    return true;
}

QString rankText(int rank) {
    switch (rank) {
        case 1: return QStringLiteral("A");
        case 11: return QStringLiteral("J");
        case 12: return QStringLiteral("Q");
        case 13: return QStringLiteral("K");
        default: return QString::number(rank);
    }
}

QString suitText(char suit) {
    switch (suit) {
        case 'S': return QString(QChar(0x2660));
        case 'H': return QString(QChar(0x2665));
        case 'C': return QString(QChar(0x2663));
        default: return QString(QChar(0x2666));
    }
}

QColor suitColor(char suit) {
    return suit == 'H' || suit == 'D' ? kRed : kBlack;
}

QFont artFont(const char* family, qreal pixelSize, bool bold) {
    QFont f(QString::fromLatin1(family));
    f.setPixelSize(std::max(1, static_cast<int>(std::lround(pixelSize))));
    f.setBold(bold);
    f.setStyleStrategy(QFont::PreferAntialias);
    return f;
}

// Glyphs as paths, centred on their ink rather than on the font's line box,
// so the big middle suit sits exactly in the middle at every size.
void drawCentredText(QPainter& p, const QString& text, const QFont& font, const QPointF& centre,
                     const QColor& color) {
    QPainterPath path;
    path.addText(0, 0, font, text);
    const QRectF ink = path.boundingRect();
    path.translate(centre - ink.center());
    p.fillPath(path, color);
}

// Fits text of the font's family into the given ink height, then centres it.
void drawTextInBox(QPainter& p, const QString& text, const char* family, bool bold,
                   const QRectF& box, const QColor& color) {
    QPainterPath probe;
    probe.addText(0, 0, artFont(family, 100, bold), text);
    const QRectF ink = probe.boundingRect();
    if (ink.isEmpty())
        return;
    const qreal scale = std::min(box.width() / ink.width(), box.height() / ink.height());
    drawCentredText(p, text, artFont(family, 100 * scale, bold), box.center(), color);
}

qreal cornerRadius(const QRectF& r) {
    return std::min(r.width(), r.height()) * 0.08;
}

void cardBase(QPainter& p, const QRectF& r, const QColor& fill) {
    const qreal pen = std::max(1.0, r.width() / 90.0);
    const QRectF body = r.adjusted(pen / 2, pen / 2, -pen / 2, -pen / 2);
    p.setPen(QPen(kCardBorder, pen));
    p.setBrush(fill);
    p.drawRoundedRect(body, cornerRadius(r), cornerRadius(r));
}

void paintFace(QPainter& p, const QRectF& r, const Face& face) {
    cardBase(p, r, Qt::white);
    const QColor ink = suitColor(face.suit);
    const QString rank = rankText(face.rank);
    const QString suit = suitText(face.suit);
    const qreal w = r.width(), h = r.height();

    // Index in two corners: the second is the first turned half round.
    const QRectF rankBox(r.left() + w * 0.05, r.top() + h * 0.05, w * 0.17, h * 0.13);
    const QRectF suitBox(rankBox.left(), rankBox.bottom() + h * 0.02, rankBox.width(), h * 0.1);
    for (int corner = 0; corner < 2; ++corner) {
        p.save();
        if (corner == 1) {
            p.translate(r.center());
            p.rotate(180);
            p.translate(-r.center());
        }
        const QRectF rb = face.rank == 10 ? rankBox.adjusted(-w * 0.02, 0, w * 0.03, 0) : rankBox;
        drawTextInBox(p, rank, "DejaVu Sans", true, rb, ink);
        drawTextInBox(p, suit, "DejaVu Sans", false, suitBox, ink);
        p.restore();
    }

    if (face.rank >= 11) {
        // Court cards: a tinted panel with the letter, so J, Q and K read at a glance.
        const QRectF panel(r.left() + w * 0.25, r.top() + h * 0.2, w * 0.5, h * 0.6);
        p.setPen(QPen(ink, std::max(1.0, w / 70.0)));
        p.setBrush(QColor(0xF6, 0xE7, 0xB8));
        p.drawRoundedRect(panel, w * 0.04, w * 0.04);
        drawTextInBox(p, rank, "DejaVu Serif", true,
                      QRectF(panel.left(), panel.top() + panel.height() * 0.1, panel.width(),
                             panel.height() * 0.42),
                      ink);
        drawTextInBox(p, suit, "DejaVu Sans", false,
                      QRectF(panel.left(), panel.top() + panel.height() * 0.6, panel.width(),
                             panel.height() * 0.28),
                      ink);
    } else {
        const qreal size = std::min(w * 0.5, h * 0.38);
        drawTextInBox(p, suit, "DejaVu Sans", false,
                      QRectF(r.center().x() - size / 2, r.center().y() - size / 2, size, size),
                      ink);
    }
}

enum class Design { Palm, Magic, Night, Hot };

void paintPalm(QPainter& p, const QRectF& in) {
    QLinearGradient g(in.topLeft(), in.bottomRight());
    g.setColorAt(0, QColor(0x2E, 0x8B, 0x4A));
    g.setColorAt(1, QColor(0x0E, 0x4A, 0x22));
    p.fillRect(in, g);
    // A light lattice behind the tree.
    p.setPen(QPen(QColor(255, 255, 255, 40), std::max(1.0, in.width() / 80.0)));
    const qreal step = in.width() / 6.0;
    for (qreal d = -in.height(); d < in.width(); d += step) {
        p.drawLine(QPointF(in.left() + d, in.top()),
                   QPointF(in.left() + d + in.height(), in.bottom()));
        p.drawLine(QPointF(in.left() + d + in.height(), in.top()),
                   QPointF(in.left() + d, in.bottom()));
    }
    // The palm: a leaning trunk and a crown of leaves.
    const QPointF base(in.left() + in.width() * 0.45, in.bottom() - in.height() * 0.12);
    const QPointF crown(in.left() + in.width() * 0.58, in.top() + in.height() * 0.35);
    QPainterPath trunk(base);
    trunk.quadTo(QPointF(in.left() + in.width() * 0.62, in.center().y() + in.height() * 0.1),
                 crown);
    p.setPen(QPen(QColor(0x8B, 0x5A, 0x2B), in.width() * 0.07, Qt::SolidLine, Qt::RoundCap));
    p.setBrush(Qt::NoBrush);
    p.drawPath(trunk);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xB8, 0xE9, 0x86));
    const qreal len = in.width() * 0.32;
    for (int i = 0; i < 6; ++i) {
        const qreal a = (-170 + i * 32) * M_PI / 180.0;
        const QPointF tip =
            crown + QPointF(std::cos(a) * len, std::sin(a) * len * 0.8 + len * 0.25);
        const QPointF mid = (crown + tip) / 2;
        const QPointF off(-(tip.y() - crown.y()) * 0.18, (tip.x() - crown.x()) * 0.18);
        QPainterPath leaf(crown);
        leaf.quadTo(mid + off, tip);
        leaf.quadTo(mid - off * 0.4, crown);
        p.drawPath(leaf);
    }
    p.setBrush(QColor(0x6B, 0x3E, 0x1E));
    p.drawEllipse(crown, in.width() * 0.04, in.width() * 0.04);
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

void paintMagic(QPainter& p, const QRectF& in) {
    QRadialGradient g(in.center(), std::max(in.width(), in.height()) * 0.7);
    g.setColorAt(0, QColor(0x8E, 0x4C, 0xC4));
    g.setColorAt(1, QColor(0x2E, 0x12, 0x52));
    p.fillRect(in, g);
    // Scattered small stars on a fixed grid, every other row shifted.
    const qreal step = in.width() / 5.0;
    int row = 0;
    for (qreal y = in.top() + step / 2; y < in.bottom(); y += step, ++row)
        for (qreal x = in.left() + (row % 2 ? step : step / 2); x < in.right(); x += step)
            drawStar(p, QPointF(x, y), step * 0.12, step * 0.05, QColor(255, 230, 160, 110));
    // A ring with a big star: the magic circle.
    const qreal radius = std::min(in.width(), in.height()) * 0.3;
    p.setPen(QPen(QColor(0xF3, 0xD2, 0x6B), std::max(1.0, in.width() / 40.0)));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(in.center(), radius, radius);
    drawStar(p, in.center(), radius * 0.85, radius * 0.36, QColor(0xF3, 0xD2, 0x6B));
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
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xF4, 0xF1, 0xC9));
    p.drawEllipse(QPointF(in.left() + w * 0.75, in.top() + h * 0.17), w * 0.1, w * 0.1);
    // The castle: a wall with two towers, all with battlements.
    QPainterPath castle;
    const qreal ground = in.bottom();
    auto block = [&](qreal x0, qreal x1, qreal top) {
        castle.addRect(QRectF(in.left() + w * x0, in.top() + h * top, w * (x1 - x0),
                              ground - (in.top() + h * top)));
        const qreal merlon = w * (x1 - x0) / 5;
        for (int i = 0; i < 5; i += 2)
            castle.addRect(QRectF(in.left() + w * x0 + i * merlon, in.top() + h * top - h * 0.04,
                                  merlon, h * 0.04 + 1));
    };
    block(0.2, 0.8, 0.68);
    block(0.12, 0.32, 0.52);
    block(0.68, 0.88, 0.52);
    block(0.42, 0.58, 0.6);
    castle.setFillRule(Qt::WindingFill);
    p.fillPath(castle.simplified(), QColor(0x05, 0x08, 0x14));
    p.setBrush(QColor(0xF5, 0xC8, 0x42));
    p.drawRect(QRectF(in.left() + w * 0.47, in.top() + h * 0.66, w * 0.06, h * 0.07));
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
        const qreal peak = h * (0.55 - row * 0.14);
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
}

void paintBack(QPainter& p, const QRectF& r, Design design) {
    cardBase(p, r, Qt::white);
    // A white margin round the design, as printed backs have.
    const qreal margin = std::min(r.width(), r.height()) * 0.07;
    const QRectF in = r.adjusted(margin, margin, -margin, -margin);
    const qreal radius = cornerRadius(r) * 0.6;
    QPainterPath clip;
    clip.addRoundedRect(in, radius, radius);
    p.save();
    p.setClipPath(clip, Qt::IntersectClip);
    switch (design) {
        case Design::Palm: paintPalm(p, in); break;
        case Design::Magic: paintMagic(p, in); break;
        case Design::Night: paintNight(p, in); break;
        case Design::Hot: paintHot(p, in); break;
    }
    p.restore();
}

// "full" is a stack of three cards, "half" of two, "back" one.
void paintBacks(QPainter& p, const QRectF& r, Design design, int cards) {
    const qreal off = std::min(r.width(), r.height()) * 0.045;
    const QSizeF size(r.width() - off * (cards - 1), r.height() - off * (cards - 1));
    for (int i = 0; i < cards; ++i)
        paintBack(p, QRectF(r.topLeft() + QPointF(off * i, off * i), size), design);
}

bool parseBack(const std::string& name, Design& design, int& cards) {
    const auto dash = name.find('-');
    if (dash == std::string::npos)
        return false;
    const std::string d = name.substr(0, dash), s = name.substr(dash + 1);
    if (d == "palm")
        design = Design::Palm;
    else if (d == "magic")
        design = Design::Magic;
    else if (d == "night")
        design = Design::Night;
    else if (d == "hot")
        design = Design::Hot;
    else
        return false;
    if (s == "full")
        cards = 3;
    else if (s == "half")
        cards = 2;
    else if (s == "back")
        cards = 1;
    else
        return false;
    return true;
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
    drawTextInBox(p, QStringLiteral("Tierfall"), "DejaVu Serif", true,
                  QRectF(r.left() + w * 0.12, r.top() + h * 0.38, w * 0.76, h * 0.2),
                  QColor(0xF6, 0xE7, 0xB8));
    // The four suits in a row under the name, and one above.
    const char suits[] = {'S', 'H', 'C', 'D'};
    const qreal cell = w * 0.14;
    for (int i = 0; i < 4; ++i) {
        const QColor c = suits[i] == 'H' || suits[i] == 'D' ? QColor(0xF0, 0x6A, 0x6A)
                                                            : QColor(0xF6, 0xE7, 0xB8);
        drawTextInBox(
            p, suitText(suits[i]), "DejaVu Sans", false,
            QRectF(r.left() + w * 0.22 + i * cell, r.top() + h * 0.66, cell * 0.7, cell * 0.7), c);
    }
    drawTextInBox(p, suitText('S'), "DejaVu Sans", false,
                  QRectF(r.center().x() - w * 0.1, r.top() + h * 0.12, w * 0.2, h * 0.18),
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

// A name nobody knows shows itself, so a wrong key is seen at once.
void paintUnknown(QPainter& p, const QRectF& r, const std::string& name) {
    p.setPen(QPen(QColor(0xD0, 0x20, 0xD0), 1, Qt::DashLine));
    p.setBrush(QColor(255, 255, 255, 60));
    p.drawRect(r.adjusted(0.5, 0.5, -0.5, -0.5));
    p.setFont(artFont("DejaVu Sans", std::max(6.0, r.height() / 8), false));
    p.drawText(r, Qt::AlignCenter | Qt::TextWordWrap, QString::fromStdString(name));
}

}  // namespace

bool CardArt::knows(const std::string& picture) {
    Face face;
    Design design;
    int cards;
    return parseFace(picture, face) || parseBack(picture, design, cards) || picture == "EMPTY" ||
           picture == "TFAL" || picture == "POINTER" || picture == "Empty";
}

void CardArt::paint(QPainter& p, const QRectF& rect, const std::string& picture) {
    if (picture.empty() || picture == "Empty" || rect.width() < 1 || rect.height() < 1)
        return;
    p.save();
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setRenderHint(QPainter::TextAntialiasing, true);
    Face face;
    Design design;
    int cards = 0;
    if (parseFace(picture, face))
        paintFace(p, rect, face);
    else if (parseBack(picture, design, cards))
        paintBacks(p, rect, design, cards);
    else if (picture == "EMPTY")
        paintEmptyPlace(p, rect);
    else if (picture == "TFAL")
        paintSplash(p, rect);
    else if (picture == "POINTER")
        paintPointer(p, rect);
    else
        paintUnknown(p, rect, picture);
    p.restore();
}

QPixmap CardArt::pixmap(const std::string& picture, QSize size, qreal dpr) {
    if (picture.empty() || picture == "Empty" || size.isEmpty())
        return {};
    if (dpr <= 0)
        dpr = 1;
    static const bool cacheSized = [] {
        // A few window sizes' worth of a full deck at high resolution.
        QPixmapCache::setCacheLimit(std::max(QPixmapCache::cacheLimit(), 48 * 1024));
        return true;
    }();
    (void)cacheSized;
    const QString key = QStringLiteral("corvanna-card:%1:%2x%3@%4")
                            .arg(QString::fromStdString(picture))
                            .arg(size.width())
                            .arg(size.height())
                            .arg(dpr);
    QPixmap pm;
    if (QPixmapCache::find(key, &pm))
        return pm;
    const QSize device(static_cast<int>(std::ceil(size.width() * dpr)),
                       static_cast<int>(std::ceil(size.height() * dpr)));
    pm = QPixmap(device);
    pm.setDevicePixelRatio(dpr);
    pm.fill(Qt::transparent);
    {
        QPainter p(&pm);
        paint(p, QRectF(QPointF(0, 0), QSizeF(size)), picture);
    }
    QPixmapCache::insert(key, pm);
    return pm;
}

}  // namespace corvanna
