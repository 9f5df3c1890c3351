// The card pictures as a player sees them: every picture at its real pixel size, served
// from the cache, with the right number of pips in the suit's colour, court cards and
// backs that tell themselves apart.

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "common/PictureStore.h"
#include "qt/CardArt.h"
#include "qt/QtTestApp.h"

namespace corvanna {
namespace {

QImage render(const std::string& name, QSize size, qreal dpr = 1) {
    return CardArt::pixmap(name, size, dpr).toImage().convertToFormat(QImage::Format_ARGB32);
}

bool isRedInk(QRgb c) {
    return qAlpha(c) > 200 && qRed(c) > 140 && qGreen(c) < 90 && qBlue(c) < 110;
}

bool isDarkInk(QRgb c) {
    return qAlpha(c) > 200 && qRed(c) < 80 && qGreen(c) < 80 && qBlue(c) < 80;
}

// Connected blobs of pixels that match, within area, of at least minArea pixels.
int countBlobs(const QImage& img, const QRect& area, const std::function<bool(QRgb)>& match,
               int minArea) {
    const QRect a = area.intersected(img.rect());
    std::vector<char> seen(static_cast<size_t>(img.width()) * img.height(), 0);
    auto index = [&](int x, int y) { return static_cast<size_t>(y) * img.width() + x; };
    int blobs = 0;
    std::vector<QPoint> stack;
    for (int y = a.top(); y <= a.bottom(); ++y)
        for (int x = a.left(); x <= a.right(); ++x) {
            if (seen[index(x, y)] || !match(img.pixel(x, y)))
                continue;
            int size = 0;
            seen[index(x, y)] = 1;
            stack.push_back({x, y});
            while (!stack.empty()) {
                const QPoint p = stack.back();
                stack.pop_back();
                ++size;
                for (int dy = -1; dy <= 1; ++dy)
                    for (int dx = -1; dx <= 1; ++dx) {
                        const int nx = p.x() + dx, ny = p.y() + dy;
                        if (!a.contains(nx, ny) || seen[index(nx, ny)] || !match(img.pixel(nx, ny)))
                            continue;
                        seen[index(nx, ny)] = 1;
                        stack.push_back({nx, ny});
                    }
            }
            if (size >= minArea)
                ++blobs;
        }
    return blobs;
}

// The part of a face between the two corner indices, where the pips are.
QRect pipArea(const QImage& img) {
    const int w = img.width(), h = img.height();
    return QRect(QPoint(w * 20 / 100, h * 3 / 100), QPoint(w * 80 / 100, h * 97 / 100));
}

int countPips(const std::string& face) {
    const QImage img = render(face, QSize(276, 376));
    const char suit = face.back();
    const bool red = suit == 'H' || suit == 'D';
    return countBlobs(img, pipArea(img), red ? isRedInk : isDarkInk, 300);
}

// Share of pixels that differ clearly between two images of one size.
double differingShare(const QImage& a, const QImage& b) {
    if (a.size() != b.size())
        return 1.0;
    long differ = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            if (std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) +
                    std::abs(qBlue(p) - qBlue(q)) + std::abs(qAlpha(p) - qAlpha(q)) >
                60)
                ++differ;
        }
    return double(differ) / (a.width() * a.height());
}

class CardArtPictures : public ::testing::Test {
protected:
    void SetUp() override { qtTestApp(); }
};

TEST_F(CardArtPictures, EveryPictureIsDrawnAtItsRealPixelSize) {
    PictureStore store;
    std::vector<std::string> names;
    for (int slot = 1; slot <= PictureStore::kSlots; ++slot)
        names.push_back(store.pictureOfSlot(slot));
    ASSERT_EQ(names.size(), 68u);
    struct Case {
        QSize size;
        qreal dpr;
    };
    const Case cases[] = {
        {{35, 47}, 1}, {{69, 94}, 1}, {{69, 94}, 2}, {{138, 188}, 1.5}, {{276, 376}, 1}};
    for (const Case& c : cases)
        for (const std::string& name : names) {
            SCOPED_TRACE(name + " at " + std::to_string(c.size.width()) + "x" +
                         std::to_string(c.size.height()) + "@" + std::to_string(c.dpr));
            EXPECT_TRUE(CardArt::knows(name));
            const QPixmap pm = CardArt::pixmap(name, c.size, c.dpr);
            if (name == "Empty") {
                // The blank slot paints nothing at all, so the board shows through.
                EXPECT_TRUE(pm.isNull());
                continue;
            }
            ASSERT_FALSE(pm.isNull());
            const QSize device(int(std::ceil(c.size.width() * c.dpr)),
                               int(std::ceil(c.size.height() * c.dpr)));
            EXPECT_EQ(pm.size(), device);
            EXPECT_DOUBLE_EQ(pm.devicePixelRatio(), c.dpr);
            EXPECT_EQ(CardArt::pixmap(name, c.size, c.dpr).cacheKey(), pm.cacheKey());
        }
    for (const char* unknown : {"", "14S", "palm-some"})
        EXPECT_FALSE(CardArt::knows(unknown)) << unknown;
    EXPECT_TRUE(CardArt::pixmap("", QSize(71, 96), 1.0).isNull());
    // A face is white in the middle of its top edge and has round, see-through corners.
    const QImage face = render("7D", QSize(71, 96));
    EXPECT_GT(qGray(face.pixel(35, 20)), 245);
    EXPECT_TRUE(CardArt::knows("EMPTY"));
    EXPECT_EQ(qAlpha(face.pixel(0, 0)), 0);
}

