#include "shell/frmSelect.h"

#include <algorithm>

#include "common/FileStore.h"
#include "common/Intervals.h"
#include "common/UserIni.h"
#include "common/WebLinks.h"
#include "common/frame/GameFrame.h"
#include "forms/DesignScale.h"
#include "games/GameRegistry.h"

namespace corvanna {

namespace {
Control& make(Form& f, ControlKind kind, const std::string& name, Control* parent = nullptr,
              int index = -1) {
    return f.add<Control>(kind, name, index, parent);
}
}  // namespace

frmSelect::frmSelect(Program& prog)
    : Form(prog.platform, "frmSelect"),
      frmGameChoice(make(*this, ControlKind::Frame, "frmGameChoice")),
      cmdLaunchBrowser(make(*this, ControlKind::CommandButton, "cmdLaunchBrowser")),
      cmdClose(make(*this, ControlKind::CommandButton, "cmdClose")),
      Timer1(add<Timer>("Timer1", -1, ms::SelectorCards)),
      lblSmallPrint1(make(*this, ControlKind::Label, "lblSmallPrint1")),
      lblSmallPrint2(make(*this, ControlKind::Label, "lblSmallPrint2")),
      ImageList2(prog.pictures),
      prog_(prog) {
    const auto& games = allGames();
    for (std::size_t i = 0; i < games.size() && i < gameButtons.size(); ++i) {
        gameButtons[i] = &make(*this, ControlKind::CommandButton, games[i].button, &frmGameChoice);
        const std::string formName = games[i].formName;
        gameButtons[i]->Click = [this, formName] { LaunchGame(formName); };
    }
    for (int i = 0; i < 8; ++i) {
        imgSplashImage[static_cast<std::size_t>(i)] =
            &make(*this, ControlKind::Image, "imgSplashImage", nullptr, i);
    }
    setBackColor(colors::FeltGreen);
    frmGameChoice.setBackColor(0x0F3D1E);
    frmGameChoice.setForeColor(colors::White);
    for (Control* l : {&lblSmallPrint1, &lblSmallPrint2}) {
        l->setForeColor(0xDDEEDD);
        l->setAlignment(Align::Center);
    }
    cmdLaunchBrowser.Click = [this] { cmdLaunchBrowser_Click(); };
    cmdClose.Click = [this] { cmdClose_Click(); };
    Timer1.OnTimer = [this] { Timer1_Timer(); };
    QueryUnload = [this](bool& cancel) { Form_Unload(cancel); };
    Resize = [this] { layout(); };
    // A folder's name can be of any length: cut, with the whole of it in the tooltip.
    lblSmallPrint2.setTextFit(TextFit::Elide);
    setBounds(0, 0, kDesignWidth, kDesignHeight);
    layout();
}

void frmSelect::Form_Load() {
    auto& g = prog_.state;
    g.NewHighScoreRow = -1;
    g.UserName = "Unknown User";
    g.UserHometown = "Unknown";
    g.UserState = "None";
    g.UserCountry = "United States";

    // A screen smaller than the selector gets all of it, scaled down.
    ShrinkToScreen(*this, prog_.platform);
    CentreOnScreen(*this, prog_.platform);
    setCaption("The Corvanna Collection");

    const auto& games = allGames();
    for (std::size_t i = 0; i < games.size() && i < gameButtons.size(); ++i) {
        gameButtons[i]->setCaption(games[i].buttonCaption);
        gameButtons[i]->setToolTipText("Play " + games[i].title);
    }
    frmGameChoice.setCaption("Select your game");
    cmdLaunchBrowser.setCaption("&Go to the Velmora website");
    cmdLaunchBrowser.setToolTipText("Go to the Velmora Web Site");
    cmdClose.setCaption("Cl&ose");
    cmdClose.setToolTipText("Close the Corvanna");
    lblSmallPrint1.setCaption("Nine quick games against the clock. Velmora, 2026.");
    lblSmallPrint2.setCaption("Your best scores are kept in " + prog_.dataDir());
    lblSmallPrint2.setToolTipText(prog_.dataDir());
    for (Control* img : imgSplashImage)
        img->setPicture(ImageList2.picture("BACK"));

    if (!prog_.dataDirUsable())
        prog_.msg("The data folder '" + prog_.dataDir() +
                      "' cannot be created or written. Your details, settings and scores will not "
                      "be saved in this session.",
                  MsgButtons::OK, MsgIcon::Exclamation);

    const std::string userIni = prog_.filePath("User.ini");
    if (!fileExists(userIni) && prog_.dataDirUsable())
        WriteUserIni(prog_, g.UserName, g.UserHometown, g.UserState, g.UserCountry);
    ReadUserIni(prog_, userIni);
    Timer1.start();
    // Enter at once plays the first game, not the website.
    gameButtons[0]->setFocus();
}

void frmSelect::Form_Unload(bool& cancel) {
    (void)cancel;
    const auto& g = prog_.state;
    WriteUserIni(prog_, g.UserName, g.UserHometown, g.UserState, g.UserCountry);
    prog_.platform.quit();
}

void frmSelect::LaunchGame(const std::string& formName) {
    const GameInfo* game = findGame(formName);
    if (!game || prog_.findForm(formName))
        return;
    setMousePointer(MousePointer::Hourglass);
    prog_.state.AppTitle = game->title;
    GameFrame& form = loadGameForm(prog_, *game);
    form.onLeave = [this] { prog_.platform.showForm(*this, false); };
    prog_.platform.showForm(form, false);
    setMousePointer(MousePointer::Default);
    prog_.platform.hideForm(*this);
}

void frmSelect::cmdLaunchBrowser_Click() {
    OpenWebPage(prog_, kHomePageUrl);
}

void frmSelect::cmdClose_Click() {
    prog_.requestUnload(*this);
}

void frmSelect::Timer1_Timer() {
    prog_.state.TakingScore = false;
    if (backSlot_ == 0)
        backSlot_ = 2;
    // Two steps, each testing the flag: the tick that turns the row also starts back.
    if (up_) {
        Control& card = *imgSplashImage[static_cast<std::size_t>(index_)];
        card.sendToBack();
        card.setPicture(faces_ ? ImageList2.pictureOfSlot(backSlot_)
                               : ImageList2.pictureOfSlot(prog_.randomNumber(14, 65)));
        if (++index_ > 7) {
            up_ = false;
            index_ = 7;
        }
    }
    if (!up_) {
        imgSplashImage[static_cast<std::size_t>(index_)]->sendToBack();
        if (--index_ < 0) {
            up_ = true;
            index_ = 0;
            if (faces_) {
                faces_ = false;
                backSlot_ += 3;
                if (backSlot_ == 11)
                    backSlot_ = 2;
            } else {
                faces_ = true;
            }
        }
    }
}

void frmSelect::layout() {
    // Placed at the design size and scaled as one piece into the window, centred: a larger
    // window shows the same selector larger, a smaller one cuts nothing off.
    const int W0 = kDesignWidth - kFrameWidthTwips, H0 = kDesignHeight - kFrameHeightTwips;
    const DesignScale t = DesignScale::fit(scaleWidth(), scaleHeight(), W0, H0);
    const DesignScale inFrame = t.inside();
    setFontScale(t.s);

    // The row of cards across the top, overlapping a little.
    const int cardW = 1035, cardH = 1410;
    const int step = std::min(cardW + 60, (W0 - 600 - cardW) / 7);
    const int rowW = cardW + 7 * step;
    const int rowX = (W0 - rowW) / 2;
    for (int i = 0; i < 8; ++i)
        t.place(*imgSplashImage[static_cast<std::size_t>(i)], rowX + i * step, 240, cardW, cardH);

    // Nine buttons in three rows of three inside the frame.
    const int frameW = std::min(W0 - 600, 7200), frameH = 2700;
    const int frameX = (W0 - frameW) / 2, frameY = 240 + cardH + 300;
    t.place(frmGameChoice, frameX, frameY, frameW, frameH);
    const int bw = (frameW - 4 * 240) / 3, bh = 540;
    for (int i = 0; i < 9; ++i) {
        if (!gameButtons[static_cast<std::size_t>(i)])
            continue;
        const int col = i % 3, row = i / 3;
        inFrame.place(*gameButtons[static_cast<std::size_t>(i)], 240 + col * (bw + 240),
                      420 + row * (bh + 240), bw, bh);
    }

    const int by = frameY + frameH + 300;
    t.place(cmdLaunchBrowser, frameX, by, 3600, 480);
    t.place(cmdClose, frameX + frameW - 1800, by, 1800, 480);
    t.place(lblSmallPrint1, 300, by + 720, W0 - 600, 300);
    t.place(lblSmallPrint2, 300, by + 1020, W0 - 600, 300);
}

}  // namespace corvanna
