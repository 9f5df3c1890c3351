#include "qt/ControlPeers.h"

#include <QApplication>
#include <QComboBox>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <cmath>
#include <functional>

#include "forms/Form.h"
#include "forms/Input.h"
#include "qt/CardArt.h"
#include "qt/FormWindow.h"
#include "qt/PeerWidgets.h"

namespace corvanna {

int twipsToPx(int twips) {
    return static_cast<int>(std::lround(static_cast<double>(twips) / kTwipsPerPixel));
}

static QString qs(const std::string& s) {
    return QString::fromStdString(s);
}

// ---- The common part

ControlPeer::ControlPeer(Control& model, FormWindow& window) : model_(&model), window_(&window) {}

ControlPeer::~ControlPeer() {
    detach();
}

void ControlPeer::build(QWidget* parent) {
    widget_ = create(parent);
    sub_ = model_->subscribe([this](Control&, Prop p) { onChanged(p); });
    for (Prop p :
         {Prop::Font, Prop::ForeColor, Prop::BackColor, Prop::Caption, Prop::Text, Prop::Selection,
          Prop::Items, Prop::Checked, Prop::Picture, Prop::Panels, Prop::Style, Prop::Drawing,
          Prop::ToolTip, Prop::Value, Prop::Enabled, Prop::Geometry, Prop::Visible})
        apply(p);
    applyCursor();
}

void ControlPeer::detach() {
    if (model_ && sub_)
        model_->unsubscribe(sub_);
    sub_ = 0;
    model_ = nullptr;
}

void ControlPeer::onChanged(Prop p) {
    if (!model_ || !widget_)
        return;
    if (p == Prop::Destroyed) {
        Control* gone = model_;
        detach();
        window_->controlGone(gone);  // last: it deletes this peer
        return;
    }
    apply(p);
}

void ControlPeer::apply(Prop p) {
    QWidget* w = widget_;
    switch (p) {
        case Prop::Geometry:
            applyGeometry();
            window_->placesChanged(model_->container());
            break;
        case Prop::Visible:
            w->setVisible(model_->visible());
            window_->placesChanged(model_->container());
            regainFocus();
            break;
        case Prop::Enabled:
            w->setEnabled(model_->enabled());
            regainFocus();
            break;
        case Prop::ToolTip: w->setToolTip(qs(model_->toolTipText())); break;
        case Prop::Font: applyFont(); break;
        case Prop::Style: applyCursor(); break;
        case Prop::ZOrder: window_->restack(model_->container()); break;
        // Repaint now, not later: the caller may be about to keep the thread busy.
        case Prop::Drawing: w->repaint(); break;
        case Prop::Focus:
            // A control that is never shown takes the focus away from every other one.
            if (!model_->visible()) {
                if (QWidget* focused = w->window()->focusWidget())
                    focused->clearFocus();
            } else if (!w->hasFocus()) {
                w->setFocus(Qt::OtherFocusReason);
            }
            break;
        default: break;
    }
}

void ControlPeer::regainFocus() {
    if (widget_->isVisible() && widget_->isEnabled())
        window_->refocus();
}

void ControlPeer::applyGeometry() {
    const int x = twipsToPx(model_->left()), y = twipsToPx(model_->top());
    const int r = twipsToPx(model_->left() + model_->width());
    const int b = twipsToPx(model_->top() + model_->height());
    widget_->setGeometry(x, y, std::max(0, r - x), std::max(0, b - y));
}

void ControlPeer::applyCursor() {
    if (!model_ || !widget_)
        return;
    if (window_->hourglass())
        widget_->setCursor(Qt::WaitCursor);
    else if (!model_->mouseIcon().empty())
        widget_->setCursor(Qt::PointingHandCursor);
    else if (hasOwnCursor())
        widget_->setCursor(defaultCursor());
    else
        widget_->unsetCursor();
}

void ControlPeer::applyColors(bool fillBack) {
    QPalette pal = widget_->palette();
    const QColor fore = toQColor(model_->foreColor());
    // Disabled text keeps the style's grey. Only the text role: a palette passes
    // down to the children, and a frame's white caption must not whiten its buttons.
    for (auto group : {QPalette::Active, QPalette::Inactive})
        pal.setColor(group, QPalette::WindowText, fore);
    const bool opaque = fillBack && !model_->backTransparent();
    if (opaque)
        pal.setColor(QPalette::Window, toQColor(model_->backColor()));
    widget_->setPalette(pal);
    widget_->setAutoFillBackground(opaque);
}

void ControlPeer::click() {
    if (model_)
        userClick(*model_);
}

bool ControlPeer::doubleClick() {
    if (!model_ || !model_->DblClick)
        return false;
    userDblClick(*model_);
    return true;
}

namespace {

// ---- The kinds

class ButtonPeer : public ControlPeer {
public:
    using ControlPeer::ControlPeer;

protected:
    QWidget* create(QWidget* parent) override {
        auto* w = new QPushButton(parent);
        w->setAutoDefault(false);
        QObject::connect(w, &QPushButton::clicked, w, [this] { click(); });
        return w;
    }
    void apply(Prop p) override {
        switch (p) {
            case Prop::Caption:
                static_cast<QPushButton*>(widget_.data())->setText(qs(model_->caption()));
                break;
            case Prop::Picture: applyPicture(); break;
            case Prop::Geometry:
                ControlPeer::apply(p);
                applyPicture();
                break;
            default: ControlPeer::apply(p);
        }
    }
    // A picture button: the picture fills the button inside its edge, drawn at that size.
    void applyPicture() {
        auto* w = static_cast<QPushButton*>(widget_.data());
        const std::string& picture = model_->picture();
        if (picture.empty()) {
            w->setIcon(QIcon());
            return;
        }
        const QSize inside = (w->size() - QSize(12, 12)).expandedTo(QSize(1, 1));
        w->setIconSize(inside);
        w->setIcon(QIcon(CardArt::pixmap(picture, inside, w->devicePixelRatioF())));
    }
};

class ImagePeer : public ControlPeer {
public:
    using ControlPeer::ControlPeer;

protected:
    QWidget* create(QWidget* parent) override {
        auto* w = new PictureWidget(parent);
        w->clicks.onClick = [this] { click(); };
        w->clicks.onDoubleClick = [this] { return doubleClick(); };
        return w;
    }
    void apply(Prop p) override {
        auto* w = static_cast<PictureWidget*>(widget_.data());
        if (p == Prop::Picture)
            w->setPicture(model_->picture());
        if (p == Prop::Style)
            w->setBorder(model_->border());
        if (p != Prop::Picture)
            ControlPeer::apply(p);
    }
};

class ProgressPeer : public ControlPeer {
public:
    using ControlPeer::ControlPeer;

protected:
    QWidget* create(QWidget* parent) override {
        auto* w = new QProgressBar(parent);
        w->setTextVisible(false);
        return w;
    }
    void apply(Prop p) override {
        if (p != Prop::Value)
            return ControlPeer::apply(p);
        auto* w = static_cast<QProgressBar*>(widget_.data());
        const auto& bar = static_cast<ProgressBar&>(*model_);
        // An empty range would make the widget a busy bar that animates on its own.
        w->setRange(bar.min(), std::max(bar.max(), bar.min() + 1));
        w->setValue(bar.value());
    }
};

class LinePeer : public ControlPeer {
public:
    using ControlPeer::ControlPeer;

