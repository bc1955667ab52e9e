#include "platform/Clock.h"

#include "cobia/Text.h"

#include <array>
#include <ctime>
#include <locale.h>
#include <memory>
#include <type_traits>

namespace orvane {
namespace {

struct FreeLocale {
    void operator()(locale_t locale) const noexcept { freelocale(locale); }
};
using Locale = std::unique_ptr<std::remove_pointer_t<locale_t>, FreeLocale>;

/// Empty when the locale is not installed, or writes dates in something else than UTF-8.
std::string shortDate(const std::tm& utc, const char* localeName) {
    const Locale locale(newlocale(LC_TIME_MASK, localeName, nullptr));
    if (!locale) return {};
    std::array<char, 128> text;
    const std::string date(text.data(), strftime_l(text.data(), text.size(), "%x", &utc, locale.get()));
    return COBIA::wellFormed(date) == date ? date : std::string();
}

}  // namespace

std::string utcDateAndTime(std::chrono::system_clock::time_point moment) {
    // Rounds down also before 1970, as to_time_t need not.
    const std::time_t seconds = std::chrono::floor<std::chrono::seconds>(moment).time_since_epoch().count();
    std::tm utc{};
    gmtime_r(&seconds, &utc);

    std::string date = shortDate(utc, "");
    if (date.empty()) date = shortDate(utc, "C");
    std::array<char, 16> time;
    const auto length = std::strftime(time.data(), time.size(), "%H:%M:%S", &utc);
    return date + ", " + std::string(time.data(), length);
}

}  // namespace orvane
