#include "sdp/media/PayloadList.h"

#include <new>
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
    return size() > shortList && makeIndex() ? findByIndex(number) : findByWalk(number);
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

// False if there is no memory for it.
bool PayloadList::makeIndex()
{
    if (numbers_ && !renumbered_)
        return true;
    try {
        auto numbers = std::make_unique<Numbers>();
        numbers->reserve(size());
        for (SDPMediaPayload& payload : payloads_)
            numbers->emplace(numberOf(payload), &payload);
        numbers_ = std::move(numbers);
    } catch (const std::bad_alloc&) {
        return false;
    }
    asAdded_ = asAdded_ && !renumbered_;
    renumbered_ = false;
    return true;
}

// An index that lacks a payload would deny what the list holds; rather none than that.
void PayloadList::enter(unsigned short number, SDPMediaPayload* payload)
{
    try {
        numbers_->insert_or_assign(number, payload);
    } catch (const std::bad_alloc&) {
        numbers_.reset();
    }
}

SDPMediaPayload* PayloadList::findByIndex(unsigned short number)
{
    const auto found = numbers_->find(number);
    return found == numbers_->end() ? nullptr : found->second;
}

// The payload itself, out of this list if it is in. There is room to add it then.
std::unique_ptr<SDPMediaPayload> PayloadList::takeOver(SDPMediaPayload* payload)
{
    const bool isIn = payload->state().payloadNo.isWatchedBy(&renumbered_);
    std::unique_ptr<SDPMediaPayload> taken(isIn ? nullptr : payload);
    payloads_.makeRoom();
    if (isIn) {
        numbers_.reset();
        taken = payloads_.take(payload);
    }
    return taken;
}

void PayloadList::add(SDPMediaPayload* payload)
{
    std::unique_ptr<SDPMediaPayload> added = takeOver(payload);
    const unsigned short number = numberOf(*payload);
    SDPMediaPayload* const replaced = find(number);
    if (renumbered_ || (numbers_ && numbers_->size() != size()))
        numbers_.reset(); // of payloads with equal numbers, another one would come first
    if (replaced)
        payloads_.take(replaced);
    added->state().payloadNo.watch(&renumbered_);
    payloads_.add(std::move(added));
    seen_.set(number % seen_.size());
    if (numbers_)
        enter(number, payload);
}

void PayloadList::copy(const PayloadList& other)
{
    renumbered_ = true; // they are not added one after the other
    payloads_.copy(other.payloads_, [this](SDPMediaPayload& copy) { copy.state().payloadNo.watch(&renumbered_); });
}

} // namespace ym::SDP
