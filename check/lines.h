// The lines of a text, and the findings about them.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <tovik/String.h>

#include <sdpcheck/report.h>

namespace ym::sdpcheck {

struct Line {
    std::size_t number; // from 1 on
    std::string_view text;

    char type() const { return text.front(); }
    std::string_view value() const { return text.substr(2); }
    bool hasNul() const { return text.find('\0') != std::string_view::npos; }
};

using Lines = std::vector<Line>;

// All lines of a text, empty ones among them but not at its end.
Lines linesOf(std::string_view text);

inline std::string_view viewOf(const String& text)
{
    return {text.chars(), text.length()};
}

inline String stringOf(std::string_view bytes)
{
    String result;
    result.assign(bytes);
    return result;
}

// Tells the lines that count where several of a type may: those next to each other, from the first one on.
class Run {
public:
    explicit Run(char type) : type_(type) { }

    // Whether the next line of the level belongs to the run. To be asked for all of them in turn.
    bool takes(const Line& line)
    {
        isOver_ = isOver_ || (isBegun_ && line.type() != type_);
        isBegun_ = isBegun_ || line.type() == type_;
        return line.type() == type_ && !isOver_;
    }

private:
    char type_;
    bool isBegun_ = false;
    bool isOver_ = false;
};

// Collects findings.
class Findings {
public:
    void add(const Line& line, const Kind& kind, std::string_view became = {}, std::size_t column = 0)
    {
        addAll(line, line.number, kind, became, column);
    }

    void addAll(const Line& first, std::size_t last, const Kind& kind, std::string_view became = {},
                std::size_t column = 0)
    {
        found_.push_back({first.number, last, column, &kind, std::string(first.text), std::string(became)});
    }

    void addInvented(const Kind& kind, std::string_view became)
    {
        found_.push_back({0, 0, 0, &kind, {}, std::string(became)});
    }

    std::vector<Finding> inOrder() &&
    {
        std::stable_sort(found_.begin(), found_.end(),
                         [](const Finding& a, const Finding& b) { return a.line < b.line; });
        return std::move(found_);
    }

private:
    std::vector<Finding> found_;
};

} // namespace ym::sdpcheck
