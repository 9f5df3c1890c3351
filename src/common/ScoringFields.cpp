#include "common/ScoringFields.h"

#include "common/Format.h"

namespace corvanna {

namespace {

struct Refusal {
    const std::string* message = nullptr;
    std::optional<std::string> text;
};

// The first test the number fails: the field's own tests, then its limits.
std::optional<Refusal> refusal(const ScoringField& f, double v) {
    for (const ScoringCheck& c : f.ahead)
        if (c.refuses(v))
            return Refusal{&c.message, c.putBack ? std::optional(c.putBack()) : std::nullopt};
    // Written so that a number that is none fails them too.
    const bool low = !(v >= f.low);
    if (!low && v <= f.high)
        return std::nullopt;
    return Refusal{low || f.highMessage.empty() ? &f.lowMessage : &f.highMessage,
                   low ? f.lowText : f.highText};
}

}  // namespace

bool CheckScoringFields(Program& prog, const std::vector<ScoringField>& fields,
                        const ScoringChecks& checks, std::vector<double>& values) {
    values.clear();
    bool allGood = true;
    for (const ScoringField& f : fields)
        values.push_back(plainNumber(f.box->text()));
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const ScoringField& f = fields[i];
        const std::optional<Refusal> bad = refusal(f, values[i]);
        if (!bad) {
            if (!checks.stopAtFirst && f.store)
                f.store(values[i], true);
            continue;
        }
        allGood = false;
        if (bad->text && !checks.stopAtFirst && f.storesPutBack && f.store)
            f.store(plainNumber(*bad->text), false);
        prog.msg(*bad->message, MsgButtons::OK, checks.icon);
        if (bad->text)
            f.box->setText(*bad->text);
        f.box->setFocus();
        if (checks.stopAtFirst)
            break;
    }
    return allGood;
}

}  // namespace corvanna
