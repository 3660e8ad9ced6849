#include "foundation/DateTime.h"

#include <ctime>

namespace scriv {

std::string FormatLocalTime(std::chrono::system_clock::time_point when, const char* format)
{
    std::time_t seconds = std::chrono::system_clock::to_time_t(when);
    std::tm local {};
    localtime_r(&seconds, &local);
    char buffer[128];
    std::size_t length = std::strftime(buffer, sizeof buffer, format, &local);
    return std::string(buffer, length);
}

std::string TimeOfDayText()
{
    return FormatLocalTime(std::chrono::system_clock::now(), "%H:%M:%S");
}

std::string DateStamp()
{
    return FormatLocalTime(std::chrono::system_clock::now(), "%Y%m%d");
}

double SecondsSinceMidnight()
{
    auto now = std::chrono::system_clock::now();
    std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    std::tm local {};
    localtime_r(&seconds, &local);
    auto fraction = std::chrono::duration<double>(now - std::chrono::system_clock::from_time_t(seconds)).count();
    return local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec + fraction;
}

}  // namespace scriv
