#include "host/Message.h"

#include "host/MemoryStream.h"

namespace conference {
namespace {

void WriteNumber(MemoryStream& stream, u32 number) {
  JW_ByteStream::SwapBytes(&number, sizeof(number));
  stream.Write(&number, sizeof(number));
}

u32 ReadNumber(MemoryStream& stream) {
  u32 number = 0;
  stream.Read(&number, sizeof(number));
  JW_ByteStream::SwapBytes(&number, sizeof(number));
  return number;
}

template <class Record>
void WriteList(MemoryStream& stream, const JW_List<Record>& list) {
  stream.WriteLength(static_cast<u32>(list.GetCount()));
  for (const Record& record : list) record.Save(stream);
}

template <class Record>
void ReadList(MemoryStream& stream, JW_List<Record>& list) {
  list.RemoveAll();
  for (u32 left = stream.ReadLength(); left > 0; --left) {
    // A record is never shorter than its head, so a false count ends with the bytes.
    Record record;
    record.Load(stream);
    list.AddTail(record);
  }
}

void WriteIds(MemoryStream& stream, const VoteIdArray& ids) {
  stream.WriteLength(static_cast<u32>(ids.GetSize()));
  for (const u32 id : ids) WriteNumber(stream, id);
}

void ReadIds(MemoryStream& stream, VoteIdArray& ids) {
  ids.RemoveAll();
  for (u32 left = stream.ReadLength(); left > 0; --left) ids.Add(ReadNumber(stream));
}

}  // namespace

std::vector<u8> Encode(const Message& message) {
  MemoryStream stream;
  try {
    stream.Write(&message.kind, sizeof(message.kind));
    WriteNumber(stream, static_cast<u32>(message.topicId));
    WriteNumber(stream, static_cast<u32>(message.value));
    message.user.Save(stream);
    stream.WriteString(message.text, false);
    WriteIds(stream, message.ids);
    WriteList(stream, message.topics);
    WriteList(stream, message.items);
    WriteList(stream, message.options);
    WriteList(stream, message.answers);
  } catch (const MemoryStream::EndOfStream&) {
    return {};
  }
  return stream.Bytes();
}

bool Decode(const std::vector<u8>& bytes, Message& message) {
  MemoryStream stream(bytes);
  try {
    stream.Read(&message.kind, sizeof(message.kind));
    message.topicId = static_cast<int>(ReadNumber(stream));
    message.value = static_cast<int>(ReadNumber(stream));
    message.user.Load(stream);
    stream.ReadString(message.text, false);
    ReadIds(stream, message.ids);
    ReadList(stream, message.topics);
    ReadList(stream, message.items);
    ReadList(stream, message.options);
    ReadList(stream, message.answers);
  } catch (const MemoryStream::EndOfStream&) {
    return false;
  } catch (long) {
    return false;  // kJW_BadLength
  }
  return stream.Remaining() == 0;
}

}  // namespace conference
