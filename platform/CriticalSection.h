// The system's recursive lock.
#pragma once

namespace platform {

class CriticalSection {
 public:
  CriticalSection();
  ~CriticalSection();
  CriticalSection(const CriticalSection&) = delete;
  CriticalSection& operator=(const CriticalSection&) = delete;

  void Enter();
  void Leave();

 private:
  alignas(8) unsigned char m_Storage[64];
};

}  // namespace platform
