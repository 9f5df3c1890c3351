#include "qt/PeerWidgets.h"

#include <QAbstractScrollArea>
#include <QFocusEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "forms/Form.h"
#include "qt/CardArt.h"

namespace corvanna {

QColor toQColor(Color c) {
    return QColor((c >> 16) & 0xFF, (c >> 8) & 0xFF, c & 0xFF);
}

// ---- ClickTracker

void ClickTracker::press(QMouseEvent* e) {
    if (e->button() == Qt::LeftButton)
        pressed_ = true;
    e->accept();
}

void ClickTracker::release(QWidget* w, QMouseEvent* e) {
    e->accept();
    if (e->button() != Qt::LeftButton || !pressed_)
        return;
    pressed_ = false;
    if (swallow_) {
        swallow_ = false;
        return;
    }
    // The handler may unload the form: nothing of ours is touched after it.
    if (w->rect().contains(e->position().toPoint()) && onClick)
        onClick();
}

void ClickTracker::doubleClick(QMouseEvent* e) {
    e->accept();
    if (e->button() != Qt::LeftButton)
        return;
    pressed_ = true;
    swallow_ = false;
    if (onDoubleClick && onDoubleClick())
        swallow_ = true;
}

// ---- PictureWidget

PictureWidget::PictureWidget(QWidget* parent) : QWidget(parent) {}

void PictureWidget::setPicture(const std::string& name) {
    if (name == picture_)
        return;
    picture_ = name;
    update();
}

void PictureWidget::setBorder(bool on) {
    if (on == border_)
        return;
    border_ = on;
    update();
}

void PictureWidget::paintEvent(QPaintEvent*) {
    if (picture_.empty() && !border_)
        return;
    QPainter p(this);
    if (!picture_.empty()) {
        const QPixmap pm = CardArt::pixmap(picture_, size(), devicePixelRatioF());
        if (!pm.isNull())
            p.drawPixmap(0, 0, pm);
    }
    if (border_) {
        // One logical pixel inside the bounds, as wide as a hairline is at the ratio.
        p.setPen(QPen(QColor(0x20, 0x20, 0x20), 1, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        p.setBrush(Qt::NoBrush);
        p.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    }
}

// ---- TextLabel

TextLabel::TextLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setMargin(0);
    setIndent(0);
}

// ---- PanelLabel

PanelLabel::PanelLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setMinimumWidth(1);
}

void PanelLabel::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QRect room = contentsRect();
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, room.width());
    setToolTip(shown == text() ? QString() : text());
    p.setPen(palette().color(QPalette::WindowText));
    p.drawText(room, static_cast<int>(alignment() | Qt::AlignVCenter), shown);
}

// ---- ShapeWidget

ShapeWidget::ShapeWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ShapeWidget::setStyle(ShapeType type, QColor border, int borderWidth, bool filled,
                           QColor fill) {
    type_ = type;
    border_ = border;
    borderWidth_ = std::max(0, borderWidth);
    filled_ = filled;
    fill_ = fill;
    update();
}

FrameBox::FrameBox(QWidget* parent) : QWidget(parent) {}

void FrameBox::setFill(const QColor& fill) {
    fill_ = fill;
    update();
}

void FrameBox::setTitle(const QString& title) {
    title_ = title;
    update();
}

void FrameBox::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QFontMetrics fm(font());
    const int captionH = title_.isEmpty() ? 0 : fm.height();
    const QColor text = palette().color(QPalette::WindowText);
    QColor line = text;
    line.setAlphaF(0.45);
    const QRectF box = QRectF(rect()).adjusted(0.5, captionH / 2.0 + 0.5, -0.5, -0.5);
    // Only the box is filled: the band the caption sits in shows what lies behind.
    p.setPen(QPen(line, 1));
    p.setBrush(fill_);
    p.drawRoundedRect(box, 4, 4);
    if (title_.isEmpty())
        return;
    // The caption sits on the border, with the frame's own background behind it.
    const int pad = 4;
    const QRect caption(10, 0, fm.horizontalAdvance(title_) + 2 * pad, captionH);
    p.fillRect(caption.adjusted(0, captionH / 2, 0, 0), fill_);
    p.setPen(text);
    p.drawText(caption, Qt::AlignCenter, title_);
}

