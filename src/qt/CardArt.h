#pragma once
// Card pictures drawn by code from their stable picture names ("1S".."13D", the
// back designs, "EMPTY", "POINTER", "TFAL", and Lettermine's "SmileyHappy",
// "SmileyBlank", "SmileySad", "SmileyBanned"), at the real pixel size of the place
// they fill, so a card is sharp at any window size and on any screen.

#include <QPixmap>
#include <QRectF>
#include <QSize>
#include <string>

class QPainter;

namespace corvanna {

class CardArt {
public:
    // The picture at size (logical pixels) for the device pixel ratio, from the
    // cache when drawn before. Null for "Empty", the empty name or a size of 0.
    static QPixmap pixmap(const std::string& picture, QSize size, qreal dpr);

    // Paints the picture to fill rect; nothing for "Empty" or the empty name.
    static void paint(QPainter& p, const QRectF& rect, const std::string& picture);

    // True for the names the picture store hands out (unknown ones draw a marker).
    static bool knows(const std::string& picture);
};

}  // namespace corvanna
