#pragma once
// The scoring dialog every game opens from its options menu: a frame of labelled number
// fields, each bound to a setting of the game's table, with OK, Cancel and Default.
// Default fills the fields from the bindings' defaults; OK checks the fields in the
// game's order, one of two ways, with each field's own messages:
//   StopAtFirst  the first bad field speaks and takes the focus; nothing is stored.
//   EveryField   every field is checked and stored as it goes; a bad one speaks, gets
//                the game's text back and the focus, and the dialog stays open.
// A field's text is read as a plain number from its start ("12abc" is 12, letters 0).

#include <functional>
#include <string>
#include <vector>

#include "common/Program.h"
#include "common/ScoringFields.h"
#include "common/frame/SettingBindings.h"
#include "forms/Form.h"

namespace corvanna {

class ScoringDialog : public Form {
public:
    enum class Checking { StopAtFirst, EveryField };

    // Sizes in twips: the form, the frame of fields, and the row of buttons.
    struct Layout {
        int width = 7800;
        int height = 6300;
        int frameHeight = 3840;
        int buttonsTop = 5280;
    };

    ScoringDialog(Program& prog, const SettingTable& settings, const std::string& name,
                  Checking checking, MsgIcon icon, Layout layout);

    // Centred; AppTitle + " User Options" and " Scoring Options"; every field from its
    // variable; the focus on the first field.
    void Form_Load();
    virtual void cmdOK_Click();
    // The fields take their bindings' defaults; no variable changes until OK.
    virtual void cmdDefault_Click();
    void cmdCancel_Click();
    // OK took the values and closed the dialog.
    bool accepted() const { return accepted_; }

    Control& frmScoringOptions;
    Control* cmdOK = nullptr;
    Control* cmdCancel = nullptr;
    Control* cmdDefault = nullptr;

    // Refused below `low` or above `high` (each with its message; one message for both
    // when `highMessage` is empty), putting the limit back when `putBackLimit`.
    static ScoringField Between(double low, double high, const std::string& lowMessage,
                                const std::string& highMessage = {}, bool putBackLimit = false);
    // A maximum against its minimum: refused at or below the other field's number, which
    // plus one is put back. BelowField is the minimum's test: refused at or above the
    // other's, which less one is put back.
    static ScoringCheck AboveField(const TextBox& other, const std::string& message);
    static ScoringCheck BelowField(const TextBox& other, const std::string& message);

protected:
    // A label and a text box in the next row of the frame, bound to the table's key;
    // `scale` is what the variable holds per unit typed (1000 for milliseconds typed as
    // seconds).
    TextBox& AddField(const std::string& labelName, const std::string& caption,
                      const std::string& boxName, const std::string& key, double scale = 1);
    Control& LabelOf(const TextBox& box);
    // The field's tests and limits, with its messages and the texts it puts back;
    // `storesPutBack`: a refused field's variable takes the text put back (EveryField).
    void SetChecks(TextBox& box, ScoringField rule);
    // Runs once the field's value has been found good and stored (a refused field's
    // put-back value doesn't run it).
    void AfterStored(TextBox& box, std::function<void()> then);
    // Where a refused field's put-back value goes instead of its own variable (EveryField):
    // a game that holds only part of the setting at the limit.
    void PutBackInto(TextBox& box, std::function<void(double value)> store);
    // The order OK takes the fields in, when it isn't the order on the form.
    void SetCheckOrder(std::vector<TextBox*> order);
    // Another key of the table for the field: a mode's own value.
    void BindField(TextBox& box, const std::string& key);
    // OK, Cancel and Default, centred in a row: made last, so they come last in the tab
    // order, after the game's own controls. Enter is OK, Escape Cancel.
    void AddButtons();
    // Every field from its variable.
    void FillFields();
    // The field takes its binding's default.
    void DefaultField(TextBox& box);
    // The fields by the checking way: true when all were good (StopAtFirst: none stored
    // yet).
    bool CheckFields();
    // Stores every field (StopAtFirst, once all were good).
    void StoreFields();
    // OK found every field good and stored them: what else the game takes before the
    // dialog closes.
    virtual void Accepted() {}

    Program& prog_;

private:
    struct Field {
        Control* label;
        TextBox* box;
        const SettingBinding* binding;
        double scale;
        ScoringField rule;
        std::function<void()> afterStored;
        std::function<void(double)> putBack;
    };
    Field& field(const TextBox& box);
    // The typed number into the field's variable, then what follows a good field.
    void store(Field& f, double typed, bool good);

    const SettingTable& settings_;
    Checking checking_;
    MsgIcon icon_;
    Layout layout_;
    std::vector<Field> fields_;
    std::vector<TextBox*> order_;
    bool accepted_ = false;
};

}  // namespace corvanna
