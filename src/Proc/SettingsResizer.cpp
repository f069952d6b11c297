#include "Proc/SettingsResizer.h"

#include "Proc/ProcException.h"

#include <algorithm>
#include <string>
#include <utility>

namespace Tervan::Proc {
namespace {

// Exact arithmetic: with every term within MAX_TERM, products of four stay below 2^63.
using Ratio = boost::rational<long long>;

Ratio PixelShape(long long x, long long y) {
    return x > 0 && y > 0 ? Ratio(x, y) : Ratio(1);
}

long long FloorEven(long long x) {
    return std::max(2LL, x - x % 2);
}

// Halves round up: 405 gives 406.
long long NearestEven(const Ratio& x) {
    const Ratio halves = x / 2 + Ratio(1, 2);
    return std::max(2LL, 2 * (halves.numerator() / halves.denominator()));
}

// The closest ratio with terms within MAX_TERM, so an output can be another resize's
// source: an automatic shape is a product of three ratios and may exceed them. Walks the
// convergents of the continued fraction of the positive shape, each closer than the last.
Ratio WithinTerms(const Ratio& shape) {
    constexpr long long kMax = SettingsResizer::MAX_TERM;
    long long num = 1;
    long long den = 0;
    long long previousNum = 0;
    long long previousDen = 1;
    for (long long n = shape.numerator(), d = shape.denominator(); d != 0;) {
        const long long whole = n / d;
        const long long nextNum = whole * num + previousNum;
        const long long nextDen = whole * den + previousDen;
        if (nextNum > kMax || nextDen > kMax) {
            break;
        }
        previousNum = std::exchange(num, nextNum);
        previousDen = std::exchange(den, nextDen);
        n = std::exchange(d, n - whole * d);
    }
    if (den == 0) {
        return Ratio(kMax);
    }
    return num == 0 ? Ratio(1, kMax) : Ratio(num, den);
}

Conf::FrameInfo Frame(long long width, long long height, const Ratio& shape) {
    const Ratio bounded = WithinTerms(shape);
    return {static_cast<int>(width), static_cast<int>(height), static_cast<int>(bounded.numerator()),
            static_cast<int>(bounded.denominator())};
}

// The largest frame of width-to-height ratio r inside an even box.
Conf::FrameInfo Fit(const Ratio& r, long long boxWidth, long long boxHeight, const Ratio& shape) {
    if (r * boxHeight <= boxWidth) {
        return Frame(NearestEven(r * boxHeight), boxHeight, shape);
    }
    return Frame(boxWidth, NearestEven(boxWidth / r), shape);
}

}  // namespace

int SettingsResizer::Term(long long value, const char* what) {
    if (value > MAX_TERM || value < -MAX_TERM) {
        BOOST_THROW_EXCEPTION(Core::Described<ProcException>(
            std::string(what) + " out of range: " + std::to_string(value) + ", at most " + std::to_string(MAX_TERM)));
    }
    return static_cast<int>(value);
}

Conf::FrameInfo SettingsResizer::GetOutputFrameSize(const Conf::FrameInfo& source) const {
    if (source.width <= 0 || source.height <= 0) {
        BOOST_THROW_EXCEPTION(Core::Described<ProcException>(
            "The source frame has no size: " + std::to_string(source.width) + "x" + std::to_string(source.height)));
    }
    for (const auto& [value, what] : {std::pair<long long, const char*>{source.width, "source width"},
                                      {source.height, "source height"},
                                      {source.aspectX, "source aspect"},
                                      {source.aspectY, "source aspect"},
                                      {width, "width"},
                                      {height, "height"},
                                      {aspect.numerator(), "aspect"},
                                      {aspect.denominator(), "aspect"}}) {
        Term(value, what);
    }
    const Ratio sourceShape = PixelShape(source.aspectX, source.aspectY);
    const Ratio shape = PixelShape(aspect.numerator(), aspect.denominator());
    const Ratio displayAspect = Ratio(source.width, source.height) * sourceShape;
    const Ratio r = displayAspect / shape;
    const long long boxWidth = FloorEven(width);
    const long long boxHeight = FloorEven(height);

    switch (frameSizeMode) {
        case FRAME_SIZE_ORIGINAL:
            return Frame(FloorEven(source.width), FloorEven(source.height), sourceShape);
        case FRAME_SIZE_HALF_ORIGINAL:
            return Frame(FloorEven(source.width / 2), FloorEven(source.height / 2), sourceShape);
        case FRAME_SIZE_QUARTER_ORIGINAL:
            return Frame(FloorEven(source.width / 4), FloorEven(source.height / 4), sourceShape);
        case FRAME_SIZE_CUSTOM_SCALE:
            return Frame(boxWidth, NearestEven(boxWidth / r), shape);
        case FRAME_SIZE_CUSTOM:
            break;
    }

    switch (mode) {
        case MODE_SMART_FIT:
            return Fit(r, boxWidth, boxHeight, shape);
        case MODE_UP_TO: {
            const Ratio naturalWidth = Ratio(source.width) * sourceShape / shape;
            if (naturalWidth <= boxWidth && source.height <= boxHeight) {
                return Frame(NearestEven(naturalWidth), NearestEven(Ratio(source.height)), shape);
            }
            return Fit(r, boxWidth, boxHeight, shape);
        }
        case MODE_AUTO:
            return Frame(boxWidth, boxHeight, displayAspect * boxHeight / boxWidth);
        case MODE_LETTERBOX:
        case MODE_STRETCH:
        case MODE_CROP:
            break;
    }
    return Frame(boxWidth, boxHeight, shape);
}

}  // namespace Tervan::Proc
