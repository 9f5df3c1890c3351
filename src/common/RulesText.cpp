#include "common/RulesText.h"

namespace corvanna {

std::string RulesText::build(const Program& prog) const {
    const std::string& title = prog.state.AppTitle;
    std::string out = "\r\n" +
                      std::string(static_cast<std::size_t>(std::max(0, headingBlanks)), ' ') +
                      title + " Rules, Notes and Strategy\r\n\r\n";
    out += "Requirements: To run " + title +
           " you need a Linux desktop and a mouse. Recommended: Soundcard.\r\n\r\n";
    for (const RulesParagraph& p : paragraphs) {
        if (p.when && !p.when(prog))
            continue;
        for (std::size_t i = 0; i < p.lines.size(); ++i) {
            for (const RulesPiece& piece : p.lines[i])
                out += piece.value ? piece.value(prog) : piece.text;
            out += i + 1 < p.lines.size() ? "\r\n" : "\r\n\r\n";
        }
    }
    return out + "Good luck and have fun!";
}

RulesPiece title() {
    return RulesPiece([](const Program& prog) { return prog.state.AppTitle; });
}

RulesPiece seconds() {
    return plain(&AppState::RoundSeconds);
}

RulesPiece shown(std::function<std::string(const Program&)> value) {
    return RulesPiece(std::move(value));
}

RulesParagraph para(RulesLine pieces) {
    return RulesParagraph{{std::move(pieces)}, {}};
}

RulesParagraph lines(std::vector<RulesLine> lines) {
    return RulesParagraph{std::move(lines), {}};
}

RulesParagraph when(std::function<bool(const Program&)> holds, RulesParagraph paragraph) {
    paragraph.when = std::move(holds);
    return paragraph;
}

RulesParagraph openingParagraph(const char* rounds, RulesPiece bonusScore, const char* ending) {
    return para({"As with most games, the object of ", title(),
                 " is to attain the highest number of points possible. The game consists of ",
                 rounds, " rounds, each lasting ", seconds(), " seconds. If you earn more than ",
                 std::move(bonusScore), ending});
}

}  // namespace corvanna
