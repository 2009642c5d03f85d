// The pairs of a list stand in one block of memory: a head, then a slot for each pair, in their order, and from the end
// of the block towards the slots their texts. A pair that is taken out leaves a gap in both. Gaps between slots are
// closed when they become too many, those between texts when the block is full and makes way for a larger one.
#include <tovik/NamedList.h>

#include <algorithm>
#include <cstdint>
#include <new>
#include <set>
#include <stdexcept>
#include <string_view>

#include "support/NumberedPlace.h"
#include "support/view.h"

namespace ym {

namespace {

// Up to here, a walk is as fast as an index and needs no memory.
constexpr std::uint32_t shortList = 16;

// Up to so many bytes a list doubles when it grows; a longer one grows by a half.
constexpr std::size_t smallList = 256;

// No block can be longer.
constexpr std::size_t longest = ~std::size_t{0} / 2;

struct Slot {
    static constexpr std::size_t nowhere = ~std::size_t{0};

    std::size_t place;        // of the name, before the end of the block; the value follows the name
    std::uint32_t nameLength; // of a slot that is gone, the length of the gap that begins or ends here
    std::uint32_t valueLength;

    bool isGone() const { return place == nowhere; }
    std::size_t length() const { return std::size_t{nameLength} + valueLength; }
};

std::size_t sum(std::size_t a, std::size_t b)
{
    if (a > longest || b > longest - a)
        throw std::length_error("ym::NamedList: list too long");
    return a + b;
}

} // namespace

struct NamedList::Pairs {
    // The slots of a list by their names. Names come from the network. An ordered index has no bad case that chosen
    // names could bring about, and it keeps equal names in the order in which they were entered.
    struct Index {
        struct ByName {
            using is_transparent = void;

            const Index* index;

            static std::string_view name(std::string_view text) { return text; }
            std::string_view name(std::uint32_t slot) const { return index->pairs->name(slot); }
            template <class A, class B> bool operator()(const A& a, const B& b) const { return name(a) < name(b); }
        };

        explicit Index(const Pairs* p) : pairs(p), entries(ByName{this}) { }

        const Pairs* pairs;
        std::multiset<std::uint32_t, ByName> entries;
    };
    using Entry = std::multiset<std::uint32_t, Index::ByName>::iterator;

    const std::size_t room;  // of the block, behind this head
    std::size_t written = 0; // of that, by the texts
    std::uint32_t nSlots = 0;
    std::uint32_t nGone = 0;
    NumberedPlace place;
    std::unique_ptr<Index> index; // of all pairs of a long list, or null

    static std::unique_ptr<Pairs> make(std::size_t room)
    {
        return std::unique_ptr<Pairs>(::new (::operator new(sum(sizeof(Pairs), room))) Pairs(room));
    }

    // A block with room for the pairs of the other at least, and with all of them in.
    static std::unique_ptr<Pairs> copyOf(const Pairs& other, std::size_t room)
    {
        auto pairs = make(room);
        for (std::uint32_t slot = 0; slot < other.nSlots; ++slot)
            if (!other.isGone(slot))
                pairs->append(other.name(slot), other.value(slot));
        return pairs;
    }

    static void operator delete(void* block) { ::operator delete(block); }

    Slot& at(std::uint32_t slot) { return reinterpret_cast<Slot*>(this + 1)[slot]; }
    const Slot& at(std::uint32_t slot) const { return const_cast<Pairs*>(this)->at(slot); }
    bool isGone(std::uint32_t slot) const { return at(slot).isGone(); }
    std::uint32_t gapAt(std::uint32_t slot) const { return isGone(slot) ? at(slot).nameLength : 0; }

    char* text(std::size_t before) { return reinterpret_cast<char*>(this + 1) + (room - before); }
    const char* text(std::size_t before) const { return const_cast<Pairs*>(this)->text(before); }
    std::string_view name(std::uint32_t slot) const { return {text(at(slot).place), at(slot).nameLength}; }
    std::string_view value(std::uint32_t slot) const
    {
        return {text(at(slot).place) + at(slot).nameLength, at(slot).valueLength};
    }

    std::uint32_t size() const { return nSlots - nGone; }
    bool hasRoom(std::size_t more) const { return room - written - nSlots * sizeof(Slot) >= more; }

