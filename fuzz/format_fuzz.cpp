// JW_String's Format against the C library's, conversion by conversion, with arguments that fit.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>

#include "JW_Base/Include/JW_String.h"
#include "fuzz/fuzz_input.h"

#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"

namespace {

JW_String Widened(const std::string& text) {
  JW_String wide;
  for (const char ch : text) wide += static_cast<JW_WChar>(static_cast<u8>(ch));
  return wide;
}

template <class... Args>
void Compare(const std::string& wideFormat, const std::string& format, Args... args) {
  char expected[20000];
  snprintf(expected, sizeof(expected), format.c_str(), args...);
  JW_String text;
  text.Format(Widened(wideFormat), args...);
  Require(text == Widened(expected));
  JW_StringA narrow;
  narrow.Format(format.c_str(), args...);
  Require(narrow == expected);
}

template <class Value>
Value Argument(FuzzInput& input) {
  Value value = {};
  u8 bytes[sizeof(Value)];
  for (u8& byte : bytes) byte = input.Byte();
  memcpy(&value, bytes, sizeof(value));
  return value;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const u8* data, size_t size) {
  FuzzInput input(data, size);
  constexpr char kTypes[] = "diouxXeEfgGcS";
  const char type = kTypes[input.Below(sizeof(kTypes) - 1)];
  const bool isText = type == 'c' || type == 'S';
  const bool isReal = strchr("eEfgG", type) != nullptr;
  const bool isLong = !isText && !isReal && input.Below(2) == 1;

  std::string before = input.Text(20);
  before.erase(std::remove_if(before.begin(), before.end(),
                              [](char ch) { return ch == '%' || ch == 0 || static_cast<u8>(ch) >= 0x80; }),
               before.end());
  std::string conversion = "%";
  const char* const flags = isText ? "-" : "-+ #0";
  for (u32 i = input.Below(8); i > 0; --i) conversion += flags[input.Below(static_cast<u32>(strlen(flags)))];
  if (input.Below(2)) conversion += std::to_string(1 + input.Below(250));
  if (type != 'c' && input.Below(2)) conversion += "." + std::to_string(input.Below(100));

  const std::string wide = before + conversion + (isLong ? "I64" : "") + type + before;
  const std::string narrow = before + conversion + (isLong ? "ll" : "") + (type == 'S' ? 's' : type) + before;
  if (type == 'c') {
    Compare(wide, narrow, 1 + static_cast<int>(input.Below(127)));
  } else if (type == 'S') {
    std::string text = input.Text(200);
    for (char& ch : text) ch = static_cast<char>(ch & 0x7F);
    Compare(wide, narrow, text.c_str());
  } else if (isReal) {
    Compare(wide, narrow, Argument<double>(input));
  } else if (isLong) {
    Compare(wide, narrow, Argument<long long>(input));
  } else {
    Compare(wide, narrow, Argument<int>(input));
  }
  // Any format without an argument's conversion.
  std::string plain(reinterpret_cast<const char*>(data), size);
  plain.erase(std::remove(plain.begin(), plain.end(), '%'), plain.end());
  JW_String text;
  text.Format(Widened(plain));
  Require(text == Widened(plain.c_str()));
  return 0;
}
