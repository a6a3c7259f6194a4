#include "JW_Base/Include/JW_DateTimeEx.h"

#include "platform/Clock.h"

namespace {

constexpr int kSecondsOfDay = 86400;
constexpr int kUnitsOfSecond = 10000;
constexpr int kDaysOf400Years = 146097;

// Days before the first of each month, counted from the first of March.
constexpr int kDaysFromMarch[] = {0, 31, 61, 92, 122, 153, 184, 214, 245, 275, 306, 337};

}  // namespace

void JW_DateTimeEx::SetFromTime(int t) {
  SetDayFromTime(t);
  m_Time = static_cast<int>((static_cast<int64_t>(t) - platform::TimeZoneSeconds() + kSecondsOfDay) % kSecondsOfDay *
                            kUnitsOfSecond);
  JW_ASSERT(m_Time >= 0, "m_Time >= 0");
}

void JW_DateTimeEx::SetDayFromTime(int t) {
  JW_ASSERT(t >= 0, "t >= 0");
  m_Date = static_cast<int>((static_cast<int64_t>(t) - platform::TimeZoneSeconds()) / kSecondsOfDay + kUnixDay);
}

void JW_DateTimeEx::GetDate(int& y, int& m, int& d) const {
  // Years run from March here, so that the leap day is the last day of its year. Day 0 is in January of year 0, 60
  // days before the March of a leap year.
  // The member is open to everybody: a day out of range counts as the nearest within it.
  const int stored = m_Date < 0 ? 0 : m_Date > kMaxDay ? kMaxDay : m_Date;
  const int fromMarch = stored - 60 + kDaysOf400Years;
  const int cycle = fromMarch / kDaysOf400Years;
  const int day = fromMarch % kDaysOf400Years;
  int century = day / 36524;
  if (century > 3) century = 3;
  const int dayOfCentury = day - century * 36524;
  const int leap = dayOfCentury / 1461;
  const int dayOfLeap = dayOfCentury - leap * 1461;
  int year = dayOfLeap / 365;
  if (year > 3) year = 3;
  const int dayOfYear = dayOfLeap - year * 365;
  int month = 11;
  while (kDaysFromMarch[month] > dayOfYear) --month;
  d = dayOfYear - kDaysFromMarch[month] + 1;
  m = month < 10 ? month + 3 : month - 9;
  y = (cycle - 1) * 400 + century * 100 + leap * 4 + year + (month < 10 ? 0 : 1);
}

JW_String JW_DateTimeEx::DateText(const JW_WChar* sSeparator) const {
  JW_ASSERT(sSeparator, "sSeparator");
  int y = 0;
  int m = 0;
  int d = 0;
  GetDate(y, m, d);
  JW_String text;
  text.Format(JW_W("%04d%s%02d%s%02d"), y, sSeparator, m, sSeparator, d);
  return text;
}
