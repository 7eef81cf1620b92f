#include "toolkit/numbers/apex.h"

#include "toolkit/numbers/number_value.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace brixen::zeve {
namespace {

constexpr double kTimes[] = {
    30,         25,         20,          15,          13,          10,          8,          6,
    5,          4,          3.2,         3,           2.5,         2,           1.6,        1.5,
    1.3,        1,          0.8,         0.7,         0.6,         0.5,         0.4,        0.3,
    0.25,       0.2,        1.0 / 6,     1.0 / 8,     1.0 / 10,    1.0 / 13,    1.0 / 15,   1.0 / 20,
    1.0 / 25,   1.0 / 30,   1.0 / 40,    1.0 / 45,    1.0 / 50,    1.0 / 60,    1.0 / 80,   1.0 / 90,
    1.0 / 100,  1.0 / 125,  1.0 / 160,   1.0 / 180,   1.0 / 200,   1.0 / 250,   1.0 / 320,  1.0 / 350,
    1.0 / 400,  1.0 / 500,  1.0 / 640,   1.0 / 750,   1.0 / 800,   1.0 / 1000,  1.0 / 1250, 1.0 / 1500,
    1.0 / 1600, 1.0 / 2000, 1.0 / 2500,  1.0 / 3000,  1.0 / 3200,  1.0 / 4000,  1.0 / 5000, 1.0 / 6000,
    1.0 / 6400, 1.0 / 8000, 1.0 / 10000, 1.0 / 12000, 1.0 / 12800, 1.0 / 16000,
};
static_assert(std::size(kTimes) == 70);

// A time between those of the table becomes `unit` divided by a whole number.
struct Part {
    double least; // seconds
    double unit;
};
constexpr Part kParts[] = {
    {0.05, 1},
    {0.007692307692307693, 0.2},
    {0.0013333333333333333, 0.1},
    {0.0007692307692307692, 0.02},
    {6.666666666666667e-5, 0.01},
    {0, 0.001},
};

double Round(double value) { return std::floor(value + 0.5); }

// Returns the first time of the table within 2 percent, or 0.
double NearTime(double time) {
    const auto* const near = std::find_if(std::begin(kTimes), std::end(kTimes), [time](double entry) {
        return time >= 0.98 * entry && 1.02 * entry >= time;
    });
    return near == std::end(kTimes) ? 0 : *near;
}

double RoundedTime(double time) {
    if (time >= 10) return Round(time);
    if (time >= 0.5) return Round(time * 10) * 0.1;
    const Part& part = *std::find_if(std::begin(kParts), std::end(kParts),
                                     [time](const Part& each) { return time >= each.least; });
    return part.unit / Round(part.unit / time);
}

// Shorter times than the reciprocal of the largest 32-bit number are shown as that one.
std::string ReciprocalText(double time) {
    constexpr double kMost = std::numeric_limits<std::int32_t>::max();
    return "1/" + DecimalText(std::min(Round(1 / time), kMost), 0);
}

std::string ApertureText(double value, bool& isBeyondScale) {
    if (value < 0) value = 21;
    if (value > 20) {
        isBeyondScale = true;
        return ">f/1024";
    }
    const double number = std::exp2(value / 2);
    return value < 6 ? DecimalText(number, 1) : DecimalText(Round(number), 0);
}

std::string ShutterSpeedText(double value, bool& isBeyondScale) {
    if (value < -10) {
        isBeyondScale = true;
        return ">1024 sec";
    }
    const double time = SnapShutterTime(std::exp2(-value));
    return time > 0.25 ? DecimalText(time, 1) : ReciprocalText(time);
}

} // namespace

double SnapShutterTime(double time) {
    if (time <= 0) return 0;
    if (const double near = NearTime(time); near != 0) return near;
    if (time < 0.1) {
        const double longer = time * (time >= 0.01 ? 1.0666666666666667 : 1.024);
        if (const double near = NearTime(longer); near != 0) return near;
    }
    return RoundedTime(time);
}

std::string ApexFormat(std::string_view fraction, NumberForm form, bool& isBeyondScale) {
    const double value = FractionValue(fraction);
    switch (form) {
    case NumberForm::kApexBrightness: return DecimalText(value, 2);
    case NumberForm::kApexAperture: return ApertureText(value, isBeyondScale);
    case NumberForm::kApexShutterSpeed: return ShutterSpeedText(value, isBeyondScale);
    default: return {};
    }
}

} // namespace brixen::zeve
