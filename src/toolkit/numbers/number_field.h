// The texts of a number field, without a control: a value becomes the text that the field shows, and a typed
// text becomes a value in the form of the one before.
#pragma once

#include "toolkit/numbers/number_form.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brixen::zeve {

// The attributes of the view, in UTF-8. Empty texts count as absent.
struct NumberFieldAttributes {
    std::string_view minimum = {};
    std::string_view maximum = {};
    std::string_view format = {};
    std::int32_t precision = 1;
    std::string_view addIn = {}; // translated: prefix, `^`, any character, suffix
};

// A limit of the field, with its text as the view has it, for messages.
struct NumberLimit {
    double value;
    std::string text;
};

// The message about a number beyond a limit.
struct OutOfRange {
    const char* messageKeyText; // a dictionary key with its English text
    std::string first, second;  // for `^0` and `^1`
};

// Returns the message with its first `^0` and its first `^1` replaced. The inserted texts are not searched.
std::string RangeMessage(std::string_view message, const OutOfRange& outOfRange);

class NumberField {
public:
    explicit NumberField(const NumberFieldAttributes& attributes);

    // Takes a value, a number text in any form, and returns the text for the control. An empty value has an
    // empty text.
    std::string SetValue(std::string_view value);

    struct Reading {
        std::string value;
        // The typed number was beyond a limit. Then `value` is the closest one, and the control gets
        // `closest`.
        std::optional<OutOfRange> outOfRange;
        std::string closest;
    };
    // Reads the text of the control. The first character of `decimalSign`, which is the user's own, may be
    // typed in place of the point. A text that was not changed since SetValue has the value of that call.
    Reading Read(std::string_view controlText, std::string_view decimalSign);

    struct Shown {
        // Without the add-in and blanks, with a point as the decimal sign. May be no number; it is none, but
        // the whole text, if blanks part its digits otherwise than in groups (`1 1/2`), and if there is more
        // around the add-in (`1 s/60`).
        std::string number;
        bool isEdited;     // since SetValue
        bool mayBeGrouped; // `1.200` by a user whose decimal sign is no point: 1.2 for Read, perhaps 1200
    };
    // Reads the number that the control shows, which in a photographic field is not the value. The add-in may
    // be typed in capitals and without its blanks here: `50mm`, `F/8`. Read does not know it then.
    Shown ReadShown(std::string_view controlText, std::string_view decimalSign) const;

private:
    std::string WithoutAddIn(std::string_view text) const;
    // Whether there is text before the prefix or after the suffix, which WithoutAddIn drops.
    bool HasMoreThanAddIn(std::string_view text) const;
    std::string WithoutLooseAddIn(std::string_view text) const;
    // Whether the text of the control, of which `number` is the number, has changed since SetValue.
    bool IsEdited(std::string_view controlText, std::string_view number) const;
    // Replaces the text by the closest number if its own is beyond a limit.
    std::optional<OutOfRange> RangeCheck(std::string& text) const;

    NumberForm format = NumberForm::kWhole;
    NumberForm valueFormat = NumberForm::kWhole;
    std::optional<NumberLimit> minimum, maximum;
    std::int32_t precision = 0;      // decimals for display
    std::int32_t valuePrecision = 0; // decimals of the value
    std::string setValue;
    std::string shownNumber; // without prefix and suffix. Kept: an empty value leaves it
    std::string shownText;   // with them
    std::string prefix, suffix;
    // Kept: never cleared, so after the end of a scale the field shows no prefix and no suffix.
    bool isBeyondScale = false;
};

} // namespace brixen::zeve
