#include "commands.h"
#include "text.h"

namespace ymsdp {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// The lines of which one thing is told.
class Places {
public:
    void add(std::size_t line)
    {
        if (++n_ <= shown)
            text_ += (n_ > 1 ? ", " : "") + std::to_string(line);
    }

    void tell(const std::string& what, const Description& description) const
    {
        if (n_ > 0)
            complain(description.name + ": " + what + (n_ == 1 ? " in line " : " in " + std::to_string(n_) + " lines: ")
                     + text_ + (n_ > shown ? ", ..." : ""));
    }

private:
    static constexpr std::size_t shown = 10;
    std::size_t n_ = 0;
    std::string text_;
};

std::string_view trimmed(std::string_view line)
{
    const std::size_t begin = line.find_first_not_of(" \t");
    if (begin == none)
        return {};
    return line.substr(begin, line.find_last_not_of(" \t") - begin + 1);
}

bool isKnown(std::string_view line)
{
    return line.size() >= 2 && line[1] == '=' && std::string_view("vosiuepcbzktram").find(line[0]) != none;
}

} // namespace

Result clean(const Description& description, const TextOptions& options)
{
    std::string_view text = description.text;
    if (text.substr(0, byteOrderMark.size()) == byteOrderMark) {
        text.remove_prefix(byteOrderMark.size());
        complain(description.name + ": took out the byte order mark");
    }
    Lines kept;
    Places empty, blanks, unnamed;
    std::size_t number = description.skipped;
    for (const std::string& line : linesOf(text)) {
        ++number;
        std::string_view rest = trimmed(line);
        if (rest.empty()) {
            empty.add(number);
            continue;
        }
        if (!isKnown(rest)) {
            complain(description.name + ":" + std::to_string(number) + ": took out " + quote(line));
            continue;
        }
        // RFC 8866 has no empty session name, but a blank or "-" for none.
        if (rest == "s=") {
            rest = "s=-";
            unnamed.add(number);
        } else if (rest.size() < line.size())
            blanks.add(number);
        kept.emplace_back(rest);
    }
    empty.tell("took out nothing but blanks", description);
    blanks.tell("took out blanks at the beginning or the end", description);
    unnamed.tell("wrote s=- for a session without a name", description);
    return {textOf(kept, options.lf)};
}

} // namespace ymsdp
