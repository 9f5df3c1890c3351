#pragma once
// Private to the card art: what the face, back and dispatch files share. Every
// drawing takes the rect it fills in the painter's coordinates; the painter's
// device transform tells how many real pixels that is, so lines snap to them.

#include <QColor>
#include <QPainterPath>
#include <QRectF>
#include <QString>
#include <string>

class QPainter;

namespace corvanna::cardart {

struct Face {
    int rank = 0;   // 1 ace .. 13 king
    char suit = 0;  // S H C D
};

enum class Design { Palm, Magic, Night, Hot };

bool parseFace(const std::string& name, Face& out);
bool parseBack(const std::string& name, Design& design, int& cards);

bool isRed(char suit);
QColor suitColor(char suit);

// Real pixels per unit of the painter's coordinates (1 when painting a pixmap).
qreal deviceScale(const QPainter& p);

// A suit sign as a path one unit high, centred on the origin.
const QPainterPath& suitPath(char suit);
// Fills the suit sign with its ink height at centre, turned half round when asked.
void drawSuit(QPainter& p, char suit, const QPointF& centre, qreal height, bool upsideDown,
              const QColor& color);

// Text outlines fitted into box (kept to its height, squeezed only when too wide).
void drawTextInBox(QPainter& p, const QString& text, const QString& family, bool bold,
                   const QRectF& box, const QColor& color, Qt::Alignment align = Qt::AlignCenter);

qreal cornerRadius(const QRectF& r);
// The white card with its border on whole pixels; returns the rect inside the border.
QRectF cardBase(QPainter& p, const QRectF& r, const QColor& fill);

void paintFace(QPainter& p, const QRectF& r, const Face& face);
void paintBacks(QPainter& p, const QRectF& r, Design design, int cards);
void paintEmptyPlace(QPainter& p, const QRectF& r);
void paintSplash(QPainter& p, const QRectF& r);
void paintPointer(QPainter& p, const QRectF& r);

// Lettermine's guess pictures (Smileys.cpp).
enum class Guess { Happy, Blank, Unhappy, Banned };
void paintGuess(QPainter& p, const QRectF& r, Guess kind);

}  // namespace corvanna::cardart
