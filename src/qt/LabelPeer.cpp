// Labels: how a text is fitted into its control, and the fonts of every control.

#include <QApplication>
#include <QFontMetricsF>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "forms/Form.h"
#include "qt/ControlPeers.h"
#include "qt/FormWindow.h"
#include "qt/PeerWidgets.h"

namespace corvanna {

void ControlPeer::applyFont() {
    QFont f = QApplication::font();
    // The status bar is the window's, not the layout's: it keeps its height and its font.
    const double scale =
        model_->kind() == ControlKind::StatusBar ? 1.0 : model_->form().fontScale();
    f.setPointSizeF((model_->fontSize() > 0 ? model_->fontSize() : 8.25) * scale);
    f.setBold(model_->fontBold());
    // A face the system lacks falls back to the program's own, not to whatever is first.
    if (!model_->fontName().empty())
        f.setFamilies({QString::fromStdString(model_->fontName()), QApplication::font().family()});
    widget_->setFont(f);
}

namespace {

QString qs(const std::string& s) {
    return QString::fromStdString(s);
}

Qt::Alignment horizontal(Align a) {
    switch (a) {
        case Align::Center: return Qt::AlignHCenter;
        case Align::Right: return Qt::AlignRight;
        default: return Qt::AlignLeft;
    }
}

// A label that draws its caption itself, fitted to its size: each line whole in a font
// made smaller as far as needed (Shrink), one line cut with an ellipsis (Elide), or a
// paragraph broken at blanks (Wrap). A smaller font is never a larger one.
class FitLabel : public TextLabel {
public:
    explicit FitLabel(QWidget* parent) : TextLabel(parent) { setWordWrap(false); }

    void setFit(TextFit fit) {
        if (fit == fit_)
            return;
        fit_ = fit;
        update();
    }
    // A thin dark box round the label, as a cell of a board has.
    void setBorder(bool on) {
        if (on == border_)
            return;
        border_ = on;
        update();
    }

