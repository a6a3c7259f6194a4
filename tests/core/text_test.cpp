#include "JW_Base/Include/JW_CodePage.h"
#include "tests/core/support.h"

namespace {

typedef std::basic_string<JW_WChar> Units;

Units UnitsOf(const JW_String& text) {
  return Units(text.GetString(), static_cast<size_t>(text.GetLength()));
}

TEST(Utf8, StoresEachUnitOnItsOwn) {
  const struct {
    Units units;
    std::string bytes;
  } cases[] = {
      {Units{0xE9}, "\xC3\xA9"},
      {Units{0x7F, 0x80}, "\x7F\xC2\x80"},
      {Units{0x7FF, 0x800}, "\xDF\xBF\xE0\xA0\x80"},
      {Units{0xD83D, 0xDE00}, "\xED\xA0\xBD\xED\xB8\x80"},
      {Units{'a', 0, 'b'}, std::string("a\0b", 3)},
  };
  for (const auto& c : cases) {
    const JW_StringA bytes = JW_Utf8FromWide(c.units.data(), static_cast<int>(c.units.size()));
    EXPECT_EQ(c.bytes, std::string(bytes.GetString(), static_cast<size_t>(bytes.GetLength())));
    EXPECT_EQ(c.units, UnitsOf(Wide(c.bytes)));
  }
  Units all;
  for (u32 unit = 0; unit < 0x10000; ++unit) all += static_cast<JW_WChar>(unit);
  EXPECT_EQ(all, UnitsOf(JW_WideFromUtf8(JW_Utf8FromWide(all.data(), 0x10000))));
}

TEST(Utf8, DecodesByTheLeadAlone) {
  const struct {
    std::string bytes;
    Units units;
  } cases[] = {
      {"\xF0\x9F\x98\x80"
       "a",
       Units{0x7D8, 0x21}},  // the lead is skipped, its continuation read as two-byte leads
      {"\xFF", Units{}},
      {"\x80"
       "A",
       Units{0x01}},
      {"\xC3"
       "A",
       Units{0xC1}},
      {"\xE4\xB8", Units{0x4E00}},  // cut off by the end
      {"\xC3", Units{0xC0}},
  };
  for (const auto& c : cases) EXPECT_EQ(c.units, UnitsOf(Wide(c.bytes)));
}

TEST(CodePage, ConvertsAndLosesWhatItLacks) {
  const Units wide{'a', 0xE9, 0x4E2D};
  const JW_StringA ansi = JW_AnsiFromWide(wide.data(), 3);
  EXPECT_STREQ("a\xE9?", ansi.GetString());
  EXPECT_EQ((Units{'a', 0xE9, '?'}), UnitsOf(JW_WideFromAnsi(ansi)));
  EXPECT_TRUE(JW_AnsiFromWide(wide.data(), 0).IsEmpty());
}

TEST(Format, FollowsPrintf) {
  JW_String text;
  const JW_WChar* const none = nullptr;
  const auto expect = [&](const std::string& expected) { EXPECT_EQ(expected, Utf8(text)); };
  text.Format(JW_W("%d of %u, %i"), -5, 4000000000u, 7);
  expect("-5 of 4000000000, 7");
  text.Format(JW_W("[%5d|%-5d|%05d|%+d|%x|%#X|%o]"), 42, 42, 42, 42, 255, 255, 8);
  expect("[   42|42   |00042|+42|ff|0XFF|10]");
  text.Format(JW_W("[%*d|%-*d|%.*s]"), 4, 1, 4, 1, 2, JW_W("abc"));
  expect("[   1|1   |ab]");
  text.Format(JW_W("%I64d %lld %ld"), 1234567890123LL, -1LL, 5L);
  expect("1234567890123 -1 5");
  text.Format(JW_W("[%s|%5s|%-5s|%s|%hs|%ls|%S]"), JW_W("a"), JW_W("b"), JW_W("c"), none, "n", JW_W("w"), "o");
  expect("[a|    b|c    ||n|w|o]");
  text.Format(JW_W("%c%c%% 100%"), 'x', 0x4E2D);
  expect("x\xE4\xB8\xAD% 100");
  text.Format(JW_W("%.2f %8.3f %g %e"), 3.14159, 2.5, 0.5, 1.0);
  EXPECT_EQ(0u, Utf8(text).find("3.14    2.500 0.5 1.0"));
  text.Format(JW_W("%f"), 1e300);
  EXPECT_EQ(301 + 7, text.GetLength());
  text.Format(JW_W("%s!%s"), text.GetString(), Wide(std::string(5000, 'z')).GetString());
  EXPECT_EQ(308 + 1 + 5000, text.GetLength());
  text.Format(JW_W("%d"), 12);
  EXPECT_EQ(2, text.Header()->nDataLength);
  JW_StringA narrow;
  narrow.Format("insert into %s values(%d, '%s')", "T", 5, "it");
  EXPECT_STREQ("insert into T values(5, 'it')", narrow.GetString());
}

TEST(LoadString, TakesTextsOfAnyLength) {
  UseTestTexts();
  for (const int length : {254, 255, 256, 511, 600}) {
    JW_String text;
    EXPECT_TRUE(text.LoadString(static_cast<u32>(length)));
    EXPECT_EQ(std::string(static_cast<size_t>(length), 'x'), Utf8(text));
  }
  JW_String text(JW_W("before"));
  EXPECT_FALSE(text.LoadString(9999));
  EXPECT_TRUE(text.IsEmpty());
}

}  // namespace