void ShapeWidget::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing,
                    type_ != ShapeType::Rectangle && type_ != ShapeType::Square);
    QRectF r(rect());
    if (type_ == ShapeType::Square || type_ == ShapeType::Circle) {
        const qreal side = std::min(r.width(), r.height());
        r = QRectF(r.center().x() - side / 2, r.center().y() - side / 2, side, side);
    }
    // The border lies inside the bounds, as the control's size says.
    const qreal half = borderWidth_ / 2.0;
    r.adjust(half, half, -half, -half);
    p.setPen(borderWidth_ > 0
                 ? QPen(border_, borderWidth_, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin)
                 : QPen(Qt::NoPen));
    p.setBrush(filled_ ? QBrush(fill_) : QBrush(Qt::NoBrush));
    switch (type_) {
        case ShapeType::Rectangle:
        case ShapeType::Square: p.drawRect(r); break;
        case ShapeType::Oval:
        case ShapeType::Circle: p.drawEllipse(r); break;
        case ShapeType::RoundedRectangle: {
            const qreal radius = std::min(r.width(), r.height()) * 0.15;
            p.drawRoundedRect(r, radius, radius);
            break;
        }
    }
}

// ---- LineWidget

LineWidget::LineWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void LineWidget::setLine(QPointF from, QPointF to, QColor color, int width) {
    from_ = from, to_ = to, color_ = color, width_ = std::max(0, width);
    update();
}

void LineWidget::paintEvent(QPaintEvent*) {
    if (width_ == 0)
        return;
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing, from_.x() != to_.x() && from_.y() != to_.y());
    p.setPen(QPen(color_, width_, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(from_, to_);
}

// ---- DrawingWidget

DrawingWidget::DrawingWidget(QWidget* parent) : QWidget(parent) {}

void DrawingWidget::setBackground(QColor c) {
    background_ = c;
    update();
}

void DrawingWidget::setPicture(const std::string& name) {
    picture_ = name;
    update();
}

void DrawingWidget::setOps(std::vector<DrawOp> ops) {
    ops_ = std::move(ops);
}

void DrawingWidget::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), background_);
    if (!picture_.empty())
        CardArt::paint(p, QRectF(rect()), picture_);
    p.setRenderHint(QPainter::Antialiasing, true);
    // Model coordinates are twips; +0.5 puts a one-pixel line on the pixel's middle.
    p.translate(0.5, 0.5);
    const qreal s = 1.0 / kTwipsPerPixel;
    for (const DrawOp& op : ops_) {
        QPen pen(toQColor(op.pen), std::max(1, op.width));
        pen.setCapStyle(Qt::FlatCap);
        p.setPen(pen);
        switch (op.kind) {
            case DrawOp::Line:
                p.setBrush(Qt::NoBrush);
                p.drawLine(QPointF(op.x1 * s, op.y1 * s), QPointF(op.x2 * s, op.y2 * s));
                break;
            case DrawOp::Circle:
                p.setBrush(Qt::NoBrush);
                p.drawEllipse(QPointF(op.cx * s, op.cy * s), op.radius * s, op.radius * s);
                break;
            case DrawOp::Pie: {
                const qreal r = op.radius * s;
                const QRectF box(op.cx * s - r, op.cy * s - r, 2 * r, 2 * r);
                p.setBrush(op.filled ? QBrush(toQColor(op.fill)) : QBrush(Qt::NoBrush));
                // Qt counts counter-clockwise from three o'clock in sixteenths of a degree.
                const int start = static_cast<int>(std::lround((90.0 - op.startDeg) * 16));
                const int span = static_cast<int>(std::lround(-op.spanDeg * 16));
                if (std::abs(op.spanDeg) >= 360.0)
                    p.drawEllipse(box);
                else
                    p.drawPie(box, start, span);
                break;
            }
        }
    }
}

// ---- ModelLineEdit

void ModelLineEdit::focusInEvent(QFocusEvent* e) {
    QLineEdit::focusInEvent(e);
    focusedByMouse_ = e->reason() == Qt::MouseFocusReason;
}

void ModelLineEdit::mousePressEvent(QMouseEvent* e) {
    const bool first = focusedByMouse_;
    focusedByMouse_ = false;
    if (first && e->button() == Qt::LeftButton) {
        keepingSelection_ = true;
        e->accept();
        return;
    }
    QLineEdit::mousePressEvent(e);
}

void ModelLineEdit::mouseMoveEvent(QMouseEvent* e) {
    if (keepingSelection_)
        return e->accept();
    QLineEdit::mouseMoveEvent(e);
}

