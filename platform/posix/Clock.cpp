#include "platform/Clock.h"

#include "cobia/Text.h"
#include "platform/Environment.h"

#include <array>
#include <ctime>
#include <locale.h>
#include <memory>
#include <mutex>
#include <string>
#include <type_traits>

namespace orvane {
namespace {

struct FreeLocale {
    void operator()(locale_t locale) const noexcept { freelocale(locale); }
};
using Locale = std::unique_ptr<std::remove_pointer_t<locale_t>, FreeLocale>;

/// Empty when there is no such locale, or it writes dates in something else than UTF-8.
std::string shortDate(const std::tm& utc, locale_t locale) {
    if (!locale) return {};
    std::array<char, 128> text;
    const std::string date(text.data(), strftime_l(text.data(), text.size(), "%x", &utc, locale));
    return COBIA::wellFormed(date) == date ? date : std::string();
}

/// The short date in the locale that the environment names. Reading a locale's files takes longer than many a
/// calculation, so it is kept until the environment names another.
std::string usersShortDate(const std::tm& utc) {
    static std::mutex mutex;
    static std::string named;
    static Locale locale;
    std::string names;
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"})
        names += environmentVariable(variable).value_or("") + '\0';
    const std::lock_guard lock(mutex);
    if (names != named) {
        locale.reset(newlocale(LC_TIME_MASK, "", nullptr));
        named = std::move(names);
    }
    return shortDate(utc, locale.get());
}

}  // namespace

std::string utcDateAndTime(std::chrono::system_clock::time_point moment) {
    // Rounds down also before 1970, as to_time_t need not.
    const std::time_t seconds = std::chrono::floor<std::chrono::seconds>(moment).time_since_epoch().count();
    std::tm utc{};
    gmtime_r(&seconds, &utc);

    std::string date = usersShortDate(utc);
    if (date.empty()) {
        static const Locale plain(newlocale(LC_TIME_MASK, "C", nullptr));
        date = shortDate(utc, plain.get());
    }
    std::array<char, 16> time;
    const auto length = std::strftime(time.data(), time.size(), "%H:%M:%S", &utc);
    return date + ", " + std::string(time.data(), length);
}

}  // namespace orvane
