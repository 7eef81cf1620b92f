// Checks of what a user has typed, and what a service gets of it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

// Whether a unit is a blank of any width, a control character, or a mark that changes the direction of text.
[[nodiscard]] bool IsBlankOrControl(char16_t unit);

// Returns the text without the blanks and control characters at its ends.
[[nodiscard]] std::u16string_view Trimmed(std::u16string_view text);

// Whether it may be a mail address: one `@` after a name of at most 64 units, a host with a period inside, no
// blanks, at most 254 units.
[[nodiscard]] bool IsMailAddress(std::u16string_view text);

// Whether it is 1 to 40 letters, digits and `-` of ASCII.
[[nodiscard]] bool IsSerialNumber(std::u16string_view text);

// Whether it can be the name of a proxy server: ASCII without blanks, control characters and `@/;=\`, and
// with a colon only in the brackets of a numeric address.
[[nodiscard]] bool IsHostName(std::u16string_view text);

// Returns the text as a service takes it: lines end with a line feed, tabs stay, all other control characters
// and everything that markup cannot hold are gone. Half a surrogate pair becomes the replacement character.
[[nodiscard]] std::u16string SendableText(std::u16string_view text);

// The same on one line: a blank takes the place of each tab and line break, none are at the ends.
[[nodiscard]] std::u16string SendableLine(std::u16string_view text);

// Returns a name of other origin, such as that of the host in its own file, as pages show it and a service
// takes it: one line of at most 128 units, with U+FFFD in place of what is no UTF-8 and of every character
// that would hide or change the direction of text.
[[nodiscard]] std::string SendableName(std::string_view name);

// Returns the port that a text of digits alone names, 1 to 65535. There may be blanks at its ends.
[[nodiscard]] std::optional<std::uint16_t> PortOf(std::u16string_view text);

} // namespace brixen::pvn::pvn_workflow
