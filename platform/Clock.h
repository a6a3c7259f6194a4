// The machine's clock and time zone.
#pragma once

namespace platform {

// Seconds since 1970-01-01 in UTC.
int SecondsSince1970();

// What must be subtracted from UTC to get local time, in seconds; daylight saving isn't in it.
int TimeZoneSeconds();

}  // namespace platform