// Counted in the suit's own ink: red for hearts and diamonds, near black for the others.
TEST_F(CardArtPictures, PipCardsShowTheirRankInPipsOfTheSuitsColour) {
    for (char suit : {'S', 'H', 'C', 'D'})
        for (int rank = 1; rank <= 10; ++rank) {
            const std::string face = std::to_string(rank) + suit;
            EXPECT_EQ(countPips(face), rank) << face;
        }
}

TEST_F(CardArtPictures, CourtCardsAreFiguresOfTheirOwn) {
    for (char suit : {'S', 'H', 'C', 'D'}) {
        const std::string s(1, suit);
        const QImage jack = render("11" + s, QSize(138, 188));
        const QImage queen = render("12" + s, QSize(138, 188));
        const QImage king = render("13" + s, QSize(138, 188));
        const QImage ten = render("10" + s, QSize(138, 188));
        EXPECT_GT(differingShare(jack, queen), 0.1) << s;
        EXPECT_GT(differingShare(queen, king), 0.1) << s;
        EXPECT_GT(differingShare(jack, king), 0.1) << s;
        for (const QImage* court : {&jack, &queen, &king})
            EXPECT_GT(differingShare(*court, ten), 0.2) << s;
    }
    // The same rank in another suit is the same figure in other colours.
    EXPECT_GT(differingShare(render("13S", QSize(138, 188)), render("13H", QSize(138, 188))), 0.05);
}

TEST_F(CardArtPictures, BackDesignsAndStacksTellThemselvesApart) {
    // Each design tells itself apart from the others.
    const char* designs[] = {"palm", "magic", "night", "hot"};
    for (int i = 0; i < 4; ++i)
        for (int j = i + 1; j < 4; ++j)
            EXPECT_GT(differingShare(render(std::string(designs[i]) + "-back", QSize(69, 94)),
                                     render(std::string(designs[j]) + "-back", QSize(69, 94))),
                      0.1)
                << designs[i] << " " << designs[j];
    // A stack shows more card edges than a single back, on the same design.
    for (const char* design : {"palm", "magic", "night", "hot"}) {
        const std::string d(design);
        const QImage one = render(d + "-back", QSize(69, 94));
        const QImage half = render(d + "-half", QSize(69, 94));
        const QImage full = render(d + "-full", QSize(69, 94));
        EXPECT_GT(differingShare(one, half), 0.05) << d;
        EXPECT_GT(differingShare(half, full), 0.02) << d;
    }
}

// Lettermine's guess pictures: the four tell themselves apart, the smiling face is yellow,
// the sad one green, the banned one crossed in red, all on silver.
TEST_F(CardArtPictures, TheGuessPicturesAreFourFacesOnSilver) {
    const QSize size(24, 22);
    const QImage happy = render("SmileyHappy", size * 4);
    const QImage blank = render("SmileyBlank", size * 4);
    const QImage sad = render("SmileySad", size * 4);
    const QImage banned = render("SmileyBanned", size * 4);
    for (const QImage* img : {&happy, &blank, &sad, &banned})
        EXPECT_EQ(img->pixel(1, 1), qRgb(0xC0, 0xC0, 0xC0));  // the silver ground
    EXPECT_EQ(blank.pixel(48, 44), qRgb(0xC0, 0xC0, 0xC0));
    // The cheek, left of the centre beside the eye: yellow, green.
    const QRgb cheekHappy = happy.pixel(24, 40), cheekSad = sad.pixel(24, 40);
    EXPECT_TRUE(qRed(cheekHappy) > 200 && qGreen(cheekHappy) > 180 && qBlue(cheekHappy) < 80);
    EXPECT_TRUE(qGreen(cheekSad) > qRed(cheekSad) + 40 && qBlue(cheekSad) < 120);
    EXPECT_GT(differingShare(happy, sad), 0.1);
    EXPECT_GT(differingShare(happy, banned), 0.05);
    // The prohibition sign's stroke crosses the middle of the face.
    int red = 0;
    for (int i = -6; i <= 6; ++i)
        red += isRedInk(banned.pixel(48 + i, 44 + i));
    EXPECT_GT(red, 6);
}

}  // namespace
}  // namespace corvanna
