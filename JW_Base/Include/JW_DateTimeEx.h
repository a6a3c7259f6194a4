// Date and time: a day number and the time of day, without a time zone.
#pragma once

#include "JW_Base/Include/JW_String.h"
#include "JW_Base/Include/JW_Types.h"

class JW_DateTimeEx {
 public:
  static constexpr int kMaxDay = 0x37BB48;      // 3652424
  static constexpr int kNullDay = 0xA96C9;      // 1900-01-01, the null value
  static constexpr int kUnixDay = 0xAFAA8;      // 1970-01-01, the base of time_t
  static constexpr int kTimeLimit = 864000000;  // one day in 1/10000 s, itself excluded

  // Day 0 is 0000-01-01 of the proleptic Gregorian calendar.
  bool SetDate(int day) {
    if (day < 0 || day > kMaxDay) return false;
    m_Date = day;
    return true;
  }
  // A bad day leaves the value as it was; a good day with a bad time stores the day, keeps the time, and fails.
  bool Set(int day, int time) {
    if (!SetDate(day)) return false;
    if (time < 0 || time >= kTimeLimit) return false;
    m_Time = time;
    return true;
  }

  // From seconds since 1970 in UTC, as the machine's local time; daylight saving isn't applied.
  void SetFromTime(int t);
  // The same for the day alone, leaving the time of day.
  void SetDayFromTime(int t);

  // False, with the value as it was, if the result lies out of range.
  bool AddDays(int n) {
    if (n > kMaxDay || n < -kMaxDay) return false;
    return SetDate(m_Date + n);
  }

  void GetDate(int& y, int& m, int& d) const;
  // Year, month and day, as "2026-03-01" with the separator "-".
  JW_String DateText(const JW_WChar* sSeparator) const;

  friend bool operator==(const JW_DateTimeEx& a, const JW_DateTimeEx& b) {
    return a.m_Date == b.m_Date && a.m_Time == b.m_Time;
  }

  int32_t m_Date = kNullDay;
  int32_t m_Time = 0;  // units of 1/10000 s
};
static_assert(sizeof(JW_DateTimeEx) == 8, "day number, time of day");
