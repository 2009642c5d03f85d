#include "sdp/line/SDPDesc_impl.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>

#include "sdp/line/text.h"
#include "support/view.h"

namespace ym::SDP {

using Impl = SDPDesc::SDPDesc_impl;

const char Impl::order_session[16] = "vosiuepcbzktram";
const char Impl::order_time[3] = "tr";
const char Impl::order_media[7] = "micbka";
int Impl::revorder_session[128];
int Impl::revorder_time[128];
int Impl::revorder_media[128];
bool Impl::init = false;

namespace {

void fillRanks(const char* order, int* ranks, std::size_t size)
{
    std::fill_n(ranks, size, -1);
    for (std::size_t i = 0; i < std::strlen(order); ++i)
        ranks[static_cast<unsigned char>(order[i])] = static_cast<int>(i);
}

} // namespace

Impl::SDPDesc_impl() : lines(NodeAllocator<String>(&nodes_))
{
    if (init)
        return;
    fillRanks(order_session, revorder_session, std::size(revorder_session));
    fillRanks(order_time, revorder_time, std::size(revorder_time));
    fillRanks(order_media, revorder_media, std::size(revorder_media));
    init = true;
}

int Impl::rank(const int* order, char type)
{
    const auto index = static_cast<unsigned char>(type);
    return index < std::size(revorder_session) ? order[index] : -1;
}

// Walks

Impl::Position Impl::skip_until_attribute(Position position, int n, char type)
{
    int counted = 0;
    for (; position != lines.end(); ++position) {
        if (typeOf(*position) == type) {
            if (n < ++counted)
                return position;
        } else if (typeOf(*position) == 'm') {
            return lines.end();
        }
    }
    return position;
}

Impl::Position Impl::skip_until_mediadesc(Position position, int n)
{
    return skip_until_attribute(position, n, 'm');
}

void Impl::findSections()
{
    if (sectionsKnown_)
        return;
    sections_.clear();
    nGone_ = 0;
    for (auto at = skip_until_mediadesc(lines.begin(), 0); at != lines.end(); at = skip_until_mediadesc(++at, 0))
        sections_.push_back(at);
    sectionsKnown_ = true;
}

int Impl::nSections()
{
    findSections();
    return static_cast<int>(sections_.size() - nGone_);
}

Impl::Position Impl::section(int number)
{
    number = std::max(number, 0);
    return number < nSections() ? sections_[nGone_ + static_cast<std::size_t>(number)] : lines.end();
}

Impl::Position Impl::levelEnd(int section)
{
    return section < nSections() ? this->section(section + 1) : lines.end();
}

Impl::Position Impl::inside(int section)
{
    if (section == session)
        return lines.begin();
    const Position head = this->section(section);
    return head == lines.end() ? head : std::next(head);
}

Impl::Position Impl::find(int section, char type)
{
    if (section != session && type == 'm')
        return this->section(section);
    return skip_until_attribute(inside(section), 0, type);
}

Impl::Position Impl::findBehind(int section, char type)
{
    const int last = notes(type).lastSection;
    Position at = last >= session && last < section ? lines.end() : this->section(section);
    while (at != lines.end() && typeOf(*at) != type)
        ++at;
    if (at == lines.end())
        lastSection(type); // so that a loop over all sections learns once that there is nothing to find
    return at;
}

int Impl::lastSection(char type)
{
    int& last = notes(type).lastSection;
    if (last >= session)
        return last;
    int section = session;
    int found = session;
    for (const String& line : lines) {
        if (typeOf(line) == 'm')
            ++section;
        if (typeOf(line) == type)
            found = section;
    }
    return last = found;
}

// Runs

Impl::Notes& Impl::notes(char type)
{
    for (Notes& notes : notes_)
        if (notes.type == type)
            return notes;
    notes_.emplace_back(type);
    return notes_.back();
}

Impl::Run& Impl::run(int section, char type)
{
    Run& run = section == session ? sessionRun_ : notes(type).run;
    if (run.section != section) {
        run = Run();
        run.section = section;
    }
    return run;
}

Impl::Position Impl::numbered(int section, int n, char type)
{
    if (n < 0)
        return lines.end();
    Run& run = this->run(section, type);
    if (run.n < 0) {
        run.line = skip_until_attribute(inside(section), 0, type);
        run.n = 0;
    }
    if (run.line == lines.end())
        return lines.end();
    for (; run.n > n; --run.n)
        --run.line;
    for (; run.n < n; ++run.n) {
        const Position next = std::next(run.line);
        if (next == lines.end() || typeOf(*next) != type)
            return lines.end();
        run.line = next;
    }
    return run.line;
}

int Impl::count(int section, char type)
{
    Run& run = this->run(section, type);
    const auto isOfType = [type](const String& line) { return typeOf(line) == type; };
    if (run.count < 0)
        run.count = static_cast<int>(std::count_if(inside(section), levelEnd(section), isOfType));
    return run.count;
}

int Impl::countNamed(int section, const String& name, char type)
{
    int n = 0;
    for (Position at = numbered(section, 0, type); at != lines.end() && typeOf(*at) == type; ++at)
        n += hasValue(view(*at)) && isText(cut(valueOf(view(*at))).name, name.chars());
    return n;
}

void Impl::setNumbered(int section, int n, String line, char type)
{
    // A look-up of a number that is not there stops at the last line of the run.
    const Position at = numbered(section, n < 0 ? std::numeric_limits<int>::max() : n, type);
    if (at != lines.end()) {
        *at = std::move(line);
        return;
    }
    Run known = run(section, type);
    const bool empty = known.line == lines.end();
    const bool hasLevel = section < nSections(); // asked before the change, since it may need memory
    const Position added = insert(empty ? levelEnd(section) : std::next(known.line), std::move(line));
    if (type == 'm' || typeOf(*added) != type || !hasLevel)
        return;
    known.n = empty ? 0 : known.n + 1;
    known.line = added;
    known.count += known.count >= 0;
    run(section, type) = known;
}

int Impl::removeNumbered(int section, int n, char type)
{
    const Position at = numbered(section, n, type);
    if (at == lines.end())
        return -1;
    Run known = run(section, type);
    const Position next = std::next(at);
    const bool followed = next != lines.end() && typeOf(*next) == type;
    const Position left = followed ? next : n > 0 ? std::prev(at) : lines.end();
    known.line = left;
    known.n = followed ? n : n - 1; // -1 if none of the run is left
    known.count -= known.count > 0;
    erase(at);
    if (type != 'm' && left != lines.end())
        run(section, type) = known;
    return 0;
}

int Impl::removeBehind(int section, char type)
{
    const Position own = find(section, type);
    const Position gone = own == lines.end() ? findBehind(section, type) : own;
    if (gone == lines.end())
        return -1;
    const int last = notes(type).lastSection;
    erase(gone);
    if (own != lines.end() && last > section)
        notes(type).lastSection = last; // that is the section of another line
    return 0;
}

// Changes

// One byte more, for the NUL behind a last line without a line end.
Impl::Text::Text(const String& text) : bytes(new char[text.length() + std::size_t{1}]), length(text.length())
{
    std::memcpy(bytes.get(), text.chars(), length);
}

String Impl::Text::line(const char* at, unsigned int n) const
{
    char* const begin = bytes.get();
    if (std::less<>()(at, begin) || std::less<>()(begin + length, at)) {
        String copy;
        copy.append(at, n);
        return copy;
    }
    begin[at - begin + n] = '\0'; // over the line end, which is read already
    return String::inPlace(at, n);
}

void Impl::append(Lines added, Text text)
{
    if (added.empty())
        return;
    texts_.push_back(std::move(text));
    forget();
    lines.splice(lines.end(), added);
}

void Impl::place(Position first, Position last, const int* order, String line)
{
    const int newRank = rank(order, typeOf(line));
    while (first != last && rank(order, typeOf(*first)) < newRank)
        ++first;
    if (first == last || rank(order, typeOf(*first)) != newRank) {
        insert(first, std::move(line));
        return;
    }
    if (typeOf(*first) != typeOf(line))
        forget(); // types without a rank count as equal
    *first = std::move(line);
}

Impl::Position Impl::insert(Position before, String line)
{
    const bool isNewSection = typeOf(line) == 'm';
    const bool known = sectionsKnown_ && (!isNewSection || before == lines.end());
    sectionsKnown_ = false; // until all is in
    if (known && isNewSection)
        sections_.push_back(before); // which may fail, like the next step; what follows may not
    const Position added = lines.insert(before, std::move(line));
    forgetType(typeOf(*added));
    if (known && isNewSection)
        sections_.back() = added;
    sectionsKnown_ = known;
    return added;
}

void Impl::erase(Position line)
{
    const char type = typeOf(*line);
    sectionsKnown_ = sectionsKnown_ && type != 'm';
    lines.erase(line);
    forgetType(type);
    if (lines.empty())
        clear(); // which gives their memory back
}

void Impl::eraseSection(int number)
{
    lines.erase(section(number), levelEnd(number));
    if (number == 0)
        ++nGone_; // so that removing all of them, one by one, does not move the others each time
    else
        sections_.erase(sections_.begin() + static_cast<std::ptrdiff_t>(nGone_) + number);
    forgetType('m');
    if (lines.empty())
        clear();
}

void Impl::clear()
{
    lines.clear();
    nodes_.release();
    texts_.clear();
    forget();
}

void Impl::forget()
{
    sectionsKnown_ = false;
    forgetType('m');
}

// A line that comes or goes may part the runs of other types, but there are as many of their lines as before.
void Impl::forgetType(char type)
{
    if (type == 'm') {
        sessionRun_ = Run();
        notes_.clear();
        return;
    }
    sessionRun_.n = -1;
    if (type == 'a')
        sessionRun_ = Run();
    for (Notes& notes : notes_) {
        notes.run.n = -1;
        if (notes.type == type)
            notes = Notes(type);
    }
}

} // namespace ym::SDP
