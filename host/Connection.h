// The way between one participant and the conference: bytes only, in order, in both directions. What is sent arrives
// when the other side next asks, never within the call, as on any real connection.
#pragma once

#include <deque>
#include <vector>

#include "host/Message.h"

namespace conference {

class Connection {
 public:
  // One direction.
  class Line {
   public:
    // A message that is too large for the line is not sent.
    bool Send(const Message& message) {
      std::vector<u8> bytes = Encode(message);
      if (bytes.empty()) return false;
      ++m_nMessages;
      m_nBytes += bytes.size();
      m_Waiting.push_back(std::move(bytes));
      return true;
    }
    // The oldest message that waits; false if there is none. One that can't be read is dropped.
    bool Receive(Message& message) {
      while (!m_Waiting.empty()) {
        const std::vector<u8> bytes = std::move(m_Waiting.front());
        m_Waiting.pop_front();
        if (Decode(bytes, message)) return true;
      }
      return false;
    }

    u64 Messages() const { return m_nMessages; }
    u64 Bytes() const { return m_nBytes; }

   private:
    std::deque<std::vector<u8>> m_Waiting;
    u64 m_nMessages = 0;
    u64 m_nBytes = 0;
  };

  Line toConference;
  Line toParticipant;
};

}  // namespace conference
