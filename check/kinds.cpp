#include "check/kinds.h"

namespace ym::sdpcheck {

const std::vector<const Kind*>& kinds()
{
    using namespace kind;
    static const std::vector<const Kind*> all = {&unknownType,
                                                 &noLine,
                                                 &blankLine,
                                                 &malformedOrigin,
                                                 &repeatedLine,
                                                 &malformedConnection,
                                                 &unknownConnection,
                                                 &malformedBandwidth,
                                                 &noBandwidth,
                                                 &thirdBandwidth,
                                                 &malformedKey,
                                                 &unknownKeyMethod,
                                                 &malformedTime,
                                                 &emptyValue,
                                                 &sessionLineInSection,
                                                 &unreadInSection,
                                                 &brokenRun,
                                                 &malformedMedia,
                                                 &portCount,
                                                 &noFormat,
                                                 &unknownMedia,
                                                 &inLostSection,
                                                 &malformedMapping,
                                                 &malformedParameters,
                                                 &unlistedFormat,
                                                 &repeatedMapping,
                                                 &repeatedAttribute,
                                                 &noFormatForAttribute,
                                                 &defaultDirection,
                                                 &repeatedDirection,
                                                 &tooLarge,
                                                 &noNumber,
                                                 &formatNoNumber,
                                                 &repeatedFormat,
                                                 &unknownOriginType,
                                                 &connectionTail,
                                                 &mergedParameters,
                                                 &rateFromParameter,
                                                 &nulByte,
                                                 &spelling,
                                                 &regrouped,
                                                 &attributeBeforeMapping,
                                                 &attributeOfOther,
                                                 &defaultVersion,
                                                 &defaultOrigin,
                                                 &defaultName,
                                                 &defaultTime};
    return all;
}

const char* word(Outcome outcome)
{
    switch (outcome) {
    case Outcome::refused:
        return "refused";
    case Outcome::lost:
        return "lost";
    case Outcome::changed:
        return "changed";
    case Outcome::moved:
        return "moved";
    default:
        return "invented";
    }
}

const char* word(Severity severity)
{
    return severity == Severity::error ? "error" : severity == Severity::warning ? "warning" : "note";
}

} // namespace ym::sdpcheck
