// A recursive lock, and its scoped form.
#pragma once

#include "JW_Base/Include/JW_Types.h"
#include "platform/CriticalSection.h"

class JW_Locker {
 public:
  // `name` isn't copied and tells locks apart for whoever debugs them.
  explicit JW_Locker(const char* name) : m_sName(name) {}
  virtual ~JW_Locker() = default;
  JW_Locker(const JW_Locker&) = delete;
  JW_Locker& operator=(const JW_Locker&) = delete;

  void Lock() { m_Section.Enter(); }
  void Unlock() { m_Section.Leave(); }
  const char* Name() const { return m_sName; }

 private:
  platform::CriticalSection m_Section;
  const char* m_sName;
};

class JW_AutoLock {
 public:
  explicit JW_AutoLock(JW_Locker* lck) : m_pLocker(lck) {
    JW_ASSERT(lck, "lck");
    m_pLocker->Lock();
  }
  ~JW_AutoLock() { m_pLocker->Unlock(); }
  JW_AutoLock(const JW_AutoLock&) = delete;
  JW_AutoLock& operator=(const JW_AutoLock&) = delete;

 private:
  JW_Locker* m_pLocker;
};
