// Painting a board of cards: a 1920x1080 window with a 5x5 grid of distinct cards, as a
// game shows them when its window fills such a screen, and a stack. Prints, in ms:
//   first_frame      the very first paint of the board after start (nothing drawn yet)
//   cold_frame       a repaint right after the picture cache has been emptied
//   warm_frame       median and 95th percentile of 100 repaints with a warm cache
//   warm_render      median of 100 renders of the whole window into an image
//   card_uncached    median and slowest time to draw one picture with no cache, per size
//                    (slowest after the first round, which builds the shared outlines)

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QPixmapCache>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "qt/CardArt.h"
#include "qt/PeerWidgets.h"

using corvanna::CardArt;
using corvanna::PictureWidget;

namespace {

double msSince(const QElapsedTimer& t) {
    return t.nsecsElapsed() / 1e6;
}

double percentile(std::vector<double> v, double q) {
    std::sort(v.begin(), v.end());
    return v[std::min(v.size() - 1, static_cast<size_t>(q * (v.size() - 1) + 0.5))];
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);

    QWidget board;
    board.setFixedSize(1920, 1080);
    QPalette felt = board.palette();
    felt.setColor(QPalette::Window, QColor(0x1F, 0x6B, 0x3A));
    board.setPalette(felt);
    board.setAutoFillBackground(true);

    // A 69x94 card at 100% grows with the window; five rows fill the height of this one.
    const QSize card(138, 188);
    const int gap = 18;
    std::vector<PictureWidget*> cards;
    for (int i = 0; i < 25; ++i) {
        auto* w = new PictureWidget(&board);
        w->setGeometry(gap + (i % 5) * (card.width() + gap), gap + (i / 5) * (card.height() + gap),
                       card.width(), card.height());
        cards.push_back(w);
    }
    auto* stack = new PictureWidget(&board);
    stack->setGeometry(1920 - card.width() - 60, gap, card.width() + 12, card.height() + 12);

    board.show();
    while (!board.windowHandle() || !board.windowHandle()->isExposed())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    QCoreApplication::processEvents();

    // Twenty-five distinct cards from across the deck, every rank and suit among them.
    const char suits[] = {'S', 'H', 'C', 'D'};
    for (int i = 0; i < 25; ++i)
        cards[i]->setPicture(std::to_string(i % 13 + 1) + suits[(i * 7) % 4]);
    stack->setPicture("palm-full");

    QElapsedTimer t;
    t.start();
    board.repaint();
    const double first = msSince(t);

    QPixmapCache::clear();
    t.restart();
    board.repaint();
    const double cold = msSince(t);

    std::vector<double> warm;
    for (int i = 0; i < 100; ++i) {
        t.restart();
        board.repaint();
        warm.push_back(msSince(t));
    }

    QImage frame(board.size() * board.devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
    frame.setDevicePixelRatio(board.devicePixelRatioF());
    std::vector<double> rendered;
    for (int i = 0; i < 100; ++i) {
        t.restart();
        board.render(&frame);
        rendered.push_back(msSince(t));
    }

    std::printf("dpr %.2f, board 1920x1080, 25 cards at %dx%d + palm-full\n",
                board.devicePixelRatioF(), card.width(), card.height());
    std::printf("first_frame %.3f\n", first);
    std::printf("cold_frame %.3f\n", cold);
    std::printf("warm_frame median %.3f p95 %.3f\n", percentile(warm, 0.5), percentile(warm, 0.95));
    std::printf("warm_render median %.3f\n", percentile(rendered, 0.5));

    // One picture with no cache: every face and back, each drawn afresh.
    std::vector<std::string> names;
    for (char s : suits)
        for (int r = 1; r <= 13; ++r)
            names.push_back(std::to_string(r) + s);
    for (const char* d : {"palm", "magic", "night", "hot"})
        for (const char* k : {"back", "full", "half"})
            names.push_back(std::string(d) + "-" + k);
    for (QSize size : {QSize(69, 94), QSize(276, 376)}) {
        std::vector<double> times;
        std::string slowest;
        double worst = 0;
        for (int round = 0; round < 3; ++round)
            for (const std::string& name : names) {
                QPixmapCache::clear();
                t.restart();
                const QPixmap pm = CardArt::pixmap(name, size, 1.0);
                const double ms = msSince(t);
                times.push_back(ms);
                // The first round also pays for shaping glyphs and building the signs once.
                if (round > 0 && ms > worst) {
                    worst = ms;
                    slowest = name;
                }
            }
        std::printf("card_uncached %dx%d median %.3f max %.3f (%s)\n", size.width(), size.height(),
                    percentile(times, 0.5), worst, slowest.c_str());
    }
    return 0;
}
