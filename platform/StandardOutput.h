// Whether anything that the process prints can arrive anywhere.
#pragma once

namespace platform {

bool HasStandardOutput();

}  // namespace platform
