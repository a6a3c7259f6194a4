// The width of text in the report's measuring font.
#pragma once

#include "JW_Base/Include/JW_String.h"

namespace platform {

// Tahoma at height -12 on the default screen. One object keeps the font for many measurements.
class TextMeasure {
 public:
  TextMeasure();
  ~TextMeasure();
  TextMeasure(const TextMeasure&) = delete;
  TextMeasure& operator=(const TextMeasure&) = delete;

  // In pixels, of a text without line breaks.
  int Width(const JW_String& text) const;

 private:
  [[maybe_unused]] void* m_hFont;  // null where the system has no fonts
};

}  // namespace platform
