// The tokens of the view language, read straight from a NUL-terminated text. Blanks (space, tab, CR, LF) may
// precede any token. There are no comments and no reserved words. All text is bytes.
#pragma once

#include "view/reader/byte_class.h"
#include "view/reader/reader_state.h"
#include "view/scope/scope_hooks.h"
#include "view/scope/scope_name.h"

#include <cstdint>
#include <string_view>

namespace brixen::zeve {

// The base of the readers. A Read... function takes its construct and returns true, or returns false and may
// leave the reader anywhere; a caller with another alternative returns to the place before.
class TokenReader {
protected:
    explicit TokenReader(ScopeParseObserver* parseObserver) : observer(parseObserver) {}
    ~TokenReader() = default;

    // A position between two tokens: the end of the one, the begin of the other, only blanks between them.
    struct Place {
        const char* end;
        const char* next;
    };

    struct Identifier {
        std::string_view text;
        std::uint32_t hash = 0;
        ScopeName Name() const { return {text, hash}; }
    };

    void StartText(const char* text, HighWaterMarks& itsMarks) {
        marks = &itsMarks;
        *marks = {text, text};
        Advance(text);
    }

    // identifier := letter-or-underscore { letter-or-underscore-or-digit }
    bool ReadIdentifier(Identifier& identifier);
    // integer := digit { digit }
    //
    // Kept: wraps at 32 bits, so that 2147483648 is -2147483648.
    bool ReadInteger(std::int64_t& value);
    // quoted := "'" { any byte but "'" } "'"
    bool ReadQuoted(std::string_view& text);

    // Reads another text while it lives, with marks of its own. `begin` is that of the `eval`.
    class OtherText {
    public:
        OtherText(TokenReader& itsReader, const char* text, const char* begin)
            : reader(itsReader), outerPlace(itsReader.place), outerMarks(itsReader.marks),
              outerEval(itsReader.eval) {
            reader.eval = reader.InDescription(begin);
            reader.StartText(text, marks);
        }
        ~OtherText() {
            reader.place = outerPlace;
            reader.marks = outerMarks;
            reader.eval = outerEval;
        }
        OtherText(const OtherText&) = delete;
        OtherText& operator=(const OtherText&) = delete;

    private:
        TokenReader& reader;
        Place outerPlace;
        HighWaterMarks* outerMarks;
        const char* outerEval;
        HighWaterMarks marks;
    };

    char Next() const { return *place.next; }
    bool NextIs(char first) const { return *place.next == first; }
    bool NextIs(char first, char second) const { return place.next[0] == first && place.next[1] == second; }
    bool IsAtIdentifier() const { return BeginsIdentifier(Next()); }
    bool IsAtDigit() const { return IsDigit(Next()); }

    // Takes one or two bytes that NextIs has seen.
    void Skip(int length) { Advance(place.next + length); }
    bool Take(char mark) {
        if (!NextIs(mark)) {
            return Fail();
        }
        Skip(1);
        return true;
    }

    const Place& Here() const { return place; }
    void ReturnTo(const Place& earlier) { place = earlier; }

    // Ends a production that was read. `begin` is its first byte.
    void Done(ScopeProduction code, const char* begin) {
        if (place.end > marks->completed) {
            marks->completed = place.end;
        }
        if (observer) [[unlikely]] {
            // An empty production begins where the token before it ends.
            observer->OnProduction(code, begin < place.end ? begin : place.end, place.end);
        }
    }
    // Ends a production that cannot go on here. Returns false.
    bool Fail() {
        if (place.next > marks->failed) {
            marks->failed = place.next;
        }
        return false;
    }
    // The same, and returns to the start of the production.
    bool Fail(const Place& start) {
        Fail();
        ReturnTo(start);
        return false;
    }

    // Returns the position of `at` in the description: that of the outermost `eval` inside an evaluated text.
    const char* InDescription(const char* at) const { return eval ? eval : at; }
    // Notes the construct that is computed next, for the message in case it throws.
    void Locate(const char* begin) { located = InDescription(begin); }
    const char* Located() const { return located; }

    ScopeParseObserver* const observer;

private:
    void Advance(const char* end) {
        const char* next = end;
        while (IsBlank(*next)) {
            ++next;
        }
        place = {end, next};
    }

    Place place{};
    HighWaterMarks* marks = nullptr;
    const char* eval = nullptr; // the outermost `eval` in the description; null outside of one
    const char* located = nullptr;
};

} // namespace brixen::zeve
