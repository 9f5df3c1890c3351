#include "testkit/TestProgram.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "common/FileStore.h"
#include "forms/Input.h"
#include "games/GameRegistry.h"
#include "shell/Startup.h"

namespace corvanna {

TestProgram::TestProgram(std::uint64_t seed, const std::string& dataDir)
    : prog(fake, dataDir.empty() ? tmp.path().toStdString() : dataDir, seed),
      select(startSelector(prog)) {
    prog.setAssetsDir(CORVANNA_SHIPPED_DIR);
}

Form& TestProgram::form(const std::string& name) {
    Form* f = prog.findForm(name);
    if (!f)
        throw std::runtime_error("no form " + name);
    return *f;
}

Control& TestProgram::control(const std::string& formName, const std::string& name, int index) {
    Control* c = form(formName).find(name, index);
    if (!c)
        throw std::runtime_error("no control " + formName + "." + name);
    return *c;
}

void TestProgram::click(const std::string& formName, const std::string& name, int index) {
    std::string why;
    EXPECT_TRUE(userClick(control(formName, name, index), &why)) << why;
}

GameFrame& TestProgram::openGame(const std::string& formName) {
    const GameInfo* game = findGame(formName);
    click("frmSelect", game ? game->button : throw std::runtime_error("no game " + formName));
    return dynamic_cast<GameFrame&>(form(formName));
}

void TestProgram::leaveGame(const std::string& formName) {
    fake.queueAnswer(MsgResult::Yes);
    click(formName, findGame(formName)->exitButton);
}

std::string TestProgram::file(const std::string& plainName) const {
    std::string text;
    readWholeFile(prog.filePath(plainName), text);
    return text;
}

}  // namespace corvanna
