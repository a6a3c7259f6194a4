// What a record has loaded, it saves, and what it has saved, it loads: the second saving equals the first.
#include "fuzz/fuzz_input.h"
#include "fuzz/memory_stream.h"
#include "records/VoteRecords.h"

namespace {

template <class Record>
std::vector<u8> Saved(const Record& record) {
  MemoryStream out;
  record.Save(out);
  return out.bytes;
}

// False where the bytes end within the record or hold a bad length.
template <class Record>
bool Load(Record& record, MemoryStream& stream) try {
  record.Load(stream);
  return true;
} catch (const MemoryStream::EndOfData&) {
  return false;
} catch (long code) {
  Require(code == kJW_BadLength);
  return false;
}

template <class Record>
void Check(FuzzInput& input) {
  MemoryStream in(input.Rest(), input.RestSize());
  // One record is loaded again and again, as hosts do.
  Record record;
  for (int i = 0; i < 4 && Load(record, in); ++i) {
    const std::vector<u8> first = Saved(record);
    MemoryStream again(first.data(), first.size());
    Record fresh;
    Require(Load(fresh, again) && again.at == first.size());
    Require(Saved(fresh) == first);
    const Record copy(record);
    Require(Saved(copy) == first);
  }
  Saved(record);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const u8* data, size_t size) {
  FuzzInput input(data, size);
  switch (input.Below(4)) {
    case 0:
      Check<VoteTopicRecord>(input);
      break;
    case 1:
      Check<VoteItemRecord>(input);
      break;
    case 2:
      Check<VoteOptionRecord>(input);
      break;
    default:
      Check<VoteAnswerRecord>(input);
  }
  return 0;
}
