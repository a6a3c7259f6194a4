// Makes a compiler lay out every table that crosses the boundary; slots_test.py reads them.
#include "module/IZQVote.h"

struct Vote : IZQVote {
  Vote();
};
Vote::Vote() {}
struct Sink : IZQVoteSink {
  Sink();
};
Sink::Sink() {}
struct Stream : JW_ByteStream {
  Stream();
};
Stream::Stream() {}
VoteTopicRecord topic;
VoteItemRecord item;
VoteOptionRecord option;
VoteAnswerRecord answer;
JW_ID id;
