#include "platform/Platform.h"

#include <algorithm>

namespace corvanna {

const char* msgIconName(MsgIcon icon) {
    switch (icon) {
        case MsgIcon::None: return "none";
        case MsgIcon::Critical: return "critical";
        case MsgIcon::Question: return "question";
        case MsgIcon::Exclamation: return "exclamation";
        case MsgIcon::Information: return "information";
    }
    return "none";
}

const char* msgResultName(MsgResult r) {
    switch (r) {
        case MsgResult::OK: return "OK";
        case MsgResult::Cancel: return "Cancel";
        case MsgResult::Yes: return "Yes";
        case MsgResult::No: return "No";
    }
    return "OK";
}

void ShrinkToScreen(Form& form, Platform& platform) {
    const int screenW = platform.screenWidthTwips(), screenH = platform.screenHeightTwips();
    if (form.width() > screenW || form.height() > screenH)
        form.setSize(std::min(form.width(), screenW), std::min(form.height(), screenH));
}

void CentreOnScreen(Form& form, Platform& platform) {
    form.setPosition(std::max(0, (platform.screenWidthTwips() - form.width()) / 2),
                     std::max(0, (platform.screenHeightTwips() - form.height()) / 2));
}

}  // namespace corvanna
