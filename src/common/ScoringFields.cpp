#include "common/ScoringFields.h"

#include "common/Format.h"

namespace corvanna {

bool CheckScoringFields(Program& prog, const std::vector<ScoringField>& fields,
                        const ScoringChecks& checks, std::vector<double>& values) {
    values.clear();
    bool allGood = true;
    for (const ScoringField& f : fields)
        values.push_back(plainNumber(f.box->text()));
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const ScoringField& f = fields[i];
        const bool low = values[i] < f.low;
        if (!low && values[i] <= f.high)
            continue;
        allGood = false;
        prog.msg(low || f.highMessage.empty() ? f.lowMessage : f.highMessage, MsgButtons::OK,
                 checks.icon);
        if (const auto& text = low ? f.lowText : f.highText)
            f.box->setText(*text);
        f.box->setFocus();
        if (checks.stopAtFirst)
            break;
    }
    return allGood;
}

}  // namespace corvanna
