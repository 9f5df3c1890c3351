#pragma once
// A whole program on the virtual platform, in a fresh data folder: the
// selector is up, and a test clicks its way from there.

#include <QTemporaryDir>
#include <algorithm>
#include <string>
#include <vector>

#include "common/Program.h"
#include "common/frame/GameFrame.h"
#include "virtual/FakePlatform.h"

namespace corvanna {

class TestProgram {
public:
    explicit TestProgram(std::uint64_t seed = 1, const std::string& dataDir = "");

    FakePlatform fake;
    QTemporaryDir tmp;
    Program prog;
    Form& select;

    std::string dataDir() const { return prog.dataDir(); }
    Form& form(const std::string& name);
    Control& control(const std::string& formName, const std::string& name, int index = -1);
    // A user's click; fails the test when the control takes no click.
    void click(const std::string& formName, const std::string& name, int index = -1);
    // Clicks the game's button on the selector and hands back its form.
    GameFrame& openGame(const std::string& formName);
    // Clicks the game's exit button and answers Yes to its question.
    void leaveGame(const std::string& formName);
    std::string file(const std::string& plainName) const;
};

// How often a line stands in the platform's log.
inline int count(const std::vector<std::string>& log, const std::string& line) {
    return static_cast<int>(std::count(log.begin(), log.end(), line));
}
inline bool logHas(const std::vector<std::string>& log, const std::string& line) {
    return count(log, line) > 0;
}
// The lines of the log that start with one of the prefixes, in order.
inline std::vector<std::string> only(const std::vector<std::string>& log,
                                     const std::vector<std::string>& prefixes) {
    std::vector<std::string> out;
    for (const auto& line : log)
        if (std::any_of(prefixes.begin(), prefixes.end(),
                        [&](const std::string& p) { return line.starts_with(p); }))
            out.push_back(line);
    return out;
}

}  // namespace corvanna
