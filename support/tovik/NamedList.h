#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include <tovik/String.h>
#include <tovik/export.h>

namespace ym {

// An ordered sequence of name/value pairs. Names may repeat and are compared exactly, with case; the pairs keep
// the order in which they were inserted, and position 0 is the oldest.
//
// Looking the first pair of a name up costs no more than the logarithm of the list's length, the others of that name a
// step each; a loop over all positions walks the list once. An operation that says "pair number `index` of a name"
// counts the pairs of that name alone, from 0. A null `String*` means that the output is not wanted; outputs are left
// alone where the result is false. Where memory runs out, std::bad_alloc passes through, and the list stays as it is;
// of two outputs the first one may be written.
class YM_EXPORT NamedList {
public:
    // An empty list. The separator has no effect on it.
    explicit NamedList(const char* separator);
    ~NamedList();

    NamedList(const NamedList&) = delete;

    // Replaces all pairs by copies of the other list's; the separator stays.
    NamedList& operator=(const NamedList& other);

    // Removes all pairs.
    void clear();

    // The number of pairs, every repeated name counted.
    unsigned int lines() const;

    // 1 if at least one pair has this name, 0 if none has.
    int exist(const String& name) const;

    // Adds a pair before the one at `position`, or behind the last one if there is no such position (-1, say).
    // An existing pair of the same name stays as it is. A pair within the list costs a step for each pair behind it.
    void insert(const String& name, const String& value, int position);

    // Changes the value of pair number `index` of a name; the pair keeps its place. False if there is no such pair.
    bool replace(const String& name, const String& value, unsigned int index);

    // Adds a pair behind the last one. The bytes must not be those that peek gave of this list.
    void add(std::string_view name, std::string_view value);

    // Changes the value of the first pair of a name, or adds a pair behind the last one if there is none. The bytes
    // must not be those that peek gave of this list.
    void put(std::string_view name, std::string_view value);

    // Removes pair number `index` of a name. False if there is no such pair.
    bool remove(const String& name, unsigned int index);

    // Copies the value of pair number `index` of a name. False if there is no such pair.
    bool value(const String& name, String* value, unsigned int index) const;

    // Copies the name and the value of the pair at position `index` of the whole list. False behind the last pair.
    bool get(String* name, String* value, unsigned int index) const;

    // The same without copies: the bytes stay the list's, until it next changes, and no NUL stands behind them.
    bool peek(std::string_view* name, std::string_view* value, unsigned int index) const;

private:
    struct Pairs;

    YM_HIDDEN void makeRoom(std::size_t bytes);
    YM_HIDDEN bool isFull(std::size_t bytes) const;
    YM_HIDDEN void setValue(std::uint32_t slot, std::string_view value);

    std::unique_ptr<Pairs> pairs_; // null until something is inserted
};

} // namespace ym
