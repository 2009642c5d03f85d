#pragma once

#include <bitset>
#include <memory>
#include <unordered_map>

#include <sdp/SDPMediaPayload.h>

#include "sdp/media/OwnedList.h"

namespace ym::SDP {

// The payload formats of a media section, and how they are found by their numbers, which may change at any time.
//
// It must not be moved while it holds payloads: they know where to tell that their number changed.
class PayloadList {
public:
    using iterator = OwnedList<SDPMediaPayload>::iterator;

    iterator begin() const { return payloads_.begin(); }
    iterator end() const { return payloads_.end(); }
    unsigned int size() const { return payloads_.size(); }

    // Makes room for so many payloads in all.
    void reserve(unsigned int n) { payloads_.reserve(n); }

    // The payload at a position, or null.
    SDPMediaPayload* at(unsigned int index) { return payloads_.at(index); }

    // The first payload of a number, or null. Needs no memory, though a long list is faster with some.
    SDPMediaPayload* find(unsigned short number);

    // Adds a payload at the end and takes it over, also if it is in the list already. The first one that has its number
    // is destroyed. Where memory runs out, the list stays as it is, and a payload that is not in it is destroyed.
    void add(SDPMediaPayload* payload);

    // Adds copies of all payloads of another list.
    void copy(const PayloadList& other);

private:
    using Numbers = std::unordered_map<unsigned short, SDPMediaPayload*>;

    SDPMediaPayload* findByWalk(unsigned short number);
    SDPMediaPayload* findByIndex(unsigned short number);
    bool makeIndex();
    void enter(unsigned short number, SDPMediaPayload* payload);
    std::unique_ptr<SDPMediaPayload> takeOver(SDPMediaPayload* payload);

    OwnedList<SDPMediaPayload> payloads_;
    bool renumbered_ = false; // set by the payloads when their number changes: numbers_ may be wrong

    // As long as no number ever changed, all are different, and a short list makes use of that.
    bool asAdded_ = true;
    unsigned int lastFound_ = 0; // lines of the same number and of the next one are likely to follow
    std::bitset<128> seen_;      // where a number is not in, modulo 128, a short list does not have it

    // The first payload of each number, for lists that are too long to be walked for every line that names a number.
    std::unique_ptr<Numbers> numbers_;
};

} // namespace ym::SDP
