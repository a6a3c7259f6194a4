#include "pages/VoteCommandPost.h"

#include <new>

bool PostVoteCommand(const VoteUiCommand& command) {
  const VoteData* const data = VoteData::Get();
  // A message to no window would end in the thread's queue, where nobody frees it.
  if (!data || !IsWindow(data->GetMainWindow())) return false;
  auto* const block = new (std::nothrow) VoteUiCommand(command);
  if (!block) return false;
  if (PostMessageW(data->GetMainWindow(), kMsgUiCommand, reinterpret_cast<WPARAM>(block), 0)) return true;
  delete block;
  return false;
}
