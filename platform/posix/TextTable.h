// The texts of a resource module as a table, for systems without resource modules.
#pragma once

#include <string>
#include <unordered_map>

#include "JW_Base/Include/JW_Types.h"

namespace platform {

class TextTable {
 public:
  // Takes the text of one id, in UTF-8.
  void Set(u32 id, const char* utf8);

  // Null if the table has no such text.
  const std::u16string* Find(u32 id) const;

  // For SetResourceModule. The table must outlive its use.
  JW_HMODULE Handle() { return reinterpret_cast<JW_HMODULE>(this); }

 private:
  std::unordered_map<u32, std::u16string> m_Texts;
};

}  // namespace platform