void ModelLineEdit::mouseReleaseEvent(QMouseEvent* e) {
    if (keepingSelection_ && e->button() == Qt::LeftButton) {
        keepingSelection_ = false;
        return e->accept();
    }
    QLineEdit::mouseReleaseEvent(e);
}

// ---- FocusRing

FocusRing::FocusRing(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void FocusRing::follow(QWidget* target) {
    target_ = target;
    if (!target) {
        hide();
        return;
    }
    if (parentWidget() != target->parentWidget())
        setParent(target->parentWidget());
    place();
}

void FocusRing::setSuppressed(bool on) {
    suppressed_ = on;
    place();
}

void FocusRing::place() {
    if (!target_ || !target_->isVisible() || suppressed_) {
        hide();
        return;
    }
    // Round a scrolling text, not over it: its first column and its scroll bar stay clear.
    if (qobject_cast<QAbstractScrollArea*>(target_)) {
        const int band = static_cast<int>(std::ceil(1.5 * blueBand()));
        setGeometry(target_->geometry().adjusted(-band, -band, band, band));
    } else {
        setGeometry(target_->geometry());
    }
    raise();
    show();
    update();
}

// As thick as the control is large: a maximised window draws its buttons larger.
qreal FocusRing::bandFor(QSize target) {
    return std::clamp(std::min(target.width(), target.height()) / 12.0, 2.0, 6.0);
}

qreal FocusRing::blueBand() const {
    // Round a page of text a thin band is enough to show where the keys go.
    constexpr qreal kPageBand = 3;
    return target_ && qobject_cast<QAbstractScrollArea*>(target_) ? kPageBand : bandFor(size());
}

void FocusRing::paintEvent(QPaintEvent*) {
    // Blue on a white edge: the white parts it from the felt and the dark dialogs, the
    // blue from a light form.
    const qreal blue = blueBand();
    const qreal white = std::max(1.0, blue / 2);
    QPainter p(this);
    const QRectF r = QRectF(rect());
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(255, 255, 255), white, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    p.drawRect(r.adjusted(white / 2, white / 2, -white / 2, -white / 2));
    p.setPen(QPen(QColor(0x1A, 0x5F, 0xD8), blue, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    const qreal in = white + blue / 2;
    p.drawRect(r.adjusted(in, in, -in, -in));
}

// ---- PlayCursorFrame

PlayCursorFrame::PlayCursorFrame(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

int PlayCursorFrame::bandWidth(QSize target) {
    // A card's band is about a fourteenth of its width; a button's no thinner than 3 pixels.
    return std::clamp(
        static_cast<int>(std::lround(std::min(target.width(), target.height()) / 14.0)), 3, 8);
}

void PlayCursorFrame::follow(QWidget* target) {
    target_ = target;
    if (!target) {
        hide();
        return;
    }
    if (parentWidget() != target->parentWidget())
        setParent(target->parentWidget());
    place();
}

void PlayCursorFrame::place() {
    if (!target_ || !target_->isVisible()) {
        hide();
        return;
    }
    // The band and a dark pixel either side of it, all outside the target.
    const int out = bandWidth(target_->size()) + 2;
    setGeometry(target_->geometry().adjusted(-out, -out, out, out));
    raise();
    show();
    update();
}

void PlayCursorFrame::paintEvent(QPaintEvent*) {
    if (!target_)
        return;
    const int band = bandWidth(target_->size());
    QPainter p(this);
    // Filled rectangles on whole logical pixels: no pen, no smoothing, sharp at 2x too.
    const QRect outer = rect();
    auto ring = [&p](const QRect& r, int w, const QColor& c) {
        p.fillRect(QRect(r.left(), r.top(), r.width(), w), c);
        p.fillRect(QRect(r.left(), r.bottom() - w + 1, r.width(), w), c);
        p.fillRect(QRect(r.left(), r.top() + w, w, r.height() - 2 * w), c);
        p.fillRect(QRect(r.right() - w + 1, r.top() + w, w, r.height() - 2 * w), c);
    };
    // Dark edges part the bright band from a white card and a light form alike.
    ring(outer, 1, QColor(0x10, 0x10, 0x10));
    ring(outer.adjusted(1, 1, -1, -1), band, QColor(0xFF, 0xC8, 0x00));
    ring(outer.adjusted(band + 1, band + 1, -band - 1, -band - 1), 1, QColor(0x10, 0x10, 0x10));
}

}  // namespace corvanna