    // What a block needs that holds the pairs without gaps.
    std::size_t bytes() const
    {
        std::size_t n = 0;
        for (std::uint32_t slot = 0; slot < nSlots; ++slot)
            if (!isGone(slot))
                n += sizeof(Slot) + at(slot).length();
        return n;
    }

    std::uint32_t nGoneBefore(std::uint32_t end) const
    {
        std::uint32_t n = 0;
        for (std::uint32_t slot = 0; slot < end; ++slot)
            n += isGone(slot);
        return n;
    }

    // There must be room.
    Slot write(std::string_view name, std::string_view value)
    {
        written += name.size() + value.size();
        copy(copy(text(written), name), value);
        return {written, static_cast<std::uint32_t>(name.size()), static_cast<std::uint32_t>(value.size())};
    }

    void append(std::string_view name, std::string_view value)
    {
        ::new (&at(nSlots)) Slot(write(name, value));
        ++nSlots;
        if (index)
            enter(nSlots - 1);
    }

    // Moves the last pair before another one.
    void moveLast(std::uint32_t before)
    {
        index.reset();
        place.forget();
        const Slot last = at(nSlots - 1);
        std::copy_backward(&at(before), &at(nSlots - 1), &at(nSlots));
        at(before) = last;
    }

    std::uint32_t seek(std::uint32_t position)
    {
        return place.seek(position, nSlots, size(), [this](std::uint32_t slot) { return gapAt(slot); });
    }

    // The slot of pair number n of a name, or nSlots.
    std::uint32_t find(std::string_view name, unsigned int n)
    {
        if (nSlots > shortList && makeIndex()) {
            const Entry entry = findEntry(name, n);
            return entry == index->entries.end() ? nSlots : *entry;
        }
        for (std::uint32_t slot = 0; slot < nSlots; ++slot)
            if (at(slot).nameLength == name.size() && !isGone(slot) && this->name(slot) == name && n-- == 0)
                return slot;
        return nSlots;
    }

    // Needs room for the name and the value, unless the value is no longer than the present one.
    void overwrite(std::uint32_t slot, std::string_view value)
    {
        Slot& pair = at(slot);
        if (value.size() > pair.valueLength) {
            pair = write(name(slot), value);
            return;
        }
        copy(text(pair.place) + pair.nameLength, value);
        pair.valueLength = static_cast<std::uint32_t>(value.size());
    }

    bool remove(std::string_view name, unsigned int n)
    {
        const std::uint32_t slot = find(name, n);
        if (slot == nSlots)
            return false;
        if (index)
            index->entries.erase(findEntry(name, n));
        ++nGone;
        place.leave(
            slot, nSlots, [this](std::uint32_t at) { return gapAt(at); },
            [this](std::uint32_t end, std::uint32_t gap) {
                at(end) = {Slot::nowhere, gap, 0};
            });
        at(slot).place = Slot::nowhere;
        if (nGone > size() + shortList)
            closeGaps();
        return true;
    }

private:
    explicit Pairs(std::size_t r) : room(r) { }

    void closeGaps()
    {
        index.reset();
        place.forget();
        const auto isGone = [](const Slot& slot) { return slot.isGone(); };
        nSlots = static_cast<std::uint32_t>(std::remove_if(&at(0), &at(nSlots), isGone) - &at(0));
        nGone = 0;
    }

    // An incomplete index would deny what the list holds; rather none than that.
    bool enter(std::uint32_t slot)
    {
        try {
            index->entries.insert(slot);
            return true;
        } catch (const std::bad_alloc&) {
            index.reset();
            return false;
        }
    }

    // False if there is no memory for it.
    bool makeIndex()
    {
        if (index)
            return true;
        index.reset(new (std::nothrow) Index(this));
        for (std::uint32_t slot = 0; index && slot < nSlots; ++slot)
            if (!isGone(slot))
                enter(slot);
        return index != nullptr;
    }

