// The splash animation, the time of day, the time limit and back design menus.

#include "common/Format.h"
#include "common/frame/GameFrame.h"

namespace corvanna {

std::string GameInfo::roundText(int round) const {
    std::string text = nextRoundText;
    const auto at = text.find("%n");
    if (at != std::string::npos)
        text.replace(at, 2, std::to_string(round));
    return text;
}

void GameFrame::Timer3_Timer() {
    const DateTime now = prog_.platform.now();
    SetStatus(3, formatTimeOfDay(now.hour, now.minute));
}

std::string GameFrame::SplashFacePicture() {
    if (!info_.splashPicture.empty())
        return prog_.pictures.picture(info_.splashPicture);
    return prog_.pictures.pictureOfSlot(prog_.randomNumber(14, 65));
}

void GameFrame::Timer4_Timer() {
    Control& card = *imgSplashImage[splashIndex_];
    card.sendToBack();
    if (splashUp_) {
        card.setPicture(splashFaces_ ? prog_.pictures.picture("BACK") : SplashFacePicture());
        if (++splashIndex_ >= 4) {
            splashUp_ = false;
            splashIndex_ = 3;
        }
    } else if (--splashIndex_ < 0) {
        splashUp_ = true;
        splashIndex_ = 0;
        splashFaces_ = !splashFaces_;
    }
}

void GameFrame::ClearTimeCheck() {
    for (Menu* m : mnuTime.children())
        m->setChecked(false);
}

void GameFrame::SetTimeLimit(int seconds) {
    Menu* entry = nullptr;
    for (Menu* m : mnuTime.children())
        if (m->name() == "mnu" + std::to_string(seconds))
            entry = m;
    if (!entry)
        return;  // not a limit this game offers
    g_.RoundSeconds = static_cast<std::int16_t>(seconds);
    ClearTimeCheck();
    entry->setChecked(true);
    TimeLimitChanged();
    ShowHighScore();
}

void GameFrame::ClearDeckCheck() {
    for (Menu* m : {mnuMagic, mnuPalm, mnuNight, mnuHot})
        if (m)
            m->setChecked(false);
}

Menu* GameFrame::DesignMenu(int design) const {
    Menu* const byDesign[] = {mnuPalm, mnuMagic, mnuNight, mnuHot};
    return design >= 1 && design <= 4 ? byDesign[design - 1] : nullptr;
}

void GameFrame::CheckDesignOnShow() {
    if (!mnuDeck)
        return;
    ClearDeckCheck();
    if (Menu* m = DesignMenu(prog_.pictures.designOnShow()))
        m->setChecked(true);
}

void GameFrame::SelectDeckBack(int deckBack) {
    if (!mnuDeck || deckBack < 1 || deckBack > 4)
        return;
    const int design = info_.deckDesigns[static_cast<std::size_t>(deckBack - 1)];
    ClearDeckCheck();
    DesignMenu(design)->setChecked(true);
    prog_.pictures.selectDesign(design);
    RefreshPlayCard();
    if (isPaused())
        RefreshBoardBacks();
    g_.DeckBack = static_cast<std::int16_t>(deckBack);
}

}  // namespace corvanna
