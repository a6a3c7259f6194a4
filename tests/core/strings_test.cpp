#include "tests/core/support.h"

namespace {

template <class S>
struct CharOf;
template <>
struct CharOf<JW_String> {
  typedef JW_WChar Type;
};
template <>
struct CharOf<JW_StringA> {
  typedef char Type;
};

template <class S>
class StringTest : public testing::Test {
 protected:
  typedef typename CharOf<S>::Type Char;
  typedef std::basic_string<Char> Plain;

  static Plain Of(const std::string& ascii) { return Plain(ascii.begin(), ascii.end()); }
  static S Make(const std::string& ascii) { return S(Of(ascii).data(), static_cast<int>(ascii.size())); }
  static bool IsStaticEmpty(const S& text) {
    return text.GetString() == S().GetString() && text.Header()->nRefs == kJW_StaticString &&
           text.Header()->nDataLength == 0 && text.GetString()[0] == 0;
  }
  static int& Refs(const S& text) { return const_cast<JW_StringHeader*>(text.Header())->nRefs; }
};
typedef testing::Types<JW_String, JW_StringA> Widths;
TYPED_TEST_SUITE(StringTest, Widths);

TYPED_TEST(StringTest, CopiesShareUntilOneChanges) {
  TypeParam a = this->Make("abc");
  EXPECT_EQ(1, a.Header()->nRefs);
  EXPECT_EQ(3, a.Header()->nDataLength);
  EXPECT_EQ(3, a.Header()->nAllocLength);
  {
    const TypeParam b(a);
    TypeParam c;
    c = b;
    EXPECT_EQ(a.GetString(), c.GetString());
    EXPECT_EQ(3, a.Header()->nRefs);
    c += this->Make("d");
    EXPECT_EQ(this->Make("abcd"), c);
    EXPECT_EQ(this->Make("abc"), a);
    a.GetBuffer(0)[0] = 'x';
    EXPECT_EQ(this->Make("abc"), b);
    EXPECT_EQ(1, b.Header()->nRefs);
  }
  EXPECT_EQ(1, a.Header()->nRefs);
  const TypeParam& same = a;
  a = same;
  EXPECT_EQ(this->Make("xbc"), a);
  EXPECT_EQ(1, a.Header()->nRefs);
}

TYPED_TEST(StringTest, LockedBufferIsNeverShared) {
  TypeParam a = this->Make("abc");
  this->Refs(a) = -1;
  TypeParam copy(a);
  TypeParam other = this->Make("zz");
  a = other;
  EXPECT_NE(a.GetString(), other.GetString());
  EXPECT_EQ(this->Make("zz"), a);
  EXPECT_EQ(this->Make("abc"), copy);
  EXPECT_EQ(1, other.Header()->nRefs);
}

TYPED_TEST(StringTest, EveryEmptyResultIsTheStaticEmptyString) {
  const typename TestFixture::Char* const none = nullptr;
  TypeParam results[8] = {TypeParam(none), this->Make(""), this->Make("abc").Left(0), this->Make("aa")};
  EXPECT_EQ(2, results[3].Replace(this->Of("a").c_str(), none));
  for (int i = 4; i < 8; ++i) results[i] = this->Make("abc");
  results[4].Empty();
  results[5].GetBufferSetLength(0);
  results[6].GetBuffer(9)[0] = 0;
  results[6].ReleaseBuffer();
  results[7] = none;
  for (const TypeParam& result : results) EXPECT_TRUE(this->IsStaticEmpty(result)) << &result - results;
  TypeParam shared = results[0];
  shared += none;
  EXPECT_TRUE(this->IsStaticEmpty(shared));
}

TYPED_TEST(StringTest, BuffersKeepTheTextAndTakeALength) {
  TypeParam a = this->Make("abc");
  const TypeParam sharer(a);
  a.GetBuffer(10)[3] = 'd';
  EXPECT_EQ(10, a.Header()->nAllocLength);
  a.ReleaseBuffer(4);
  EXPECT_EQ(this->Make("abcd"), a);
  EXPECT_EQ(0, a.GetString()[4]);
  a.GetBuffer(0)[2] = 0;
  a.ReleaseBuffer();
  EXPECT_EQ(this->Make("ab"), a);
  ASSERT_TRUE(a.GetBufferSetLength(1));
  EXPECT_EQ(this->Make("a"), a);
  EXPECT_EQ(this->Make("abc"), sharer);
  EXPECT_FALSE(a.GetBufferSetLength(kJW_MaxStringLength + 1));
  EXPECT_EQ(this->Make("a"), a);
}

TYPED_TEST(StringTest, AppendsInPlaceOrReallocatesToTheLength) {
  TypeParam a = this->Make("abcd");
  a = a.Left(3);
  a.GetBuffer(8);
  const auto* const place = a.GetString();
  a += a;
  EXPECT_EQ(place, a.GetString());
  EXPECT_EQ(this->Make("abcabc"), a);
  a += this->Make("xyz");
  EXPECT_EQ(9, a.Header()->nAllocLength);
  a += a.GetString();
  EXPECT_EQ(this->Make("abcabcxyzabcabcxyz"), a);
  a.AssignText(a.GetString() + 15, 3);
  EXPECT_EQ(this->Make("xyz"), a);
}

TYPED_TEST(StringTest, Replaces) {
  const struct {
    std::string text, from, to, result;
    int hits;
  } cases[] = {
      {"a-b-c", "-", "", "abc", 2},          {"aaa", "aa", "b", "ba", 1},
      {"abab", "ab", "abab", "abababab", 2}, {"abc", "", "x", "abc", 0},
      {"abc", "abcd", "x", "abc", 0},        {std::string("a\0a\0", 4), "a", "bc", std::string("bc\0bc\0", 6), 2},
  };
  for (const auto& c : cases) {
    TypeParam text = this->Make(c.text);
    const TypeParam sharer(text);
    EXPECT_EQ(c.hits, text.Replace(this->Of(c.from).c_str(), this->Of(c.to).c_str())) << c.text;
    EXPECT_EQ(this->Make(c.result), text) << c.text;
    EXPECT_EQ(this->Make(c.text), sharer);
  }
}

}  // namespace
