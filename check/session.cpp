#include "check/session.h"

#include <map>

#include "check/forms.h"
#include "check/kinds.h"

namespace ym::sdpcheck {

namespace {

// What is written of the session level: one line of each type, and attributes.
struct Written {
    std::map<char, std::string_view> line;
    std::vector<std::string_view> attributes;

    explicit Written(std::string_view text)
    {
        for (const Line& written : linesOf(text)) {
            if (written.type() == 'm')
                return;
            if (written.type() == 'a')
                attributes.push_back(written.text);
            else
                line[written.type()] = written.text;
        }
    }
};

// The lines of a type that are written even without one of the text.
void addInvented(const std::map<char, const Line*>& taken, const Written& written, Findings& findings)
{
    const std::pair<char, const Kind*> invented[] = {{'v', &kind::defaultVersion},
                                                     {'o', &kind::defaultOrigin},
                                                     {'s', &kind::defaultName},
                                                     {'t', &kind::defaultTime}};
    for (const auto& [type, kind] : invented)
        if (taken.count(type) == 0 && written.line.count(type) > 0)
            findings.addInvented(*kind, written.line.at(type));
}

} // namespace

void checkSession(const Lines& lines, std::string_view text, Findings& findings)
{
    const Written written(text);
    std::map<char, const Line*> first; // of its type
    std::map<char, const Line*> taken; // those that come out
    Run attributes('a');
    std::size_t nAttributes = 0;
    for (const Line& line : lines) {
        const char type = line.type();
        const bool isInRun = attributes.takes(line);
        if (isInRun)
            compare(line, written.attributes.at(nAttributes++), findings);
        else if (type == 'a')
            findings.add(line, kind::brokenRun);
        else if (!first.emplace(type, &line).second)
            findings.add(line, kind::repeatedLine);
        else if (written.line.count(type) == 0 || (type == 't' && !matches(form::time, line.value())))
            findings.add(line, whyLost(line));
        else
            compare(*(taken[type] = &line), written.line.at(type), findings);
    }
    addInvented(taken, written, findings);
}

} // namespace ym::sdpcheck