    void applyGeometry() override {
        const auto& line = static_cast<LineControl&>(*model_);
        const QPoint a(twipsToPx(line.x1()), twipsToPx(line.y1()));
        const QPoint b(twipsToPx(line.x2()), twipsToPx(line.y2()));
        // Room for half the pen each side of the ends.
        const int m = line.borderWidth() / 2 + 1;
        const QRect box = QRect(a, b).normalized().adjusted(-m, -m, m, m);
        widget_->setGeometry(box);
        static_cast<LineWidget*>(widget_.data())
            ->setLine(QPointF(a - box.topLeft()) + QPointF(0.5, 0.5),
                      QPointF(b - box.topLeft()) + QPointF(0.5, 0.5), toQColor(line.borderColor()),
                      line.borderWidth());
    }

protected:
    QWidget* create(QWidget* parent) override { return new LineWidget(parent); }
    void apply(Prop p) override {
        if (p == Prop::ForeColor || p == Prop::Style)
            applyGeometry();
        ControlPeer::apply(p);
    }
};

class ShapePeer : public ControlPeer {
public:
    using ControlPeer::ControlPeer;

protected:
    QWidget* create(QWidget* parent) override { return new ShapeWidget(parent); }
    void apply(Prop p) override {
        if (p == Prop::ForeColor || p == Prop::BackColor || p == Prop::Style) {
            auto* w = static_cast<ShapeWidget*>(widget_.data());
            // A plain Control of the kind draws as the default shape: a thin rectangle.
            if (auto* s = dynamic_cast<Shape*>(model_))
                w->setStyle(s->shapeType(), toQColor(s->borderColor()), s->borderWidth(),
                            s->filled(), toQColor(s->backColor()));
            else
                w->setStyle(ShapeType::Rectangle, toQColor(model_->foreColor()), 1, false, {});
        }
        ControlPeer::apply(p);
    }
};

class PictureBoxPeer : public ControlPeer {
public:
    using ControlPeer::ControlPeer;

protected:
    QWidget* create(QWidget* parent) override {
        auto* w = new DrawingWidget(parent);
        w->clicks.onClick = [this] { click(); };
        w->clicks.onDoubleClick = [this] { return doubleClick(); };
        return w;
    }
    void apply(Prop p) override {
        auto* w = static_cast<DrawingWidget*>(widget_.data());
        switch (p) {
            case Prop::BackColor: w->setBackground(toQColor(model_->backColor())); break;
            case Prop::Picture: w->setPicture(model_->picture()); break;
            case Prop::Drawing:
                // A plain Control of the kind is a box with no drawing: a container.
                if (auto* box = dynamic_cast<PictureBox*>(model_))
                    w->setOps(box->ops());
                w->repaint();
                break;
            default: ControlPeer::apply(p);
        }
    }
};

class FramePeer : public ControlPeer {
public:
    using ControlPeer::ControlPeer;

protected:
    QWidget* create(QWidget* parent) override { return new FrameBox(parent); }
    void apply(Prop p) override {
        switch (p) {
            case Prop::Caption:
                static_cast<FrameBox*>(widget_.data())->setTitle(qs(model_->caption()));
                break;
            case Prop::ForeColor:
            case Prop::BackColor: {
                // The frame paints its own fill inside its border.
                applyColors(false);
                static_cast<FrameBox*>(widget_.data())
                    ->setFill(model_->backTransparent() ? QColor(Qt::transparent)
                                                        : toQColor(model_->backColor()));
                break;
            }
            default: ControlPeer::apply(p);
        }
    }
};

// The model counts its selection in bytes of UTF-8, the widgets in UTF-16 units.
int widgetPos(const std::string& text, int bytes) {
    const auto n =
        std::clamp<std::size_t>(static_cast<std::size_t>(std::max(0, bytes)), 0, text.size());
    return static_cast<int>(QString::fromUtf8(text.data(), static_cast<qsizetype>(n)).size());
}
int modelPos(const QString& text, int units) {
    return static_cast<int>(text.left(units).toUtf8().size());
}

// What a one-line and a many-line text box share: the text and the selection go both
// ways, and the two kinds below fill in their widget's side. The user's edit goes to the
// model first and the widget's caret after it; a handler that selects meanwhile (a
// refused score selected again) has the last word.
template <class Widget>
class TextPeerBase : public ControlPeer {
public:
    using ControlPeer::ControlPeer;

protected:
    TextBox& box() const { return static_cast<TextBox&>(*model_); }
    Widget* edit() const { return static_cast<Widget*>(widget_.data()); }
    Qt::CursorShape defaultCursor() const override { return Qt::IBeamCursor; }
    bool hasOwnCursor() const override { return true; }

