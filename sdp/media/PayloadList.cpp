#include "sdp/media/PayloadList.h"

#include <utility>

#include "sdp/media/SDPMediaPayload_impl.h"

namespace ym::SDP {

namespace {

constexpr unsigned int shortList = 64;

unsigned short numberOf(const SDPMediaPayload& payload)
{
    return payload.state().payloadNo.get();
}

} // namespace

SDPMediaPayload* PayloadList::find(unsigned short number)
{
    return size() > shortList ? findByIndex(number) : findByWalk(number);
}

SDPMediaPayload* PayloadList::findByWalk(unsigned short number)
{
    asAdded_ = asAdded_ && !renumbered_;
    if (asAdded_ && !seen_[number % seen_.size()])
        return nullptr;
    const unsigned int n = size();
    const unsigned int first = asAdded_ && lastFound_ < n ? lastFound_ : 0;
    for (unsigned int i = 0; i < n; ++i) {
        const unsigned int index = first + i < n ? first + i : first + i - n;
        SDPMediaPayload* const payload = at(index);
        if (numberOf(*payload) == number) {
            lastFound_ = index;
            return payload;
        }
    }
    return nullptr;
}

SDPMediaPayload* PayloadList::findByIndex(unsigned short number)
{
    if (!numbers_ || renumbered_) {
        auto numbers = std::make_unique<Numbers>();
        numbers->reserve(size());
        for (SDPMediaPayload& payload : payloads_)
            numbers->emplace(numberOf(payload), &payload);
        numbers_ = std::move(numbers);
        asAdded_ = asAdded_ && !renumbered_;
        renumbered_ = false;
    }
    const auto found = numbers_->find(number);
    return found == numbers_->end() ? nullptr : found->second;
}

// The payload itself, out of this list if it is in.
std::unique_ptr<SDPMediaPayload> PayloadList::takeOver(SDPMediaPayload* payload)
{
    if (!payload->state().payloadNo.isWatchedBy(&renumbered_))
        return std::unique_ptr<SDPMediaPayload>(payload);
    numbers_.reset();
    return payloads_.take(payload);
}

void PayloadList::add(SDPMediaPayload* payload)
{
    std::unique_ptr<SDPMediaPayload> added = takeOver(payload);
    const unsigned short number = numberOf(*payload);
    SDPMediaPayload* const replaced = find(number);
    const bool isIndexed = numbers_ && !renumbered_ && numbers_->size() == size();
    std::unique_ptr<Numbers> numbers = std::move(numbers_); // away until it is right again
    if (replaced)
        payloads_.take(replaced);
    added->state().payloadNo.watch(&renumbered_);
    payloads_.add(std::move(added));
    seen_.set(number % seen_.size());
    if (!isIndexed)
        return;
    numbers->insert_or_assign(number, payload);
    numbers_ = std::move(numbers);
}

void PayloadList::copy(const PayloadList& other)
{
    renumbered_ = true; // they are not added one after the other
    payloads_.copy(other.payloads_, [this](SDPMediaPayload& copy) { copy.state().payloadNo.watch(&renumbered_); });
}

} // namespace ym::SDP
