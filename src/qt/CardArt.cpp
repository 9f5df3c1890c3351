#include "qt/CardArt.h"

#include <QFont>
#include <QHash>
#include <QPainter>
#include <QPixmapCache>
#include <algorithm>
#include <cmath>

#include "qt/CardArtDraw.h"

namespace corvanna {

namespace cardart {

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

// "palm-full", "magic-back", "hot-half", ...: full is a stack, half a smaller one.
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
        cards = 4;
    else if (s == "half")
        cards = 2;
    else if (s == "back")
        cards = 1;
    else
        return false;
    return true;
}

bool isRed(char suit) {
    return suit == 'H' || suit == 'D';
}

QColor suitColor(char suit) {
    return isRed(suit) ? QColor(0xB8, 0x10, 0x2A) : QColor(0x16, 0x17, 0x1C);
}

qreal deviceScale(const QPainter& p) {
    const QTransform t = p.deviceTransform();
    return std::max(1e-3, std::sqrt(std::abs(t.determinant())));
}

namespace {

// Each sign is built from its left half where it is symmetric, in a box about one unit
// high, then moved and scaled so its ink is exactly one unit high around the origin.
QPainterPath normalised(QPainterPath path) {
    const QRectF b = path.boundingRect();
    QTransform t;
    t.scale(1.0 / b.height(), 1.0 / b.height());
    t.translate(-b.center().x(), -b.center().y());
    return t.map(path);
}

QPainterPath heartPath() {
    QPainterPath h(QPointF(0, 0.5));
    h.cubicTo(QPointF(-0.1, 0.34), QPointF(-0.5, 0.1), QPointF(-0.5, -0.17));
    h.cubicTo(QPointF(-0.5, -0.37), QPointF(-0.37, -0.49), QPointF(-0.25, -0.49));
    h.cubicTo(QPointF(-0.12, -0.49), QPointF(-0.03, -0.41), QPointF(0, -0.29));
    h.cubicTo(QPointF(0.03, -0.41), QPointF(0.12, -0.49), QPointF(0.25, -0.49));
    h.cubicTo(QPointF(0.37, -0.49), QPointF(0.5, -0.37), QPointF(0.5, -0.17));
    h.cubicTo(QPointF(0.5, 0.1), QPointF(0.1, 0.34), QPointF(0, 0.5));
    h.closeSubpath();
    return h;
}

// The foot under spades and clubs: a flared stem with hollow sides.
QPainterPath stemPath(qreal top, qreal width) {
    QPainterPath s(QPointF(-0.035, top));
    s.quadTo(QPointF(-0.03, 0.4), QPointF(-width / 2, 0.5));
    s.lineTo(QPointF(width / 2, 0.5));
    s.quadTo(QPointF(0.03, 0.4), QPointF(0.035, top));
    s.closeSubpath();
    return s;
}

QPainterPath spadePath() {
    QTransform flip;
    flip.translate(0, -0.12);
    flip.scale(0.98, -0.76);
    // United piece by piece, as overlapping parts drawn the other way round would cancel
    // out; large, because uniting flattens curves at a fixed step.
    const QTransform big = QTransform::fromScale(1000, 1000);
    return big.map(flip.map(heartPath())).united(big.map(stemPath(0.12, 0.36)));
}

QPainterPath clubPath() {
    const qreal r = 0.215;
    const QTransform big = QTransform::fromScale(1000, 1000);
    auto disc = [&](QPointF c, qreal radius) {
        QPainterPath d;
        d.addEllipse(c, radius, radius);
        return big.map(d);
    };
    return disc(QPointF(0, -0.27), r)
        .united(disc(QPointF(-0.255, 0.1), r))
        .united(disc(QPointF(0.255, 0.1), r))
        .united(disc(QPointF(0, 0.02), 0.12))
        .united(big.map(stemPath(0.0, 0.36)));
}

QPainterPath diamondPath() {
    QPainterPath d(QPointF(0, -0.5));
    d.quadTo(QPointF(0.14, -0.2), QPointF(0.39, 0));
    d.quadTo(QPointF(0.14, 0.2), QPointF(0, 0.5));
    d.quadTo(QPointF(-0.14, 0.2), QPointF(-0.39, 0));
    d.quadTo(QPointF(-0.14, -0.2), QPointF(0, -0.5));
    d.closeSubpath();
    return d;
}

struct TextKey {
    QString text, family;
    bool bold;
    bool operator==(const TextKey&) const = default;
};

size_t qHash(const TextKey& k, size_t seed = 0) {
    return ::qHash(k.text, seed) ^ ::qHash(k.family, seed) ^ (k.bold ? 1u : 0u);
}

// Glyph outlines at a fixed size; scaled per card, so a font is shaped once per text.
const QPainterPath& textPath(const QString& text, const QString& family, bool bold) {
    static QHash<TextKey, QPainterPath> cache;
    const TextKey key{text, family, bold};
    auto it = cache.find(key);
    if (it == cache.end()) {
        QFont f(family);
        f.setPixelSize(100);
        f.setBold(bold);
        QPainterPath path;
        path.addText(0, 0, f, text);
        it = cache.insert(key, path);
    }
    return *it;
}

}  // namespace

const QPainterPath& suitPath(char suit) {
    static const QPainterPath spade = normalised(spadePath());
    static const QPainterPath heart = normalised(heartPath());
    static const QPainterPath club = normalised(clubPath());
    static const QPainterPath diamond = normalised(diamondPath());
    switch (suit) {
        case 'S': return spade;
        case 'H': return heart;
        case 'C': return club;
        default: return diamond;
    }
}

void drawSuit(QPainter& p, char suit, const QPointF& centre, qreal height, bool upsideDown,
              const QColor& color) {
    p.save();
    p.translate(centre);
    if (upsideDown)
        p.rotate(180);
    p.scale(height, height);
    p.fillPath(suitPath(suit), color);
    p.restore();
}

void drawTextInBox(QPainter& p, const QString& text, const QString& family, bool bold,
                   const QRectF& box, const QColor& color, Qt::Alignment align) {
    const QPainterPath& path = textPath(text, family, bold);
    const QRectF ink = path.boundingRect();
    if (ink.isEmpty() || box.isEmpty())
        return;
    const qreal sy = box.height() / ink.height();
    const qreal sx = std::min(sy, box.width() / ink.width());
    const qreal inkWidth = ink.width() * sx;
    qreal left = box.center().x() - inkWidth / 2;
    if (align & Qt::AlignLeft)
        left = box.left();
    else if (align & Qt::AlignRight)
        left = box.right() - inkWidth;
    p.save();
    p.translate(left, box.top());
    p.scale(sx, sy);
    p.translate(-ink.left(), -ink.top());
    p.fillPath(path, color);
    p.restore();
}

qreal cornerRadius(const QRectF& r) {
    return std::min(r.width(), r.height()) * 0.075;
}

QRectF cardBase(QPainter& p, const QRectF& r, const QColor& fill) {
    // The border is a whole number of real pixels wide and lies on pixel centres.
    const qreal scale = deviceScale(p);
    const qreal penPx = std::max(1.0, std::round(std::min(r.width(), r.height()) * scale / 90.0));
    const qreal pen = penPx / scale;
    const QTransform toDevice = p.deviceTransform();
    QRectF dev = toDevice.mapRect(r);
    dev = QRectF(QPointF(std::round(dev.left()), std::round(dev.top())),
                 QPointF(std::round(dev.right()), std::round(dev.bottom())));
    const QRectF snapped = toDevice.inverted().mapRect(dev);
    const QRectF body = snapped.adjusted(pen / 2, pen / 2, -pen / 2, -pen / 2);
    p.setPen(QPen(QColor(0x8E, 0x88, 0x7C), pen));
    p.setBrush(fill);
    p.drawRoundedRect(body, cornerRadius(r), cornerRadius(r));
    return body.adjusted(pen / 2, pen / 2, -pen / 2, -pen / 2);
}

}  // namespace cardart

