// All that a host includes. Compiled for its syntax alone, by the front ends of other compilers.
#include "module/IZQVote.h"
#include "votedata/VoteEntries.h"

static_assert(sizeof(void*) == 4, "the contract is one of 32-bit processes");
static_assert(sizeof(JW_WChar) == 2 && sizeof(bool) == 1 && sizeof(long) == 4, "types at the boundary");
static_assert(sizeof(VoteUser) == 532 && sizeof(VoteUserList) == 8, "the host's list of participants");
static_assert(sizeof(IZQVote) == 4 && sizeof(IZQVoteSink) == 4, "nothing but the table");

// Each record has the two operations of its base and no other, and is made, copied and destroyed by its own type.
template <class Record>
void Use(JW_ByteStream& stream, const Record& other) {
  Record record(other);
  record.Load(stream);
  record.Save(stream);
}
template void Use(JW_ByteStream&, const VoteTopicRecord&);
template void Use(JW_ByteStream&, const VoteItemRecord&);
template void Use(JW_ByteStream&, const VoteOptionRecord&);
template void Use(JW_ByteStream&, const VoteAnswerRecord&);
