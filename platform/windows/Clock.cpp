#include "platform/Clock.h"

#include "platform/windows/SystemText.h"

#include <windows.h>

namespace orvane {
namespace {

SYSTEMTIME systemTime(std::chrono::system_clock::time_point moment) {
    using namespace std::chrono;
    const auto day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss time(floor<milliseconds>(moment - day));
    SYSTEMTIME result{};
    result.wYear = static_cast<WORD>(static_cast<int>(date.year()));
    result.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
    result.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
    result.wHour = static_cast<WORD>(time.hours().count());
    result.wMinute = static_cast<WORD>(time.minutes().count());
    result.wSecond = static_cast<WORD>(time.seconds().count());
    result.wMilliseconds = static_cast<WORD>(time.subseconds().count());
    return result;
}

/// The name by which a locale of the system goes. Compatibility layers do not know the name that stands for any.
const wchar_t* systemLocale() {
    static wchar_t name[LOCALE_NAME_MAX_LENGTH] = L"";
    static const bool known = GetLocaleInfoEx(LOCALE_NAME_SYSTEM_DEFAULT, LOCALE_SNAME, nullptr, 0) != 0 ||
                              GetSystemDefaultLocaleName(name, LOCALE_NAME_MAX_LENGTH) == 0;
    return known ? LOCALE_NAME_SYSTEM_DEFAULT : name;
}

}  // namespace

std::string utcDateAndTime(std::chrono::system_clock::time_point moment) {
    const SYSTEMTIME utc = systemTime(moment);
    wchar_t date[128] = L"", time[128] = L"";
    // A failure leaves the text empty: a run is not refused for the want of its date.
    GetDateFormatEx(systemLocale(), DATE_SHORTDATE, &utc, nullptr, date, std::size(date), nullptr);
    // Of 24 hours, some systems still say which half of the day they are in.
    GetTimeFormatEx(systemLocale(), TIME_FORCE24HOURFORMAT | TIME_NOTIMEMARKER, &utc, nullptr, time,
                    std::size(time));
    return narrow(date) + ", " + narrow(time);
}

}  // namespace orvane