using namespace cardart;

namespace {

// Lettermine's guess pictures by their stable names.
bool parseGuess(const std::string& name, Guess& guess) {
    static const std::pair<const char*, Guess> kNames[] = {{"SmileyHappy", Guess::Happy},
                                                           {"SmileyBlank", Guess::Blank},
                                                           {"SmileySad", Guess::Unhappy},
                                                           {"SmileyBanned", Guess::Banned}};
    for (const auto& [n, g] : kNames)
        if (name == n) {
            guess = g;
            return true;
        }
    return false;
}

// A name nobody knows shows itself, so a wrong key is seen at once.
void paintUnknown(QPainter& p, const QRectF& r, const std::string& name) {
    p.setPen(QPen(QColor(0xD0, 0x20, 0xD0), 1, Qt::DashLine));
    p.setBrush(QColor(255, 255, 255, 60));
    p.drawRect(r.adjusted(0.5, 0.5, -0.5, -0.5));
    QFont f(QStringLiteral("DejaVu Sans"));
    f.setPixelSize(std::max(6, static_cast<int>(r.height() / 8)));
    p.setFont(f);
    p.drawText(r, Qt::AlignCenter | Qt::TextWordWrap, QString::fromStdString(name));
}

}  // namespace

bool CardArt::knows(const std::string& picture) {
    Face face;
    Design design;
    int cards;
    Guess guess;
    return parseFace(picture, face) || parseBack(picture, design, cards) || picture == "EMPTY" ||
           picture == "TFAL" || picture == "POINTER" || picture == "Empty" ||
           parseGuess(picture, guess);
}

void CardArt::paint(QPainter& p, const QRectF& rect, const std::string& picture) {
    if (picture.empty() || picture == "Empty" || rect.width() < 1 || rect.height() < 1)
        return;
    p.save();
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setRenderHint(QPainter::TextAntialiasing, true);
    p.setRenderHint(QPainter::SmoothPixmapTransform, true);
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
    else if (Guess guess; parseGuess(picture, guess))
        paintGuess(p, rect, guess);
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
        QPixmapCache::setCacheLimit(std::max(QPixmapCache::cacheLimit(), 64 * 1024));
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
    const QSize device(static_cast<int>(std::ceil(size.width() * dpr - 1e-6)),
                       static_cast<int>(std::ceil(size.height() * dpr - 1e-6)));
    pm = QPixmap(device);
    pm.fill(Qt::transparent);
    {
        // Drawn in real pixels, so the border and the index land on whole pixels.
        QPainter p(&pm);
        paint(p, QRectF(QPointF(0, 0), QSizeF(device)), picture);
    }
    pm.setDevicePixelRatio(dpr);
    QPixmapCache::insert(key, pm);
    return pm;
}

}  // namespace corvanna
