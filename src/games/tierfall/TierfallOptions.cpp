// Tierfall's options: the card goal, the selection colour, the count-down and the
// scoring dialog. Its settings file is TierfallSettings.cpp.

#include "games/tierfall/TierfallValues.h"
#include "games/tierfall/frmTierfall.h"
#include "games/tierfall/frmTierfallCustomScoring.h"

namespace corvanna {

namespace {

struct ColourEntry {
    const char* menu;
    const char* caption;
    Color colour;
};
const ColourEntry kColours[6] = {
    {"mnuYellow", "&Yellow", 0xFFFF00}, {"mnuRed", "&Red (Default)", 0xFF0000},
    {"mnuBlue", "&Blue", 0x0000FF},     {"mnuGreen", "&Green", 0x00C000},
    {"mnuPurple", "&Purple", 0x800080}, {"mnuBlack", "&Black", 0x000000},
};
const char* const kGoalCaptions[6] = {"1&0", "1&1 (Default)", "1&2", "1&3", "1&4", "1&5"};

}  // namespace

void frmTierfall::BuildOptionMenus() {
    for (int i = 0; i < 6; ++i) {
        const int goal = 10 + i;
        mnuGoals[i] = &addMenu("mnu" + std::to_string(goal), kGoalCaptions[i], &mnuGoal);
        mnuGoals[i]->Click = [this, goal] { SetCardGoal(goal); };
    }
    for (int i = 0; i < 6; ++i) {
        mnuColors[i] = &addMenu(kColours[i].menu, kColours[i].caption, &mnuColor);
        mnuColors[i]->Click = [this, i] { SelectionColor(i); };
    }
    mnuDrawTimer.Click = [this] { mnuDrawTimer_Click(); };
    mnuCustom.Click = [this] { mnuScoring_Click(); };
}

void frmTierfall::ClearGoalCheck() {
    for (int i = 0; i < 6; ++i)
        mnuGoals[i]->setChecked(values().CardGoal == 10 + i);
}

void frmTierfall::SetCardGoal(int goal) {
    values().CardGoal = static_cast<std::int16_t>(goal);
    ClearGoalCheck();
    lblElevens.setCaption(GoalCaption(goal));
    ShowHighScore();
    SetStatus(2, "Click on exposed cards to total " + std::to_string(goal) + "!   ");
}

void frmTierfall::SelectionColor(int index) {
    if (index < 0 || index > 5)
        return;
    values().SelectionColorIndex = static_cast<std::int16_t>(index);
    for (Shape* frame : FieldSelectionRectangle)
        frame->setBorderColor(kColours[index].colour);
    UpCardSelectionRectangle.setBorderColor(kColours[index].colour);
    ClearColorCheck();
    mnuColors[index]->setChecked(true);
}

void frmTierfall::ClearColorCheck() {
    for (Menu* m : mnuColors)
        m->setChecked(false);
}

void frmTierfall::mnuDrawTimer_Click() {
    g_.CountDownScore = !g_.CountDownScore;
    mnuDrawTimer.setChecked(g_.CountDownScore);
}

void frmTierfall::mnuScoring_Click() {
    ShowTierfallCustomScoring(prog_, *this);
}

}  // namespace corvanna
