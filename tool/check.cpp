#include <array>

#include <nlohmann/json.hpp>
#include <sdpcheck/report.h>

#include "commands.h"
#include "text.h"

namespace ymsdp {

namespace {

using ym::sdpcheck::Finding;
using ym::sdpcheck::Severity;
using ym::sdpcheck::word;
using Json = nlohmann::ordered_json;

using Counts = std::array<std::size_t, 3>; // by severity

Severity severityOf(const std::string& name)
{
    return name == "error" ? Severity::error : name == "warning" ? Severity::warning : Severity::note;
}

Paint::Style styleOf(Severity severity)
{
    return severity == Severity::error ? Paint::Red : severity == Severity::warning ? Paint::Yellow : Paint::Cyan;
}

// A line that the text does not have is told at its beginning, and a line as a whole at its own.
std::string placeOf(const Finding& finding, const Description& description)
{
    const std::size_t line = std::max<std::size_t>(finding.line, 1) + description.skipped;
    const std::size_t column = std::max<std::size_t>(finding.column, 1);
    return description.name + ":" + std::to_string(line) + ":" + std::to_string(column) + ": ";
}

std::string subjectOf(const Finding& finding)
{
    std::string text = finding.line > 0 ? ": " + quote(finding.text) : "";
    if (finding.lastLine > finding.line)
        text += " and " + std::to_string(finding.lastLine - finding.line) + " more";
    if (!finding.became.empty())
        text += (finding.line > 0 ? " becomes " : ": ") + quote(finding.became);
    return text;
}

std::string lineFor(const Finding& finding, const Description& description, const CheckOptions& options)
{
    const auto& kind = *finding.kind;
    std::string line = options.paint(Paint::Bold, placeOf(finding, description));
    line += options.paint(styleOf(kind.severity), word(kind.severity)) + ": " + kind.code + ": " + kind.reason;
    line += subjectOf(finding) + "\n";
    return options.hints ? line + "    hint: " + kind.repair + "\n" : line;
}

Json objectFor(const Finding& finding, const Description& description)
{
    const bool isInvented = finding.line == 0;
    const auto line = [&](std::size_t n) { return isInvented ? Json() : Json(n + description.skipped); };
    const auto& kind = *finding.kind;
    return {{"file", description.name},      {"line", line(finding.line)},      {"lastLine", line(finding.lastLine)},
            {"column", finding.column},      {"severity", word(kind.severity)}, {"code", kind.code},
            {"outcome", word(kind.outcome)}, {"reason", kind.reason},           {"repair", kind.repair},
            {"text", finding.text},          {"became", finding.became}};
}

std::string countOf(std::size_t n, Severity severity)
{
    return std::to_string(n) + " " + word(severity) + (n == 1 ? "" : "s");
}

std::string summary(const Description& description, const Counts& counts, Severity least)
{
    std::string text = description.name + ": ";
    std::string hidden;
    for (const Severity severity : {Severity::error, Severity::warning, Severity::note}) {
        const std::size_t n = counts[static_cast<std::size_t>(severity)];
        text += (severity == Severity::error ? "" : ", ") + countOf(n, severity);
        if (severity > least && n > 0)
            hidden = std::string("; --severity=") + word(severity) + " shows all";
    }
    return text + hidden + "\n";
}

} // namespace

Result check(const Descriptions& descriptions, const CheckOptions& options)
{
    const Severity least = severityOf(options.severity);
    Result result;
    Json all = Json::array();
    for (const Description& description : descriptions) {
        Counts counts = {};
        for (const Finding& finding : ym::sdpcheck::report(description.text)) {
            const Severity severity = finding.kind->severity;
            ++counts[static_cast<std::size_t>(severity)];
            if (severity > least)
                continue;
            result.status = Found;
            if (options.json)
                all.push_back(objectFor(finding, description));
            else
                result.out += lineFor(finding, description, options);
        }
        if (!options.json)
            result.out += summary(description, counts, least);
    }
    if (options.json)
        result.out = all.dump(2, ' ', true, Json::error_handler_t::replace) + "\n";
    return result;
}

} // namespace ymsdp
