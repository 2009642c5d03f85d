#include <sdpcheck/report.h>

#include <algorithm>
#include <utility>

#include <sdp/SDPDescEx.h>

#include "check/forms.h"
#include "check/kinds.h"
#include "check/section.h"
#include "check/session.h"

namespace ym::sdpcheck {

namespace {

using SDP::SDPDescEx;
using SDP::SDPMedia;

// The lines without those for which the text is refused.
Lines readable(const Lines& lines, Findings& findings)
{
    Lines result;
    bool isInSession = true;
    bool hasOrigin = false;
    for (const Line& line : lines) {
        const Kind* refused = whyRefused(line);
        if (!refused && line.type() == 'o' && isInSession && !hasOrigin) {
            refused = matches(form::origin, line.value()) ? nullptr : &kind::malformedOrigin;
            hasOrigin = true;
        }
        if (refused) {
            findings.add(line, *refused);
            continue;
        }
        isInSession = isInSession && line.type() != 'm';
        result.push_back(line);
    }
    return result;
}

String joined(const Lines& lines)
{
    String text;
    for (const Line& line : lines)
        text.append(line.text.data(), static_cast<unsigned int>(line.text.size())).append("\n");
    return text;
}

// The sections of the objects, in the order of the text.
class Sections {
public:
    explicit Sections(SDPDescEx& objects) : objects_(objects) { }

    // The next one, by its "m=" line, which is that of a known type, and its place among all that are written.
    std::pair<SDPMedia*, std::size_t> next(const Line& media)
    {
        const std::string_view type = media.value();
        const unsigned int before = objects_.nMediaAudio();
        if (type[0] == 'v')
            return numbered(&SDPDescEx::mediaVideo, video_++, before);
        if (type[1] == 'u')
            return numbered(&SDPDescEx::mediaAudio, audio_++, 0);
        return numbered(&SDPDescEx::mediaApplication, application_++, before + objects_.nMediaVideo());
    }

private:
    std::pair<SDPMedia*, std::size_t> numbered(SDPMedia* (SDPDescEx::*list)(unsigned int), unsigned int n,
                                               std::size_t before)
    {
        return {(objects_.*list)(n), before + n};
    }

    SDPDescEx& objects_;
    unsigned int audio_ = 0;
    unsigned int video_ = 0;
    unsigned int application_ = 0;
};

void checkSections(Lines::const_iterator begin, Lines::const_iterator end, SDPDescEx& objects, Findings& findings)
{
    Sections sections(objects);
    std::size_t nSections = 0;
    while (begin != end) {
        const auto next = std::find_if(begin + 1, end, [](const Line& line) { return line.type() == 'm'; });
        if (const Kind* lost = whySectionLost(*begin)) {
            findings.add(*begin, *lost);
            if (begin + 1 != next)
                findings.addAll(begin[1], next[-1].number, kind::inLostSection);
        } else {
            const auto [media, place] = sections.next(*begin);
            checkSection({begin, next}, *media, findings);
            if (place != nSections++)
                findings.add(*begin, kind::regrouped);
        }
        begin = next;
    }
}

} // namespace

std::vector<Finding> report(std::string_view text)
{
    Findings findings;
    const Lines lines = readable(linesOf(text), findings);
    SDPDescEx objects;
    String written;
    objects.parse(joined(lines));
    objects.generate(&written);
    const auto media = std::find_if(lines.begin(), lines.end(), [](const Line& line) { return line.type() == 'm'; });
    checkSession({lines.begin(), media}, viewOf(written), findings);
    checkSections(media, lines.end(), objects, findings);
    return std::move(findings).inOrder();
}

} // namespace ym::sdpcheck
