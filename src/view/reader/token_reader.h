// The tokens of the view language, read straight from a NUL-terminated text. Blanks (space, tab, CR, LF) may
// stand before any token; there are no comments and no reserved words. All text is bytes.
#pragma once

#include "view/reader/byte_class.h"
#include "view/reader/reader_state.h"
#include "view/scope/scope_hooks.h"
#include "view/scope/scope_name.h"

#include <cstdint>
#include <string_view>

namespace brixen::zeve {

// The base of the readers. A Read... function takes its construct and returns true, or returns false; who has
// another alternative to try returns to where it stood before.
class TokenReader {
protected:
    explicit TokenReader(ScopeParseObserver* parseObserver) : observer(parseObserver) {}
    ~TokenReader() = default;

    // A position between two tokens: the end of the one, the begin of the other, and blanks between them.
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
    // integer := digit { digit }, wrapping at 32 bits, so that 2147483648 is -2147483648: meant.
    bool ReadInteger(std::int64_t& value);
    // quoted := "'" { any byte but "'" } "'"
    bool ReadQuoted(std::string_view& text);

    // Reads another text, with marks that nobody looks at, for as long as it lives.
    class OtherText {
    public:
        OtherText(TokenReader& itsReader, const char* text)
            : reader(itsReader), outerPlace(itsReader.place), outerMarks(itsReader.marks) {
            reader.StartText(text, marks);
        }
        ~OtherText() {
            reader.place = outerPlace;
            reader.marks = outerMarks;
        }
        OtherText(const OtherText&) = delete;
        OtherText& operator=(const OtherText&) = delete;

    private:
        TokenReader& reader;
        Place outerPlace;
        HighWaterMarks* outerMarks;
        HighWaterMarks marks;
    };

    char Next() const { return *place.next; }
    bool NextIs(char first) const { return *place.next == first; }
    bool NextIs(char first, char second) const { return place.next[0] == first && place.next[1] == second; }
    bool IsAtIdentifier() const { return BeginsIdentifier(Next()); }
    bool IsAtDigit() const { return IsDigit(Next()); }

    // Takes a mark of one or two bytes that NextIs has seen.
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

    // Ends a production that was read; `begin` is its first byte.
    void Done(ScopeProduction code, const char* begin) {
        if (place.end > marks->completed) {
            marks->completed = place.end;
        }
        if (observer) [[unlikely]] {
            // What is empty begins where the token before it ends.
            observer->OnProduction(code, begin < place.end ? begin : place.end, place.end);
        }
    }
    // Both end a production that cannot go on here.
    bool Fail() {
        if (place.next > marks->failed) {
            marks->failed = place.next;
        }
        return false;
    }
    bool Fail(const Place& start) {
        Fail();
        ReturnTo(start);
        return false;
    }

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
};

} // namespace brixen::zeve
