// The resource module that the host handed in: texts by number.
#pragma once

#include "JW_Base/Include/JW_Types.h"

namespace platform {

// The handle stays the host's. On systems without such modules it is a TextTable (platform/posix/TextTable.h).
void SetResourceModule(JW_HMODULE module);
JW_HMODULE ResourceModule();

// Copies the text of string `id` into `buffer`, cut to `size` - 1 units and terminated. Returns the units copied, 0 if
// there is no such text.
int LoadResourceText(u32 id, JW_WChar* buffer, int size);

}  // namespace platform
