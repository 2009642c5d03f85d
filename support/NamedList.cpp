#include <tovik/NamedList.h>

#include <list>
#include <map>
#include <string_view>

#include "support/NumberedPlace.h"
#include "support/view.h"

namespace ym {

namespace {

struct Pair {
    String name;
    String value;

    Pair(const String& n, const String& v) : name(n), value(v) { }
};

using List = std::list<Pair>;

// Names come from the network. An ordered index has no bad case that chosen names could bring about, and it
// keeps equal names in the order in which they were entered.
using Index = std::multimap<std::string_view, List::iterator>;

// Up to here, a walk is as fast as an index and needs no memory.
constexpr std::size_t shortList = 16;

void put(String* out, const String& text)
{
    if (out)
        *out = text;
}

} // namespace

struct NamedList::Pairs {
    List list;
    Index index; // all pairs of a long list, or nothing
    NumberedPlace<List> place;

    void insert(List::iterator before, const String& name, const String& value)
    {
        const bool atEnd = before == list.end();
        const auto added = list.emplace(before, name, value);
        if (atEnd && !index.empty()) {
            enter(added);
            return;
        }
        index.clear();
        if (!atEnd)
            place.forget();
    }

    // Pair number n of a name, or the end of the list.
    List::iterator find(const String& name, unsigned int n)
    {
        if (list.size() > shortList) {
            const Index::iterator entry = findEntry(name, n);
            return entry == index.end() ? list.end() : entry->second;
        }
        for (auto at = list.begin(); at != list.end(); ++at)
            if (view(at->name) == view(name) && n-- == 0)
                return at;
        return list.end();
    }

    bool remove(const String& name, unsigned int n)
    {
        const List::iterator gone = find(name, n);
        if (gone == list.end())
            return false;
        if (!index.empty())
            index.erase(findEntry(name, n));
        place.leave(list, gone);
        list.erase(gone);
        return true;
    }

private:
    void enter(List::iterator at)
    {
        try {
            index.emplace(view(at->name), at);
        } catch (...) {
            index.clear(); // an incomplete index would deny what the list holds
            throw;
        }
    }

    Index::iterator findEntry(const String& name, unsigned int n)
    {
        if (index.empty())
            for (auto at = list.begin(); at != list.end(); ++at)
                enter(at);
        auto [entry, end] = index.equal_range(view(name));
        while (entry != end && n-- > 0)
            ++entry;
        return entry == end ? index.end() : entry;
    }
};

NamedList::NamedList(const char* separator) : separator_(separator) { }
NamedList::~NamedList() = default;

NamedList& NamedList::operator=(const NamedList& other)
{
    if (this == &other)
        return *this;
    clear();
    if (other.pairs_)
        for (const Pair& pair : other.pairs_->list)
            insert(pair.name, pair.value, -1);
    return *this;
}

void NamedList::clear()
{
    pairs_.reset();
}

unsigned int NamedList::lines() const
{
    return pairs_ ? static_cast<unsigned int>(pairs_->list.size()) : 0;
}

int NamedList::exist(const String& name) const
{
    return value(name, nullptr, 0) ? 1 : 0;
}

void NamedList::insert(const String& name, const String& value, int position)
{
    if (!pairs_)
        pairs_ = std::make_unique<Pairs>();
    const bool within = position >= 0 && static_cast<unsigned int>(position) < lines();
    pairs_->insert(within ? pairs_->place.seek(pairs_->list, static_cast<unsigned int>(position)) : pairs_->list.end(),
                   name, value);
}

bool NamedList::replace(const String& name, const String& value, unsigned int index)
{
    if (!pairs_)
        return false;
    const auto pair = pairs_->find(name, index);
    if (pair == pairs_->list.end())
        return false;
    pair->value = value;
    return true;
}

bool NamedList::remove(const String& name, unsigned int index)
{
    return pairs_ && pairs_->remove(name, index);
}

bool NamedList::value(const String& name, String* value, unsigned int index) const
{
    if (!pairs_)
        return false;
    const auto pair = pairs_->find(name, index);
    if (pair == pairs_->list.end())
        return false;
    put(value, pair->value);
    return true;
}

bool NamedList::get(String* name, String* value, unsigned int index) const
{
    if (index >= lines())
        return false;
    const auto pair = pairs_->place.seek(pairs_->list, index);
    put(name, pair->name);
    put(value, pair->value);
    return true;
}

} // namespace ym
