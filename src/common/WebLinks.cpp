#include "common/WebLinks.h"

#include "common/Program.h"

namespace corvanna {

void OpenWebPage(Program& prog, const std::string& url) {
    switch (prog.platform.openUrl(url)) {
        case UrlResult::Opened: break;
        case UrlResult::NoBrowser:
            prog.msg("Unable to find default web Browser", MsgButtons::OK, MsgIcon::Exclamation);
            break;
        case UrlResult::Failed:
            prog.msg("Unable to open web page '" + url + "'.", MsgButtons::OK,
                     MsgIcon::Exclamation);
            break;
    }
}

}  // namespace corvanna
