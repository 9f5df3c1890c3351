#include "common/UserIni.h"

#include "common/FileStore.h"
#include "common/Program.h"
#include "common/SettingsFile.h"

namespace corvanna {

bool WriteUserIni(Program& prog, const std::string& name, const std::string& hometown,
                  const std::string& state, const std::string& country) {
    const std::string text = SettingsWriter()
                                 .add("User Name", name)
                                 .add("Hometown", hometown)
                                 .add("State", state)
                                 .add("Country", country)
                                 .text();
    const std::string path = prog.filePath("User.ini");
    return prog.saveFile(
        path, text,
        [&](const std::string& why) {
            return "Unable to save your details to the file '" + path + "': " + why + ".";
        },
        MsgIcon::Critical);
}

void ReadUserIni(Program& prog, const std::string& fileName) {
    std::string text, error;
    const ReadStatus status = readWholeFile(fileName, text, &error);
    if (status == ReadStatus::Missing)
        return;
    if (status == ReadStatus::Failed) {
        prog.msg("Unable to read your details from the file '" + fileName + "': " + error +
                     ". The defaults are used.",
                 MsgButtons::OK, MsgIcon::Exclamation);
        return;
    }
    auto& g = prog.state;
    SettingsReader reader;
    reader.on("User Name", [&](const std::string& v) { g.UserName = v; });
    reader.on("Hometown", [&](const std::string& v) { g.UserHometown = v; });
    reader.on("State", [&](const std::string& v) { g.UserState = v; });
    reader.on("Country", [&](const std::string& v) { g.UserCountry = v; });
    reader.applyText(text);
}

}  // namespace corvanna
