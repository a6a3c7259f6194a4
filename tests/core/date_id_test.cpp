#include <chrono>
#include <cstdlib>

#include "JW_Base/Include/JW_Locker.h"
#include "tests/core/support.h"

namespace {

void SetTimeZone(const char* zone) {
#if defined(_WIN32)
  _putenv((std::string("TZ=") + zone).c_str());
#else
  setenv("TZ", zone, 1);
#endif
}

TEST(Date, RefusesWhatIsOutOfRange) {
  const struct {
    int day, time;
    bool ok;
    int dayAfter, timeAfter;
  } cases[] = {
      {0, 0, true, 0, 0},
      {3652424, 863999999, true, 3652424, 863999999},
      {3652425, 0, false, 500, 600},
      {-1, 0, false, 500, 600},
      {0, 864000000, false, 0, 600},
      {0, -1, false, 0, 600},
  };
  EXPECT_EQ(0xA96C9, JW_DateTimeEx().m_Date);
  for (const auto& c : cases) {
    JW_DateTimeEx date;
    ASSERT_TRUE(date.Set(500, 600));
    EXPECT_EQ(c.ok, date.Set(c.day, c.time)) << c.day;
    EXPECT_EQ(c.dayAfter, date.m_Date);
    EXPECT_EQ(c.timeAfter, date.m_Time);
  }
  JW_DateTimeEx date;
  for (const int far : {3652425, -3652425, INT32_MIN, -693962, 3652424 - 693961 + 1}) EXPECT_FALSE(date.AddDays(far));
  EXPECT_TRUE(date.AddDays(-693961));
  EXPECT_EQ(0, date.m_Date);
}

TEST(Date, FollowsTheCalendar) {
  using namespace std::chrono;
  const sys_days start = sys_days(year(0) / January / 1);
  for (int day = 0; day <= JW_DateTimeEx::kMaxDay; day += day % 1461 < 400 ? 1 : 89) {
    JW_DateTimeEx date;
    date.SetDate(day);
    int y = 0, m = 0, d = 0;
    date.GetDate(y, m, d);
    const year_month_day peer(start + days(day));
    ASSERT_EQ(year_month_day(year(y) / m / d), peer) << day;
  }
  JW_DateTimeEx date;
  EXPECT_EQ("1900/01/01", Utf8(date.DateText(JW_W("/"))));
  date.SetDate(JW_DateTimeEx::kUnixDay);
  EXPECT_EQ("19700101", Utf8(date.DateText(JW_W(""))));
  int y = 0, m = 0, d = 0;
  for (const int garbage : {INT32_MIN, -1, INT32_MAX}) {
    date.m_Date = garbage;
    date.GetDate(y, m, d);
    EXPECT_EQ(garbage < 0 ? 0 : 9999, y);
  }
}

TEST(Date, ShowsTheLocalDay) {
  const struct {
    const char* zone;
    int t, day, seconds;
  } cases[] = {
      {"UTC0", 0, 719528, 0},
      {"UTC0", 1772375400, 740041, 52200},
      {"ZZZ-8", 57600, 719529, 0},  // eight hours east
      {"XXX5", 18000 + 86399, 719528, 86399},
      {"XXX5", 0, 719528, 68400},  // the evening before, on the day that the division gives
  };
  for (const auto& c : cases) {
    SetTimeZone(c.zone);
    JW_DateTimeEx date;
    date.SetFromTime(c.t);
    EXPECT_EQ(c.day, date.m_Date) << c.zone << c.t;
    EXPECT_EQ(c.seconds * 10000, date.m_Time) << c.zone << c.t;
    JW_DateTimeEx day;
    day.m_Time = 5;
    day.SetDayFromTime(c.t);
    EXPECT_EQ(c.day, day.m_Date);
    EXPECT_EQ(5, day.m_Time);
  }
  SetTimeZone("UTC0");
}

TEST(Id, HasAKindByItsHighWord) {
  // Each row starts a range that ends before the next.
  const struct {
    u32 high;
    int kindOfLow5, kindOfLow10, kindOfLow10000;
  } ranges[] = {
      {0, 0, 0, 0},           {10000, 1, 1, 1},     {90000, 0, 2, 0},     {90755, 0, 2, 2},     {90756, 0, 2, 0},
      {92000, 0, 2, 2},       {92003, 0, 2, 0},     {100000, 1, 1, 1},    {800000, 0, 2, 0},    {900000, 0, 0, 0},
      {1000000, 1, 1, 1},     {7000000, 0, 2, 0},   {8000000, 0, 0, 0},   {10000000, 1, 1, 1},  {60000000, 0, 2, 0},
      {70000000, 0, 0, 0},    {100000000, 1, 1, 1}, {500000000, 0, 2, 0}, {600000000, 0, 0, 0}, {1000000000, 1, 1, 1},
      {4000000000u, 3, 3, 3},
  };
  const size_t count = std::size(ranges);
  for (size_t i = 0; i < count; ++i) {
    for (const u32 high : {ranges[i].high, i + 1 < count ? ranges[i + 1].high - 1 : 0xFFFFFFFFu}) {
      EXPECT_EQ(ranges[i].kindOfLow5, JW_ID(5, high).Kind()) << high;
      EXPECT_EQ(ranges[i].kindOfLow10, JW_ID(10, high).Kind()) << high;
      EXPECT_EQ(ranges[i].kindOfLow10000, JW_ID(10000, high).Kind()) << high;
    }
  }
  for (const u32 edge : {10u, 900000u, 8000000u, 70000000u, 600000000u}) {
    EXPECT_EQ(0, JW_ID(edge - 1, 800000).Kind()) << edge;
    EXPECT_EQ(2, JW_ID(edge, 800000).Kind()) << edge;
    const u32 last = edge == 10 ? 9999
                                : edge / 10 * 10 + (edge == 900000     ? 99999
                                                    : edge == 8000000  ? 999999
                                                    : edge == 70000000 ? 9999999
                                                                       : 99999999);
    EXPECT_EQ(2, JW_ID(last, 800000).Kind()) << last;
    EXPECT_EQ(0, JW_ID(last + 1, 800000).Kind()) << last;
  }
}

TEST(Id, PrintsTheDigitsThatPeopleKnow) {
  EXPECT_EQ("Invalid ID", Utf8(JW_ID().ToString()));
  EXPECT_EQ("20000", Utf8(JW_ID(77, 20000).ToString()));
  EXPECT_EQ("Invalid ID", Utf8(JW_ID(5, 90755).ToString()));
  EXPECT_EQ("9075510", Utf8(JW_ID(10, 90755).ToString()));
  EXPECT_EQ("500000000699999999", Utf8(JW_ID(699999999, 500000000).ToString()));
  EXPECT_EQ("4294967295", Utf8(JW_ID(1, 0xFFFFFFFF).ToString()));
  EXPECT_EQ(JW_ID(1, 2), JW_ID(1, 2));
  EXPECT_NE(JW_ID(1, 2), JW_ID(2, 2));
  EXPECT_NE(JW_ID(1, 2), JW_ID(1, 1));
}

#if defined(JW_ASSERTIONS)
TEST(DateDeathTest, Asserts) {
  JW_DateTimeEx date;
  EXPECT_DEATH(date.SetFromTime(-1), "t >= 0");
  EXPECT_DEATH(date.DateText(nullptr), "sSeparator");
  EXPECT_DEATH(JW_AutoLock(nullptr), "lck");
}
#endif

}  // namespace
