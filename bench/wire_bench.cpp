// A full answer record through a stream's table, beside the straightest code for the same bytes and two formats that
// others use for such records.
#include <benchmark/benchmark.h>

#include <cstring>
#include <msgpack.hpp>
#include <string>

#include "answer.pb.h"
#include "records/VoteRecords.h"

namespace {

constexpr u32 kTopic = 7;
constexpr u32 kItem = 70001;
constexpr u32 kHigh = 20017;
constexpr u32 kLow = 42;
constexpr u32 kOption = 3;
constexpr char kName[] = "Anna Bergman";  // 12 bytes
constexpr u32 kNameLength = sizeof(kName) - 1;

// The least that a host's stream does: bounds, direction, a position.
class BenchStream final : public JW_ByteStream {
 public:
  void Rewind(bool load) {
    m_bLoad = load;
    m_nAt = 0;
  }
  [[gnu::noinline]] void CheckSize(u32, u32 size) override {
    if (size > sizeof(m_Bytes) - m_nAt) throw 1;
  }
  [[gnu::noinline]] void Transfer(int displacement, u32 size, void* data) override {
    const u32 at = m_nAt + static_cast<u32>(displacement);
    if (at > sizeof(m_Bytes) || size > sizeof(m_Bytes) - at) throw 1;
    if (m_bLoad) {
      JW_CopyShort(data, m_Bytes + at, size);
    } else {
      JW_CopyShort(m_Bytes + at, data, size);
    }
    m_nAt = at + size;
  }

