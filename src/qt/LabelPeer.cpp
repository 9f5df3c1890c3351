// Labels: how a text is fitted into its control, and the fonts of every control.

#include <QApplication>

#include "forms/Form.h"
#include "qt/ControlPeers.h"
#include "qt/FormWindow.h"
#include "qt/PeerWidgets.h"

namespace corvanna {

void ControlPeer::applyFont() {
    QFont f = QApplication::font();
    f.setPointSizeF((model_->fontSize() > 0 ? model_->fontSize() : 8.25) *
                    model_->form().fontScale());
    f.setBold(model_->fontBold());
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

class LabelPeer : public ControlPeer {
public:
    using ControlPeer::ControlPeer;

protected:
    QWidget* create(QWidget* parent) override {
        auto* w = new TextLabel(parent);
        w->clicks.onClick = [this] { click(); };
        w->clicks.onDoubleClick = [this] { return doubleClick(); };
        return w;
    }
    void apply(Prop p) override {
        auto* w = static_cast<TextLabel*>(widget_.data());
        switch (p) {
            case Prop::Caption: w->setText(qs(model_->caption())); break;
            case Prop::ForeColor:
            case Prop::BackColor: applyColors(true); break;
            case Prop::Style:
                w->setAlignment(horizontal(model_->alignment()) | Qt::AlignTop);
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
