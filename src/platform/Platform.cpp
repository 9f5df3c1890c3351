#include "platform/Platform.h"

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

}  // namespace corvanna