 private:
  u8 m_Bytes[256] = {};
  u32 m_nAt = 0;
};

// The object through its base, so that every call goes through its table as it does across the boundary.
template <class Base>
Base* Opaque(Base* object) {
  benchmark::DoNotOptimize(object);
  return object;
}

VoteAnswerRecord FullAnswer() {
  VoteAnswerRecord answer;
  answer.TopicID = kTopic;
  answer.ItemID = kItem;
  answer.VoterID = JW_ID(kLow, kHigh);
  answer.OptionID = kOption;
  answer.SetSignName(kName);
  answer.m_nMask = VoteAnswerRecord::kAll;
  return answer;
}

void EncodeAnswer(benchmark::State& state) {
  const VoteAnswerRecord answer = FullAnswer();
  BenchStream stream;
  for (auto _ : state) {
    stream.Rewind(false);
    Opaque<const VoteRecord>(&answer)->Save(*Opaque<JW_ByteStream>(&stream));
    benchmark::ClobberMemory();
  }
}
BENCHMARK(EncodeAnswer)->Name("wire/encode/zqvote");

void DecodeAnswer(benchmark::State& state) {
  BenchStream stream;
  stream.Rewind(false);
  FullAnswer().Save(stream);
  VoteAnswerRecord answer;
  for (auto _ : state) {
    stream.Rewind(true);
    Opaque<VoteRecord>(&answer)->Load(*Opaque<JW_ByteStream>(&stream));
    benchmark::DoNotOptimize(answer);
  }
}
BENCHMARK(DecodeAnswer)->Name("wire/decode/zqvote");

// Straight-line code for exactly these fields into a flat buffer: no mask, no bounds, no stream.
struct PlainAnswer {
  u32 topic, item, high, low, option;
  std::string name;
  u32 extra;
};

size_t HandEncode(const PlainAnswer& answer, u8* out) {
  u8* at = out;
  const auto put = [&at](u32 value) {
    memcpy(at, &value, 4);
    at += 4;
  };
  *at++ = 0xFC;
  put(answer.topic);
  put(answer.item);
  put(answer.high);
  put(answer.low);
  put(answer.option);
  *at++ = static_cast<u8>(answer.name.size());
  memcpy(at, answer.name.data(), answer.name.size());
  at += answer.name.size();
  put(answer.extra);
  return static_cast<size_t>(at - out);
}

void HandDecode(const u8* in, PlainAnswer& answer) {
  const u8* at = in + 1;
  const auto take = [&at](u32& value) {
    memcpy(&value, at, 4);
    at += 4;
  };
  take(answer.topic);
  take(answer.item);
  take(answer.high);
  take(answer.low);
  take(answer.option);
  const size_t length = *at++;
  answer.name.assign(reinterpret_cast<const char*>(at), length);
  at += length;
  take(answer.extra);
}

PlainAnswer Plain() {
  return {kTopic, kItem, kHigh, kLow, kOption, std::string(kName, kNameLength), 0};
}

void EncodeByHand(benchmark::State& state) {
  PlainAnswer answer = Plain();
  u8 bytes[256];
  for (auto _ : state) {
    benchmark::DoNotOptimize(answer);
    benchmark::DoNotOptimize(HandEncode(answer, bytes));
    benchmark::ClobberMemory();
  }
}
BENCHMARK(EncodeByHand)->Name("wire/encode/hand");

void DecodeByHand(benchmark::State& state) {
  u8 bytes[256];
  HandEncode(Plain(), bytes);
  PlainAnswer answer;
  for (auto _ : state) {
    benchmark::ClobberMemory();
    HandDecode(bytes, answer);
    benchmark::DoNotOptimize(answer);
  }
}
BENCHMARK(DecodeByHand)->Name("wire/decode/hand");

// The same straight-line code for a client that has such a stream: its bytes go to the stream as one block, and come
// from it in the two pieces that the name's length divides them into.
void EncodeByHandToStream(benchmark::State& state) {
  PlainAnswer answer = Plain();
  BenchStream stream;
  u8 bytes[256];
  for (auto _ : state) {
    benchmark::DoNotOptimize(answer);
    stream.Rewind(false);
    const size_t size = HandEncode(answer, bytes);
    Opaque<JW_ByteStream>(&stream)->Transfer(0, static_cast<u32>(size), bytes);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(EncodeByHandToStream)->Name("wire/encode/hand to a stream");

void DecodeByHandFromStream(benchmark::State& state) {
  constexpr u32 kBeforeName = 22;
  BenchStream stream;
  stream.Rewind(false);
  FullAnswer().Save(stream);
  PlainAnswer answer;
  u8 bytes[256];
  for (auto _ : state) {
    stream.Rewind(true);
    JW_ByteStream* const source = Opaque<JW_ByteStream>(&stream);
    source->Transfer(0, kBeforeName, bytes);
    source->Transfer(0, bytes[kBeforeName - 1] + 4u, bytes + kBeforeName);
    HandDecode(bytes, answer);
    benchmark::DoNotOptimize(answer);
  }
}
BENCHMARK(DecodeByHandFromStream)->Name("wire/decode/hand from a stream");

void EncodeMsgpack(benchmark::State& state) {
  PlainAnswer answer = Plain();
  msgpack::sbuffer buffer(256);
  for (auto _ : state) {
    benchmark::DoNotOptimize(answer);
    buffer.clear();
    msgpack::packer<msgpack::sbuffer> pack(buffer);
    pack.pack_array(7);
    pack.pack_uint32(answer.topic);
    pack.pack_uint32(answer.item);
    pack.pack_uint32(answer.high);
    pack.pack_uint32(answer.low);
    pack.pack_uint32(answer.option);
    pack.pack_str(static_cast<u32>(answer.name.size()));
    pack.pack_str_body(answer.name.data(), static_cast<u32>(answer.name.size()));
    pack.pack_uint32(answer.extra);
    benchmark::DoNotOptimize(buffer.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(EncodeMsgpack)->Name("wire/encode/msgpack");

void DecodeMsgpack(benchmark::State& state) {
  msgpack::sbuffer buffer;
  const auto fields = std::make_tuple(kTopic, kItem, kHigh, kLow, kOption, std::string(kName), 0u);
  msgpack::pack(buffer, fields);
  std::tuple<u32, u32, u32, u32, u32, std::string, u32> read;
  for (auto _ : state) {
    msgpack::unpack(buffer.data(), buffer.size()).get().convert(read);
    benchmark::DoNotOptimize(read);
  }
}
BENCHMARK(DecodeMsgpack)->Name("wire/decode/msgpack");

zqbench::Answer Message() {
  zqbench::Answer answer;
  answer.set_topic(kTopic);
  answer.set_item(kItem);
  answer.set_voter_high(kHigh);
  answer.set_voter_low(kLow);
  answer.set_option(kOption);
  answer.set_sign_name(kName);
  answer.set_extra(1);
  return answer;
}

void EncodeProtobuf(benchmark::State& state) {
  const zqbench::Answer answer = Message();
  u8 bytes[256];
  for (auto _ : state) {
    benchmark::DoNotOptimize(answer.SerializeToArray(bytes, sizeof(bytes)));
    benchmark::ClobberMemory();
  }
}
BENCHMARK(EncodeProtobuf)->Name("wire/encode/protobuf-lite");

void DecodeProtobuf(benchmark::State& state) {
  const std::string bytes = Message().SerializeAsString();
  zqbench::Answer answer;
  for (auto _ : state) {
    benchmark::DoNotOptimize(answer.ParseFromArray(bytes.data(), static_cast<int>(bytes.size())));
    benchmark::DoNotOptimize(answer);
  }
}
BENCHMARK(DecodeProtobuf)->Name("wire/decode/protobuf-lite");

}  // namespace