    virtual QString widgetText() const = 0;
    virtual void setWidgetText(const QString& t) = 0;
    // Start and length in the widget's units; length 0 is the caret.
    virtual void widgetSelection(int& start, int& length) const = 0;
    virtual void setWidgetSelection(int start, int length) = 0;

    // The text typed: to the model, then where the caret stands.
    void userEdited() {
        if (!model_ || quiet_)
            return;
        forwarding_ = true;
        selectionTold_ = false;
        box().setText(widgetText().toStdString());
        forwarding_ = false;
        if (!model_ || !widget_)
            return;
        if (qs(box().text()) != widgetText())
            sync();  // the model cut it to its MaxLength, or a handler put another text
        if (selectionTold_)
            showSelection();
        else
            takeSelection();
    }
    // The user moved the caret or selected: the model follows.
    void takeSelection() {
        if (!model_ || !widget_ || quiet_ || forwarding_)
            return;
        const QString t = widgetText();
        if (qs(box().text()) != t)
            return;  // the text is on its way: its caret comes after it
        int start = 0, length = 0;
        widgetSelection(start, length);
        const int from = modelPos(t, start);
        box().select(from, modelPos(t, start + length) - from);
    }
    void showSelection() {
        if (forwarding_)
            return;
        const std::string& text = box().text();
        const int start = widgetPos(text, box().selStart);
        const int length = widgetPos(text, box().selStart + box().selLength) - start;
        int shownStart = 0, shownLength = 0;
        widgetSelection(shownStart, shownLength);
        if (shownStart == start && shownLength == length)
            return;
        quiet_ = true;
        setWidgetSelection(start, length);
        quiet_ = false;
    }
    void sync() {
        const QString t = qs(box().text());
        if (widgetText() != t) {
            quiet_ = true;
            setWidgetText(t);
            quiet_ = false;
        }
        showSelection();
    }
    void apply(Prop p) override {
        Widget* w = edit();
        switch (p) {
            case Prop::Text: sync(); break;
            case Prop::Selection:
                selectionTold_ = selectionTold_ || forwarding_;
                showSelection();
                break;
            case Prop::Style: w->setReadOnly(box().locked()); break;
            case Prop::Focus:
                // The model has selected what the focus selects.
                if (!w->hasFocus())
                    w->setFocus(Qt::OtherFocusReason);
                selectionTold_ = selectionTold_ || forwarding_;
                showSelection();
                break;
            case Prop::ForeColor:
            case Prop::BackColor: {
                QPalette pal = w->palette();
                pal.setColor(QPalette::Base, toQColor(box().backColor()));
                pal.setColor(QPalette::Active, QPalette::Text, toQColor(box().foreColor()));
                pal.setColor(QPalette::Inactive, QPalette::Text, toQColor(box().foreColor()));
                w->setPalette(pal);
                break;
            }
            default: ControlPeer::apply(p);
        }
    }

private:
    bool quiet_ = false;       // the peer itself is changing the widget
    bool forwarding_ = false;  // the model is taking the user's edit
    bool selectionTold_ = false;
};

// Enter and Escape come to the window, which asks the model (FormWindow::keyPressEvent).
class TextPeer : public TextPeerBase<QLineEdit> {
public:
    using TextPeerBase::TextPeerBase;

protected:
    QWidget* create(QWidget* parent) override {
        auto* w = new ModelLineEdit(parent);
        QObject::connect(w, &QLineEdit::textEdited, w, [this] { userEdited(); });
        QObject::connect(w, &QLineEdit::selectionChanged, w, [this] { takeSelection(); });
        QObject::connect(w, &QLineEdit::cursorPositionChanged, w, [this] { takeSelection(); });
        return w;
    }
    QString widgetText() const override { return edit()->text(); }
    void setWidgetText(const QString& t) override { edit()->setText(t); }
    void widgetSelection(int& start, int& length) const override {
        if (edit()->hasSelectedText()) {
            start = edit()->selectionStart();
            length = edit()->selectionLength();
        } else {
            start = edit()->cursorPosition();
            length = 0;
        }
    }
    void setWidgetSelection(int start, int length) override {
        if (length > 0)
            edit()->setSelection(start, length);
        else
            edit()->setCursorPosition(start);
    }
    void apply(Prop p) override {
        if (p == Prop::Text)
            edit()->setMaxLength(box().maxLength() > 0 ? box().maxLength() : 32767);
        TextPeerBase::apply(p);
    }
};

// A text box of several lines. The model's text has "\n" line ends, as the widget's.
class MultiLineTextPeer : public TextPeerBase<QPlainTextEdit> {
public:
    using TextPeerBase::TextPeerBase;

protected:
    QWidget* create(QWidget* parent) override {
        auto* w = new QPlainTextEdit(parent);
        w->setTabChangesFocus(true);
        // The text stands off the frame, as on a page.
        w->document()->setDocumentMargin(8);
        QObject::connect(w, &QPlainTextEdit::textChanged, w, [this] { userEdited(); });
        QObject::connect(w, &QPlainTextEdit::selectionChanged, w, [this] { takeSelection(); });
        QObject::connect(w, &QPlainTextEdit::cursorPositionChanged, w, [this] { takeSelection(); });
        return w;
    }
    // A model text may end its lines CR LF (the rules); the widget's lines end in LF, so
    // the text and the positions in it are turned from one to the other.
    bool crlf() const { return box().text().find("\r\n") != std::string::npos; }
    QString widgetText() const override {
        QString t = edit()->toPlainText();
        return crlf() ? t.replace('\n', QStringLiteral("\r\n")) : t;
    }
    void setWidgetText(const QString& t) override {
        edit()->setPlainText(QString(t).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    }
    int toWidget(int units) const {
        return crlf() ? units - static_cast<int>(
                                    qs(box().text()).left(units).count(QStringLiteral("\r\n")))
                      : units;
    }
    int toModel(int pos) const {
        if (!crlf())
            return pos;
        const QString m = qs(box().text());
        int units = 0;
        for (int seen = 0; seen < pos && units < m.size(); ++seen)
            units += m.mid(units, 2) == QStringLiteral("\r\n") ? 2 : 1;
        return units;
    }
    void widgetSelection(int& start, int& length) const override {
        const QTextCursor c = edit()->textCursor();
        start = toModel(c.selectionStart());
        length = toModel(c.selectionEnd()) - start;
    }
    void setWidgetSelection(int start, int length) override {
        QTextCursor c = edit()->textCursor();
        c.setPosition(toWidget(start));
        c.setPosition(toWidget(start + length), QTextCursor::KeepAnchor);
        edit()->setTextCursor(c);
    }
};

// Check boxes and option buttons: the value is the model's, the click is the user's.
class CheckPeer : public ControlPeer {
public:
    using ControlPeer::ControlPeer;

protected:
    QWidget* create(QWidget* parent) override {
        QAbstractButton* w = nullptr;
        if (model_->kind() == ControlKind::OptionButton)
            w = new ModelRadioButton(parent);
        else
            w = new ModelCheckBox(parent);
        w->setCheckable(true);
        QObject::connect(w, &QAbstractButton::clicked, w, [this] { click(); });
        return w;
    }
    // The button draws one line; a long caption is broken at blanks to fit beside the box.
    void applyCaption() {
        auto* w = static_cast<QAbstractButton*>(widget_.data());
        const QFontMetrics fm(w->font());
        const int room = std::max(1, w->width() - 2 * fm.height());
        QString wrapped, line;
        for (const QString& word : qs(model_->caption()).split(' ')) {
            const QString tried = line.isEmpty() ? word : line + ' ' + word;
            if (!line.isEmpty() && fm.horizontalAdvance(tried) > room) {
                wrapped += line + '\n';
                line = word;
            } else {
                line = tried;
            }
        }
        w->setText(wrapped + line);
    }
    void apply(Prop p) override {
        auto* w = static_cast<QAbstractButton*>(widget_.data());
        switch (p) {
            case Prop::Caption: applyCaption(); break;
            case Prop::Geometry:
            case Prop::Font:
                ControlPeer::apply(p);
                applyCaption();
                break;
            case Prop::Checked: w->setChecked(model_->checked()); break;
            case Prop::ForeColor:
            case Prop::BackColor: applyColors(true); break;
            default: ControlPeer::apply(p);
        }
    }
};

// Combo and list boxes differ only in how the widget reports and shows the choice.
void onChoice(QComboBox* w, std::function<void(int)> chosen) {
    QObject::connect(w, &QComboBox::activated, w, std::move(chosen));
}
void onChoice(QListWidget* w, std::function<void(int)> chosen) {
    QObject::connect(w, &QListWidget::currentRowChanged, w, std::move(chosen));
}
// A double click on an item of a list; a combo box has none.
void onDoubleClick(QComboBox*, std::function<void()>) {}
void onDoubleClick(QListWidget* w, std::function<void()> twice) {
    QObject::connect(w, &QListWidget::itemDoubleClicked, w,
                     [twice = std::move(twice)](QListWidgetItem*) { twice(); });
}
void showChoice(QComboBox* w, int i) {
    w->setCurrentIndex(i);
}
void showChoice(QListWidget* w, int i) {
    w->setCurrentRow(i);
}

template <class W>
class ItemsPeer : public ControlPeer {
public:
    using ControlPeer::ControlPeer;

protected:
    QWidget* create(QWidget* parent) override {
        auto* w = new W(parent);
        // Only the user's choice arrives here: the model's own changes are shown quietly.
        onChoice(w, [this](int i) {
            if (model_)
                static_cast<ListControl&>(*model_).setListIndex(i);
        });
        onDoubleClick(w, [this] {
            if (model_)
                userDblClick(*model_);
        });
        return w;
    }
    void apply(Prop p) override {
        auto* w = static_cast<W*>(widget_.data());
        auto& list = static_cast<ListControl&>(*model_);
        if (p == Prop::Items || p == Prop::Text) {
            const QSignalBlocker quiet(w);
            if (p == Prop::Items) {
                w->clear();
                for (const auto& item : list.items())
                    w->addItem(qs(item));
            }
            showChoice(w, list.listIndex());
        } else {
            ControlPeer::apply(p);
        }
    }
};

// The status bar sits along the bottom of the client area, over the controls,
// as an aligned bar does: the games lay out above it using its Height.
class StatusBarPeer : public ControlPeer {
public:
    using ControlPeer::ControlPeer;
    void applyGeometry() override { window_->layoutStatusBar(); }

protected:
    QWidget* create(QWidget* parent) override {
        auto* bar = new QStatusBar(parent);
        bar->setSizeGripEnabled(false);
        bar->setAutoFillBackground(true);
        const int n = static_cast<StatusBar&>(*model_).panelCount();
        for (int i = 1; i <= n; ++i) {
            auto* panel = new PanelLabel(bar);
            if (n >= 3 && i == n) {
                // The last panel holds the time: a fixed width that fits it.
                panel->setAlignment(Qt::AlignCenter);
                panel->setFixedWidth(panel->fontMetrics().horizontalAdvance("00:00:00 AM") + 16);
                bar->addPermanentWidget(panel, 0);
            } else {
                // Room by the length of the texts: a long hint beside a short goal line keeps
                // its words, and both shrink alike only when the window is too narrow.
                panel->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
                bar->addWidget(panel, 0);
            }
            panels_.push_back(panel);
        }
        return bar;
    }
    void apply(Prop p) override {
        auto& bar = static_cast<StatusBar&>(*model_);
        switch (p) {
            case Prop::Panels:
            case Prop::Text:
                for (int i = 0; i < static_cast<int>(panels_.size()); ++i)
                    if (panels_[i])
                        panels_[i]->setText(qs(bar.panelText(i + 1)));
                break;
            case Prop::Visible:
                ControlPeer::apply(p);
                window_->layoutStatusBar();
                break;
            default: ControlPeer::apply(p);
        }
    }

private:
    std::vector<QPointer<QLabel>> panels_;
};

}  // namespace

std::unique_ptr<ControlPeer> makePeer(Control& c, FormWindow& w) {
    // These kinds keep their content in their own classes; a plain Control of
    // such a kind has nothing to show.
    const bool typed = [&] {
        switch (c.kind()) {
            case ControlKind::TextBox: return dynamic_cast<TextBox*>(&c) != nullptr;
            case ControlKind::ComboBox:
            case ControlKind::ListBox: return dynamic_cast<ListControl*>(&c) != nullptr;
            case ControlKind::StatusBar: return dynamic_cast<StatusBar*>(&c) != nullptr;
            case ControlKind::ProgressBar: return dynamic_cast<ProgressBar*>(&c) != nullptr;
            case ControlKind::Line: return dynamic_cast<LineControl*>(&c) != nullptr;
            default: return true;
        }
    }();
    if (!typed) {
        qWarning("corvanna: %s %s is a plain Control and cannot be shown", kindName(c.kind()),
                 c.fullName().c_str());
        return nullptr;
    }
    switch (c.kind()) {
        case ControlKind::Label: return makeLabelPeer(c, w);
        case ControlKind::CommandButton: return std::make_unique<ButtonPeer>(c, w);
        case ControlKind::Image: return std::make_unique<ImagePeer>(c, w);
        case ControlKind::Shape: return std::make_unique<ShapePeer>(c, w);
        case ControlKind::PictureBox: return std::make_unique<PictureBoxPeer>(c, w);
        case ControlKind::Frame: return std::make_unique<FramePeer>(c, w);
        case ControlKind::TextBox:
            if (static_cast<TextBox&>(c).multiLine())
                return std::make_unique<MultiLineTextPeer>(c, w);
            return std::make_unique<TextPeer>(c, w);
        case ControlKind::CheckBox:
        case ControlKind::OptionButton: return std::make_unique<CheckPeer>(c, w);
        case ControlKind::ComboBox: return std::make_unique<ItemsPeer<QComboBox>>(c, w);
        case ControlKind::ListBox: return std::make_unique<ItemsPeer<QListWidget>>(c, w);
        case ControlKind::StatusBar: return std::make_unique<StatusBarPeer>(c, w);
        case ControlKind::ProgressBar: return std::make_unique<ProgressPeer>(c, w);
        case ControlKind::Line: return std::make_unique<LinePeer>(c, w);
        case ControlKind::Timer:
        case ControlKind::Menu: return nullptr;
    }
    return nullptr;
}

}  // namespace corvanna
