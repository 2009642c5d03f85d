#include <algorithm>
#include <map>
#include <set>

#include "commands.h"
#include "formats.h"
#include "text.h"

namespace ymsdp {

namespace {

using Names = std::vector<std::string>;
using Numbers = std::set<std::string_view>;

// "opus", "opus/48000" and "111" are names of "opus/48000/2", capitals or not.
bool isNamed(const Format& format, std::string_view name)
{
    const std::string_view mapping = format.mapping;
    return format.number == name
        || (!name.empty() && beginsWith(mapping, name)
            && (mapping.size() == name.size() || mapping[name.size()] == '/'));
}

bool isNamed(const Format& format, const Names& names)
{
    return std::any_of(names.begin(), names.end(), [&](const auto& name) { return isNamed(format, name); });
}

// The format that a retransmission format (RFC 4588) is for: 96 with "apt=96;rtx-time=200". Empty for others.
std::string_view aptOf(const Format& format)
{
    std::string_view text = format.parameters;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(';'), text.size());
        const auto parts = words(text.substr(0, end));
        if (!parts.empty() && beginsWith(parts[0], "apt="))
            return parts[0].substr(4);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return {};
}

// The formats in redundant packets (RFC 2198), "111/111". None for others.
Numbers partsOf(const Format& format)
{
    Numbers parts;
    if (!isNamed(format, "red"))
        return parts;
    std::string_view text = format.parameters;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('/'), text.size());
        parts.insert(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return parts;
}

using Formats = std::vector<Format>;

class Section {
public:
    explicit Section(Lines& lines) : lines_(lines), formats_(formatsOf(lines))
    {
        for (const Format& format : formats_)
            all_.insert(format.number);
        stay_ = all_;
    }

    bool hasAny(const Names& names) const
    {
        return std::any_of(formats_.begin(), formats_.end(),
                           [&](const auto& format) { return isNamed(format, names); });
    }

    void keep(const Names& names)
    {
        stay_.clear();
        for (const Format& format : formats_) {
            if (isNamed(format, names))
                stay_.insert(format.number);
        }
        for (const Format& format : formats_) {
            if (stay_.count(aptOf(format)) > 0)
                stay_.insert(format.number);
        }
    }

    void drop(const Names& names)
    {
        for (const Format& format : formats_) {
            if (isNamed(format, names))
                stay_.erase(format.number);
        }
    }

    // Formats that stand for others go with these: redundant ones first, for they may be retransmitted too.
    void dropOrphans()
    {
        for (const Format& format : formats_) {
            const Numbers parts = partsOf(format);
            if (std::any_of(parts.begin(), parts.end(), [&](auto part) { return isGone(part); }))
                stay_.erase(format.number);
        }
        for (const Format& format : formats_) {
            if (isGone(aptOf(format)))
                stay_.erase(format.number);
        }
    }

    bool isEmpty() const { return stay_.empty(); }

    // Writes what stays, the named formats in front in the order of their names, with their retransmissions behind.
    void write(const Names& first)
    {
        const std::vector<std::string_view> order = inOrder(first);
        const MediaLine media = mediaLineOf(lines_);
        if (order != media.formats) {
            std::string line
                = "m=" + std::string(media.type) + " " + std::string(media.port) + " " + std::string(media.transport);
            for (const std::string_view number : order)
                line.append(" ").append(number);
            *std::find_if(lines_.begin(), lines_.end(), [](const auto& l) { return isType(l, 'm'); }) = line;
        }
        lines_.erase(std::remove_if(lines_.begin(), lines_.end(), [&](const auto& line) { return isOfGone(line); }),
                     lines_.end());
    }

private:
    bool isGone(std::string_view number) const { return all_.count(number) > 0 && stay_.count(number) == 0; }

    bool isOfGone(std::string_view line) const
    {
        static const std::set<std::string_view> names = {"rtpmap", "fmtp", "rtcp-fb", "imageattr", "framesize"};
        const auto attribute = attributeOf(line);
        return attribute && names.count(attribute->name) > 0
            && isGone(attribute->value.substr(0, attribute->value.find_first_of(" \t")));
    }

    std::vector<std::string_view> inOrder(const Names& first) const
    {
        std::multimap<std::string_view, std::string_view> retransmissions;
        for (const Format& format : formats_)
            retransmissions.emplace(aptOf(format), format.number);
        std::vector<std::string_view> order;
        Numbers placed;
        const auto place = [&](std::string_view number) {
            if (stay_.count(number) > 0 && placed.insert(number).second)
                order.push_back(number);
        };
        for (const std::string& name : first) {
            for (const Format& format : formats_) {
                if (!isNamed(format, name))
                    continue;
                place(format.number);
                const auto [begin, end] = retransmissions.equal_range(format.number);
                std::for_each(begin, end, [&](const auto& entry) { place(entry.second); });
            }
        }
        for (const Format& format : formats_)
            place(format.number);
        return order;
    }

    Lines& lines_;
    Formats formats_;
    Numbers all_;  // the numbers on the media line
    Numbers stay_; // those of them that are written
};

} // namespace

Result codecs(const Description& description, const CodecsOptions& codecs, const TextOptions& options)
{
    if (codecs.keep.empty() && codecs.drop.empty() && codecs.first.empty())
        throw Trouble("codecs: --keep, --drop or --first is missing");
    requireLines(description);
    Levels levels = levelsOf(description.text);
    bool isFound = false;
    Status status = Success;
    for (std::size_t i = 1; i < levels.size(); ++i) {
        if (!mediaLineOf(levels[i]).isRtp())
            continue;
        Section section(levels[i]);
        const bool isKept = section.hasAny(codecs.keep);
        if (!isKept && !section.hasAny(codecs.drop) && !section.hasAny(codecs.first))
            continue;
        isFound = true;
        if (isKept)
            section.keep(codecs.keep);
        section.drop(codecs.drop);
        section.dropOrphans();
        if (section.isEmpty()) {
            complain(description.name + ": m" + std::to_string(i - 1)
                     + " would have no format left, and stays as it is");
            status = Found;
        } else {
            section.write(codecs.first);
        }
    }
    if (!isFound) {
        complain(description.name + ": no section has such a format");
        status = Found;
    }
    return {textOf(joined(levels), options.lf), status};
}

} // namespace ymsdp
