#include "common/frame/ScoringDialog.h"

#include <stdexcept>

#include "common/Format.h"

namespace corvanna {

namespace {

// Rows of the frame: a label and its box, one under the other.
constexpr int kFirstRowTop = 360;
constexpr int kRowStep = 480;
constexpr int kBoxWidth = 1440, kBoxHeight = 330;
constexpr int kLabelLeft = 240, kLabelHeight = 300;
constexpr int kFrameLeft = 180, kFrameTop = 120;
constexpr int kButtonWidth = 1440, kButtonHeight = 420, kButtonGap = 420;

}  // namespace

ScoringDialog::ScoringDialog(Program& prog, const SettingTable& settings, const std::string& name,
                             Checking checking, MsgIcon icon, Layout layout)
    : Form(prog.platform, name),
      frmScoringOptions(add<Control>(ControlKind::Frame, "frmScoringOptions", -1, nullptr)),
      prog_(prog),
      settings_(settings),
      checking_(checking),
      icon_(icon),
      layout_(layout) {
    setBounds(0, 0, layout.width, layout.height);
    frmScoringOptions.move(kFrameLeft, kFrameTop, layout.width - 480, layout.frameHeight);
}

TextBox& ScoringDialog::AddField(const std::string& labelName, const std::string& caption,
                                 const std::string& boxName, const std::string& key, double scale) {
    const int top = kFirstRowTop + kRowStep * static_cast<int>(fields_.size());
    const int boxLeft = frmScoringOptions.width() - kBoxWidth - 120;
    Control& label = add<Control>(ControlKind::Label, labelName, -1, &frmScoringOptions);
    label.setCaption(caption);
    label.move(kLabelLeft, top + 60, boxLeft - kLabelLeft - 120, kLabelHeight);
    TextBox& box = add<TextBox>(boxName, -1, &frmScoringOptions);
    box.move(boxLeft, top, kBoxWidth, kBoxHeight);
    box.setMaxLength(12);
    fields_.push_back(Field{&label, &box, nullptr, scale, {}, {}, {}});
    BindField(box, key);
    order_.push_back(&box);
    return box;
}

Control& ScoringDialog::LabelOf(const TextBox& box) {
    return *field(box).label;
}

void ScoringDialog::SetChecks(TextBox& box, ScoringField rule) {
    field(box).rule = std::move(rule);
}

void ScoringDialog::AfterStored(TextBox& box, std::function<void()> then) {
    field(box).afterStored = std::move(then);
}

void ScoringDialog::PutBackInto(TextBox& box, std::function<void(double)> store) {
    field(box).putBack = std::move(store);
}

void ScoringDialog::SetCheckOrder(std::vector<TextBox*> order) {
    order_ = std::move(order);
}

void ScoringDialog::BindField(TextBox& box, const std::string& key) {
    const SettingBinding* b = findSetting(settings_, key);
    // A field without its setting is a fault of the game's table, found at its first load.
    if (!b || !b->variable)
        throw std::logic_error(name() + ": no setting '" + key + "' for " + box.name());
    field(box).binding = b;
}

void ScoringDialog::AddButtons() {
    auto button = [this](const std::string& name, const std::string& caption, int left) {
        Control& b = add<Control>(ControlKind::CommandButton, name, -1, nullptr);
        b.setCaption(caption);
        b.move(left, layout_.buttonsTop, kButtonWidth, kButtonHeight);
        return &b;
    };
    // Centred in the window's inside, which the frame round it narrows.
    const int row = 3 * kButtonWidth + 2 * kButtonGap;
    const int first = (layout_.width - kFrameWidthTwips - row) / 2;
    const int step = kButtonWidth + kButtonGap;
    cmdOK = button("cmdOK", "&OK", first);
    cmdCancel = button("cmdCancel", "&Cancel", first + step);
    cmdDefault = button("cmdDefault", "&Default", first + 2 * step);
    cmdOK->Click = [this] { cmdOK_Click(); };
    cmdCancel->Click = [this] { cmdCancel_Click(); };
    cmdDefault->Click = [this] { cmdDefault_Click(); };
    setDefaultButton(cmdOK);
    setCancelButton(cmdCancel);
}

void ScoringDialog::Form_Load() {
    const std::string& title = prog_.state.AppTitle;
    CentreOnScreen(*this, prog_.platform);
    setCaption(title + " User Options");
    frmScoringOptions.setCaption(title + " Scoring Options");
    FillFields();
    if (!fields_.empty())
        fields_.front().box->setFocus();
}

void ScoringDialog::FillFields() {
    for (Field& f : fields_)
        f.box->setText(plainDecimal(settingNumber(*f.binding, prog_) / f.scale));
}

void ScoringDialog::cmdDefault_Click() {
    for (Field& f : fields_)
        DefaultField(*f.box);
}

void ScoringDialog::DefaultField(TextBox& box) {
    const Field& f = field(box);
    box.setText(plainDecimal(f.binding->byDefault / f.scale));
}

void ScoringDialog::cmdCancel_Click() {
    prog_.unload(*this);
}

void ScoringDialog::cmdOK_Click() {
    if (!CheckFields())
        return;
    if (checking_ == Checking::StopAtFirst)
        StoreFields();
    Accepted();
    accepted_ = true;
    prog_.unload(*this);
}

bool ScoringDialog::CheckFields() {
    std::vector<ScoringField> rules;
    for (TextBox* box : order_) {
        Field& f = field(*box);
        ScoringField rule = f.rule;
        rule.box = box;
        rule.store = [this, &f](double typed, bool good) { store(f, typed, good); };
        rules.push_back(std::move(rule));
    }
    std::vector<double> typed;
    return CheckScoringFields(prog_, rules,
                              ScoringChecks{icon_, checking_ == Checking::StopAtFirst}, typed);
}

void ScoringDialog::StoreFields() {
    for (TextBox* box : order_)
        store(field(*box), plainNumber(box->text()), true);
}

ScoringDialog::Field& ScoringDialog::field(const TextBox& box) {
    for (Field& f : fields_)
        if (f.box == &box)
            return f;
    throw std::logic_error(name() + ": " + box.name() + " is not a scoring field");
}

void ScoringDialog::store(Field& f, double typed, bool good) {
    if (!good && f.putBack) {
        f.putBack(typed * f.scale);
        return;
    }
    storeSetting(*f.binding, prog_, typed * f.scale);
    if (good && f.afterStored)
        f.afterStored();
}

ScoringField ScoringDialog::Between(double low, double high, const std::string& lowMessage,
                                    const std::string& highMessage, bool putBackLimit) {
    ScoringField rule;
    rule.low = low;
    rule.high = high;
    rule.lowMessage = lowMessage;
    rule.highMessage = highMessage;
    if (putBackLimit) {
        rule.lowText = plainDecimal(low);
        rule.highText = plainDecimal(high);
    }
    return rule;
}

ScoringCheck ScoringDialog::AboveField(const TextBox& other, const std::string& message) {
    const TextBox* o = &other;
    return {[o](double v) { return v <= plainNumber(o->text()); }, message,
            [o] { return plainDecimal(plainNumber(o->text()) + 1); }};
}

ScoringCheck ScoringDialog::BelowField(const TextBox& other, const std::string& message) {
    const TextBox* o = &other;
    return {[o](double v) { return v >= plainNumber(o->text()); }, message,
            [o] { return plainDecimal(plainNumber(o->text()) - 1); }};
}

}  // namespace corvanna