    Entry findEntry(std::string_view name, unsigned int n) const
    {
        // Not equal_range, which passes all pairs of the name.
        const Entry end = index->entries.end();
        Entry entry = index->entries.lower_bound(name);
        while (entry != end && this->name(*entry) == name && n-- > 0)
            ++entry;
        return entry != end && this->name(*entry) == name ? entry : end;
    }
};

NamedList::NamedList(const char*) { }
NamedList::~NamedList() = default;

NamedList& NamedList::operator=(const NamedList& other)
{
    if (this != &other)
        pairs_ = other.lines() > 0 ? Pairs::copyOf(*other.pairs_, other.pairs_->bytes()) : nullptr;
    return *this;
}

void NamedList::clear()
{
    pairs_.reset();
}

unsigned int NamedList::lines() const
{
    return pairs_ ? pairs_->size() : 0;
}

int NamedList::exist(const String& name) const
{
    return value(name, nullptr, 0) ? 1 : 0;
}

// Whether a pair with so many bytes has no room yet.
bool NamedList::isFull(std::size_t bytes) const
{
    return !pairs_ || !pairs_->hasRoom(sizeof(Slot) + bytes);
}

// Makes room for it. The gaps between slots are closed by that.
void NamedList::makeRoom(std::size_t bytes)
{
    const std::size_t needed = sizeof(Slot) + bytes;
    if (!pairs_) {
        pairs_ = Pairs::make(needed + std::min(needed, smallList));
        return;
    }
    const std::size_t present = pairs_->bytes();
    const std::size_t spare = std::max(present / 2, std::min(present, smallList));
    auto larger = Pairs::copyOf(*pairs_, sum(sum(present, spare), needed));
    if (pairs_->nGone == 0 && pairs_->index) {
        larger->index = std::move(pairs_->index);
        larger->index->pairs = larger.get();
    }
    pairs_ = std::move(larger);
}

void NamedList::setValue(std::uint32_t slot, std::string_view value)
{
    const std::size_t bytes = sum(pairs_->name(slot).size(), value.size());
    if (value.size() > pairs_->value(slot).size() && isFull(bytes)) {
        slot -= pairs_->nGoneBefore(slot);
        makeRoom(bytes);
    }
    pairs_->overwrite(slot, value);
}

void NamedList::add(std::string_view name, std::string_view value)
{
    const std::size_t bytes = sum(name.size(), value.size());
    if (isFull(bytes))
        makeRoom(bytes);
    pairs_->append(name, value);
}

void NamedList::insert(const String& name, const String& value, int position)
{
    add(view(name), view(value));
    const std::uint32_t last = pairs_->size() - 1;
    if (position >= 0 && static_cast<unsigned int>(position) < last)
        pairs_->moveLast(pairs_->seek(static_cast<std::uint32_t>(position)));
}

bool NamedList::replace(const String& name, const String& value, unsigned int index)
{
    const std::uint32_t slot = pairs_ ? pairs_->find(view(name), index) : 0;
    if (!pairs_ || slot == pairs_->nSlots)
        return false;
    setValue(slot, view(value));
    return true;
}

void NamedList::put(std::string_view name, std::string_view value)
{
    const std::uint32_t slot = pairs_ ? pairs_->find(name, 0) : 0;
    if (!pairs_ || slot == pairs_->nSlots)
        add(name, value);
    else
        setValue(slot, value);
}

bool NamedList::remove(const String& name, unsigned int index)
{
    return pairs_ && pairs_->remove(view(name), index);
}

bool NamedList::value(const String& name, String* value, unsigned int index) const
{
    if (!pairs_)
        return false;
    const std::uint32_t slot = pairs_->find(view(name), index);
    if (slot == pairs_->nSlots)
        return false;
    if (value)
        value->assign(pairs_->value(slot));
    return true;
}

bool NamedList::get(String* name, String* value, unsigned int index) const
{
    std::string_view nameBytes;
    std::string_view valueBytes;
    if (!peek(&nameBytes, &valueBytes, index))
        return false;
    if (name)
        name->assign(nameBytes);
    if (value)
        value->assign(valueBytes);
    return true;
}

bool NamedList::peek(std::string_view* name, std::string_view* value, unsigned int index) const
{
    if (index >= lines())
        return false;
    const std::uint32_t slot = pairs_->seek(index);
    *name = pairs_->name(slot);
    *value = pairs_->value(slot);
    return true;
}

} // namespace ym
