#pragma once
// The widgets Qt has no ready match for: clickable pictures and labels, shapes, lines,
// the drawing box, check and option buttons whose value the model decides, and the
// marks of the focus and of the arrow-key cursor.

#include <QCheckBox>
#include <QColor>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "forms/Controls.h"

namespace corvanna {

QColor toQColor(Color c);

// A click is a left press and release on the same widget. With a double-click
// handler the second click of a pair is the double click, not another click.
class ClickTracker {
public:
    std::function<void()> onClick;
    // Returns true when the double click was taken (the control has a handler).
    std::function<bool()> onDoubleClick;

    void press(QMouseEvent* e);
    void release(QWidget* w, QMouseEvent* e);
    void doubleClick(QMouseEvent* e);

private:
    bool pressed_ = false;
    bool swallow_ = false;
};

// An Image: the named picture stretched over the whole control, with a thin dark border
// round it when the model has one.
class PictureWidget : public QWidget {
    Q_OBJECT
public:
    explicit PictureWidget(QWidget* parent);
    void setPicture(const std::string& name);
    const std::string& picture() const { return picture_; }
    void setBorder(bool on);
    ClickTracker clicks;

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* e) override { clicks.press(e); }
    void mouseReleaseEvent(QMouseEvent* e) override { clicks.release(this, e); }
    void mouseDoubleClickEvent(QMouseEvent* e) override { clicks.doubleClick(e); }

private:
    std::string picture_;
    bool border_ = false;
};

// A Label: plain text, '&' shown as it is.
class TextLabel : public QLabel {
    Q_OBJECT
public:
    explicit TextLabel(QWidget* parent);
    ClickTracker clicks;

protected:
    void mousePressEvent(QMouseEvent* e) override { clicks.press(e); }
    void mouseReleaseEvent(QMouseEvent* e) override { clicks.release(this, e); }
    void mouseDoubleClickEvent(QMouseEvent* e) override { clicks.doubleClick(e); }
};

// A status bar panel: one line, cut with an ellipsis where the window is too narrow for
// it, the whole text then in its tooltip.
class PanelLabel : public QLabel {
    Q_OBJECT
public:
    explicit PanelLabel(QWidget* parent);

protected:
    void paintEvent(QPaintEvent*) override;
};

// A Frame: a caption and a thin rounded border round its children. Painted by
// hand: the style's group box loads its pictures from files on the first paint.
class FrameBox : public QWidget {
    Q_OBJECT
public:
    explicit FrameBox(QWidget* parent);
    void setTitle(const QString& title);
    // Transparent for none.
    void setFill(const QColor& fill);

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QString title_;
    QColor fill_ = Qt::transparent;
};

// A Shape: border and optional fill, never in the way of a click.
class ShapeWidget : public QWidget {
    Q_OBJECT
public:
    explicit ShapeWidget(QWidget* parent);
    void setStyle(ShapeType type, QColor border, int borderWidth, bool filled, QColor fill);

protected:
    void paintEvent(QPaintEvent*) override;

private:
    ShapeType type_ = ShapeType::Rectangle;
    QColor border_ = Qt::black;
    int borderWidth_ = 1;
    bool filled_ = false;
    QColor fill_;
};

// A Line: a straight line corner to corner of the widget, which lies a little outside the
// line's own bounds so that a thick pen is not cut off. Never in the way of a click.
class LineWidget : public QWidget {
    Q_OBJECT
public:
    explicit LineWidget(QWidget* parent);
    // The ends in the widget, and the pen.
    void setLine(QPointF from, QPointF to, QColor color, int width);

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QPointF from_, to_;
    QColor color_ = Qt::black;
    int width_ = 1;
};

// A PictureBox: its background, an optional picture and the retained drawing.
class DrawingWidget : public QWidget {
    Q_OBJECT
public:
    explicit DrawingWidget(QWidget* parent);
    void setBackground(QColor c);
    void setPicture(const std::string& name);
    void setOps(std::vector<DrawOp> ops);
    ClickTracker clicks;

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* e) override { clicks.press(e); }
    void mouseReleaseEvent(QMouseEvent* e) override { clicks.release(this, e); }
    void mouseDoubleClickEvent(QMouseEvent* e) override { clicks.doubleClick(e); }

private:
    QColor background_;
    std::string picture_;
    std::vector<DrawOp> ops_;
};

// The click goes to the model, which flips the value; the box shows what it says.
class ModelCheckBox : public QCheckBox {
    Q_OBJECT
public:
    using QCheckBox::QCheckBox;

protected:
    void nextCheckState() override {}
};

class ModelRadioButton : public QRadioButton {
    Q_OBJECT
public:
    explicit ModelRadioButton(QWidget* parent) : QRadioButton(parent) { setAutoExclusive(false); }

protected:
    void nextCheckState() override {}
};

// A one-line text box. The press of the mouse that gives it the focus keeps the
// selection the focus made (the whole text), where QLineEdit would put the caret.
class ModelLineEdit : public QLineEdit {
    Q_OBJECT
public:
    using QLineEdit::QLineEdit;

protected:
    void focusInEvent(QFocusEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;

private:
    bool focusedByMouse_ = false;
    bool keepingSelection_ = false;  // from that press to its release
};

// The ring round the control with the focus: the style's own focus frame is all but
// invisible on the felt and the dark dialogs. Drawn inside the control's bounds, over it,
// so it is never cut off by the container and never covers a neighbour.
class FocusRing : public QWidget {
    Q_OBJECT
public:
    explicit FocusRing(QWidget* parent);
    // Round this widget (a sibling: the ring moves to its parent), or hidden for none.
    void follow(QWidget* target);
    QWidget* target() const { return target_; }
    // Put back over the target after a restack or a move.
    void place();
    // Kept out of sight while the arrow-key cursor shows where the keys go.
    void setSuppressed(bool on);
    // The blue band's width round a control of this size.
    static qreal bandFor(QSize target);

protected:
    void paintEvent(QPaintEvent*) override;

private:
    // The blue band of this ring: as its control is large, or thin round a page of text;
    // place() leaves room for it and its white edge outside a page.
    qreal blueBand() const;

    QPointer<QWidget> target_;
    bool suppressed_ = false;
};

// The arrow-key cursor of keyboard play: a thick bright band round the card or button the
// keys will click, outside its bounds so that nothing of it is hidden, in whole pixels so
// that it stays sharp at any pixel ratio.
class PlayCursorFrame : public QWidget {
    Q_OBJECT
public:
    explicit PlayCursorFrame(QWidget* parent);
    // Round this widget (the frame moves to its parent), or hidden for none.
    void follow(QWidget* target);
    QWidget* target() const { return target_; }
    void place();
    // The band's width in logical pixels for a target of this size.
    static int bandWidth(QSize target);

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QPointer<QWidget> target_;
};

}  // namespace corvanna
