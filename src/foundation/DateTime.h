#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace scriv {

// Local time formatted with strftime codes ("%Y%m%d" ...).
std::string FormatLocalTime(std::chrono::system_clock::time_point when, const char* format);
// Now, as "hh:nn:ss".
std::string TimeOfDayText();
// Now, as "yyyymmdd".
std::string DateStamp();
// Seconds since local midnight, with fractions.
double SecondsSinceMidnight();

}  // namespace scriv
