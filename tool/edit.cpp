// An edit is [+|-][mN.]TYPE[:NAME][=VALUE], or +m=VALUE and -mN for whole sections. N may be *, for every section.
#include <algorithm>
#include <charconv>

#include "commands.h"
#include "text.h"

namespace ymsdp {

namespace {

struct Edit {
    enum Action {
        Set,
        Add,
        Remove
    };

    std::string source; // as it was given
    Action action = Set;
    bool inSection = false;
    bool everywhere = false; // in every section
    std::size_t section = 0; // its number
    char type = 0;
    std::string name;  // of an attribute or a bandwidth, "ptime", "rtpmap:96" or "AS" say; mostly empty
    std::string value; // what stands behind the "=" of the line

    bool matches(std::string_view line) const
    {
        if (!isType(line, type))
            return false;
        line.remove_prefix(2);
        if (line.substr(0, name.size()) != name)
            return false;
        return name.empty() || line.size() == name.size() || line[name.size()] == separator();
    }

    // "rtpmap:96" is parted by a blank from the rest, "ptime" by a colon.
    char separator() const { return name.find(':') == none ? ':' : ' '; }

    std::string line() const { return std::string{type, '='} + value; }
};

[[noreturn]] void refuse(const std::string& source, const char* why)
{
    throw Trouble("edit " + quote(source) + ": " + why);
}

Edit::Action takeAction(std::string_view& rest)
{
    const char c = rest.empty() ? '\0' : rest[0];
    if (c == '+' || c == '-')
        rest.remove_prefix(1);
    return c == '+' ? Edit::Add : c == '-' ? Edit::Remove : Edit::Set;
}

// Takes "m0." or "m*." off; "m0" alone, or before "=", is the media line itself: "m" stays.
void takeSection(std::string_view& rest, Edit& edit)
{
    if (rest.size() < 2 || rest[0] != 'm' || rest[1] == '=')
        return;
    const char* const end = rest.data() + rest.size();
    const char* behind = rest.data() + 2;
    edit.inSection = true;
    edit.everywhere = rest[1] == '*';
    if (!edit.everywhere) {
        const auto [stop, error] = std::from_chars(rest.data() + 1, end, edit.section);
        if (error != std::errc())
            refuse(edit.source, "m is followed by the number of a section, from 0 on, or by *");
        behind = stop;
    }
    const bool isMediaLine = behind == end || *behind == '=';
    if (!isMediaLine && *behind != '.')
        refuse(edit.source, "a section is followed by a dot and a line type");
    edit.type = isMediaLine ? 'm' : '\0';
    rest.remove_prefix(static_cast<std::size_t>(behind - rest.data()) + (isMediaLine ? 0 : 1));
}

void takeType(std::string_view& rest, Edit& edit)
{
    if (edit.type == 'm')
        return;
    const std::string_view types = edit.inSection ? "micbka" : "vosiuepcbtrzkam";
    if (rest.empty() || types.find(rest[0]) == none)
        refuse(edit.source,
               edit.inSection ? "a section has lines of the types m i c b k a"
                              : "a session has lines of the types v o s i u e p c b t r z k a m");
    edit.type = rest[0];
    rest.remove_prefix(1);
}

void takeNameAndValue(std::string_view rest, Edit& edit)
{
    const bool hasNames = edit.type == 'a' || edit.type == 'b';
    const std::size_t equals = std::min(rest.find('='), rest.size());
    const bool hasValue = equals < rest.size();
    const std::string_view value = rest.substr(std::min(equals + 1, rest.size()));
    const std::string_view name = rest.substr(0, equals);
    if (!name.empty() && (name[0] != ':' || name.size() == 1 || !hasNames))
        refuse(edit.source, "a line type is followed by =, or with a and b by a colon and a name");
    if (hasValue && edit.action == Edit::Remove)
        refuse(edit.source, "what is removed has no value");
    if (!hasValue && edit.action != Edit::Remove && (edit.type != 'a' || name.empty()))
        refuse(edit.source, "= and a value are missing");
    if (edit.source.find_first_of("\r\n") != none)
        refuse(edit.source, "a value is one line");
    if (!name.empty()) {
        edit.name = name.substr(1);
        edit.value = edit.name;
        if (hasValue)
            edit.value += edit.separator() + std::string(value);
    } else {
        edit.value = value;
        if (hasNames)
            edit.name = value.substr(0, value.find(':'));
    }
}

Edit editOf(const std::string& source)
{
    Edit edit;
    edit.source = source;
    std::string_view rest = source;
    edit.action = takeAction(rest);
    takeSection(rest, edit);
    takeType(rest, edit);
    takeNameAndValue(rest, edit);
    if (edit.type == 'm' && !edit.inSection && edit.action != Edit::Add)
        refuse(source, "which section? Sections are m0, m1, ...");
    if (edit.type == 'm' && edit.inSection && edit.action == Edit::Add)
        refuse(source, "a new section goes to the end: +m=VALUE");
    return edit;
}

// Where a line of a type goes that the level does not have yet, in the order of RFC 8866.
Lines::iterator placeFor(char type, Lines& level, bool inSection)
{
    const std::string_view order = inSection ? "micbka" : "vosiuepcbtrzka";
    const auto rank = [=](char c) { return order.find(c) + 1; }; // 0 for a type without a place
    return std::find_if(level.begin(), level.end(), [&](const auto& line) { return rank(line[0]) > rank(type); });
}

void add(const Edit& edit, Lines& level)
{
    const auto last
        = std::find_if(level.rbegin(), level.rend(), [&](const auto& line) { return line[0] == edit.type; });
    level.insert(last != level.rend() ? last.base() : placeFor(edit.type, level, edit.inSection), edit.line());
}

// Whether there was anything to do.
bool apply(const Edit& edit, Lines& level)
{
    const auto isMeant = [&](const std::string& line) { return edit.matches(line); };
    const auto first = std::find_if(level.begin(), level.end(), isMeant);
    if (edit.action == Edit::Remove) {
        const bool isFound = first != level.end();
        level.erase(std::remove_if(first, level.end(), isMeant), level.end());
        return isFound;
    }
    if (edit.action == Edit::Set && first != level.end())
        *first = edit.line();
    else
        add(edit, level);
    return true;
}

bool apply(const Edit& edit, Levels& levels)
{
    if (!edit.inSection && edit.type == 'm') {
        levels.push_back({edit.line()});
        return true;
    }
    if (!edit.inSection)
        return apply(edit, levels[0]);
    const std::size_t nSections = levels.size() - 1;
    if (!edit.everywhere && edit.section >= nSections)
        return false;
    const auto begin = levels.begin() + 1 + static_cast<std::ptrdiff_t>(edit.section);
    const auto end = edit.everywhere ? levels.end() : begin + 1;
    if (edit.action == Edit::Remove && edit.type == 'm') {
        const bool isFound = begin != end;
        levels.erase(begin, end);
        return isFound;
    }
    bool isFound = false;
    for (auto level = begin; level != end; ++level)
        isFound = apply(edit, *level) || isFound;
    return isFound;
}

} // namespace

Result edit(const Description& description, const std::vector<std::string>& edits, const TextOptions& options)
{
    std::vector<Edit> todo;
    std::transform(edits.begin(), edits.end(), std::back_inserter(todo), editOf);
    requireLines(description);
    Levels levels = levelsOf(description.text);
    Status status = Success;
    for (const Edit& each : todo) {
        if (apply(each, levels))
            continue;
        complain(description.name + ": edit " + quote(each.source) + ": there is no such line or section");
        status = Found;
    }
    return {textOf(joined(levels), options.lf), status};
}

} // namespace ymsdp
