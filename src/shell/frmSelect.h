#pragma once
// The selector: nine game buttons, a row of turning cards, the web page and Close.

#include <array>

#include "common/Program.h"
#include "forms/Form.h"

namespace corvanna {

class frmSelect : public Form {
public:
    explicit frmSelect(Program& prog);

    void Form_Load();
    void Form_Unload(bool& cancel);
    void Timer1_Timer();
    // A game button: AppTitle, the game's form on show, the selector hidden.
    void LaunchGame(const std::string& formName);
    void cmdLaunchBrowser_Click();
    void cmdClose_Click();

    Control& frmGameChoice;
    std::array<Control*, 9> gameButtons{};
    Control& cmdLaunchBrowser;
    Control& cmdClose;
    std::array<Control*, 8> imgSplashImage{};
    Timer& Timer1;
    Control& lblSmallPrint1;
    Control& lblSmallPrint2;
    PictureStore& ImageList2;

private:
    // The window's outer size as designed, in twips.
    static constexpr int kDesignWidth = 9000, kDesignHeight = 7000;
    void layout();

    Program& prog_;
    int index_ = 0;
    bool up_ = true;
    bool faces_ = false;
    int backSlot_ = 2;
};

}  // namespace corvanna
