// Files by name. Wide paths are UTF-16, narrow ones are in the active code page.
#pragma once

#include <stdio.h>

#include "JW_Base/Include/JW_String.h"

namespace platform {

enum class FileAttributes { kNormal, kHidden };

// The folder of the system itself, without a backslash or slash at the end. Vote files pass through a database in the
// "Temp" folder beside it.
JW_String SystemFolder();

// The separator that the system puts between folders.
char FolderSeparator();

bool RemoveFile(const JW_WChar* path);
bool SetAttributes(const JW_WChar* path, FileAttributes attributes);
bool SetAttributes(const char* path, FileAttributes attributes);
// Overwrites `to`.
bool CopyOver(const JW_WChar* from, const JW_WChar* to);
// Empties the file or makes it, for binary writing and reading; null if that fails. The caller closes it.
FILE* OpenEmpty(const JW_WChar* path);

}  // namespace platform