    // What the label draws now: the font and the lines, for the tests and the paint.
    struct Fitted {
        QFont font;
        QStringList lines;  // Shrink and Elide: the lines as drawn; Wrap: the paragraph
        double blockHeight = 0;
        double fullHeight = 0;  // the block's height in the label's own font
    };
    Fitted fitted() const {
        const QString text = this->text();
        const QFont base = font();
        if (cacheValid_ && cacheText_ == text && cacheFont_ == base && cacheSize_ == size() &&
            cacheFit_ == fit_)
            return cache_;
        cache_ = fit(text, base);
        cacheText_ = text;
        cacheFont_ = base;
        cacheSize_ = size();
        cacheFit_ = fit_;
        cacheValid_ = true;
        return cache_;
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        if (border_) {
            p.setPen(
                QPen(QColor(0x20, 0x20, 0x20), 1, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
            p.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
        }
        const QString text = this->text();
        if (text.isEmpty())
            return;
        const Fitted f = fitted();
        p.setFont(f.font);
        p.setPen(palette().color(QPalette::WindowText));
        const Qt::Alignment h = alignment() & Qt::AlignHorizontal_Mask;
        // A shrunken block keeps the middle of the space its full size would have taken.
        const double room = std::min<double>(height(), f.fullHeight);
        const double top = std::max(0.0, (room - f.blockHeight) / 2);
        if (fit_ == TextFit::Wrap) {
            p.drawText(QRectF(0, top, width(), height() - top), h | Qt::AlignTop | Qt::TextWordWrap,
                       f.lines.join('\n'));
            return;
        }
        const QFontMetricsF fm(f.font, this);
        double y = top;
        for (const QString& line : f.lines) {
            p.drawText(QRectF(0, y, width(), fm.height()), h | Qt::AlignTop, line);
            y += fm.lineSpacing();
        }
    }

private:
    // The width a line takes, ink included: some glyphs reach past their advance.
    double lineWidth(const QFontMetricsF& fm, const QString& line) const {
        const QRectF ink = fm.boundingRect(line);
        return std::max(fm.horizontalAdvance(line), ink.right()) - std::min(0.0, ink.left());
    }

    double blockHeight(const QFontMetricsF& fm, int lines) const {
        return fm.height() + (lines - 1) * fm.lineSpacing();
    }

    // The size a paragraph or the lines take in a font.
    QSizeF extent(const QFont& font, const QStringList& lines) const {
        const QFontMetricsF fm(font, this);
        if (fit_ == TextFit::Wrap) {
            const QRectF r = fm.boundingRect(QRectF(0, 0, std::max(1, width()), 1e6),
                                             Qt::AlignLeft | Qt::TextWordWrap, lines.join('\n'));
            return r.size();
        }
        double w = 0;
        for (const QString& line : lines)
            w = std::max(w, lineWidth(fm, line));
        return {w, blockHeight(fm, static_cast<int>(lines.size()))};
    }

    Fitted fit(const QString& text, const QFont& base) const {
        Fitted out;
        out.font = base;
        if (fit_ == TextFit::Elide) {
            QString one = text;
            one.replace('\n', ' ');
            out.lines = QStringList{one};
        } else {
            out.lines = text.split('\n');
        }
        // A pixel to spare on each side: a glyph drawn at another pixel ratio may be a
        // little wider than measured here.
        const double roomW = std::max(1, width() - 2), roomH = std::max(1, height());
        auto fits = [&](const QFont& f) {
            QStringList lines = out.lines;
            if (fit_ == TextFit::Elide)
                lines =
                    QStringList{QFontMetricsF(f, this).elidedText(lines[0], Qt::ElideRight, roomW)};
            const QSizeF e = extent(f, lines);
            // An elided line always fits the width; only its height can be too much.
            return (fit_ == TextFit::Elide || e.width() <= roomW) && e.height() <= roomH;
        };
        const QSizeF full = extent(base, out.lines);
        out.fullHeight = full.height();
        if (!fits(base)) {
            double lo = 1.0, hi = base.pointSizeF();
            QFont f = base;
            for (int i = 0; i < 14 && hi - lo > 0.05; ++i) {
                const double mid = (lo + hi) / 2;
                f.setPointSizeF(mid);
                (fits(f) ? lo : hi) = mid;
            }
            out.font.setPointSizeF(std::min(lo, base.pointSizeF()));
        }
        if (fit_ == TextFit::Elide)
            out.lines = QStringList{
                QFontMetricsF(out.font, this).elidedText(out.lines[0], Qt::ElideRight, roomW)};
        out.blockHeight = extent(out.font, out.lines).height();
        return out;
    }

    TextFit fit_ = TextFit::Shrink;
    bool border_ = false;
    mutable Fitted cache_;
    mutable bool cacheValid_ = false;
    mutable QString cacheText_;
    mutable QFont cacheFont_;
    mutable QSize cacheSize_;
    mutable TextFit cacheFit_ = TextFit::Shrink;
};

class LabelPeer : public ControlPeer {
public:
    using ControlPeer::ControlPeer;

protected:
    QWidget* create(QWidget* parent) override {
        auto* w = new FitLabel(parent);
        w->clicks.onClick = [this] { click(); };
        w->clicks.onDoubleClick = [this] { return doubleClick(); };
        return w;
    }
    void apply(Prop p) override {
        auto* w = static_cast<FitLabel*>(widget_.data());
        switch (p) {
            case Prop::Caption: w->setText(qs(model_->caption())); break;
            case Prop::ForeColor:
            case Prop::BackColor: applyColors(true); break;
            case Prop::Style:
                w->setAlignment(horizontal(model_->alignment()) | Qt::AlignTop);
                w->setFit(model_->textFit());
                w->setBorder(model_->border());
                ControlPeer::apply(p);
                break;
            default: ControlPeer::apply(p);
        }
    }
};

}  // namespace

std::unique_ptr<ControlPeer> makeLabelPeer(Control& control, FormWindow& window) {
    return std::make_unique<LabelPeer>(control, window);
}

}  // namespace corvanna
