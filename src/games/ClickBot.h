#pragma once
// What every game's bot shares: clicks made as the user makes them, the first fault
// kept, and the high score dialogs answered when a score enters a table.

#include <string>

#include "games/GameBot.h"
#include "virtual/FakePlatform.h"

namespace corvanna {

class Control;
class Program;

class ClickBot : public GameBot {
public:
    ClickBot(Program& prog, FakePlatform& fake);
    ~ClickBot() override;

    std::string fault() const override { return fault_; }
    long long clicks() const override { return clicks_; }

protected:
    // A user's click; a refused one is a fault.
    bool click(Control* control, const std::string& what);
    // Keeps the first fault.
    void note(const std::string& what);

    Program& prog_;
    FakePlatform& fake_;

private:
    std::string fault_;
    long long clicks_ = 0;
};

}  // namespace corvanna
