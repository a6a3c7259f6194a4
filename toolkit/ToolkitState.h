// What the toolkit's own sources share of its state. Not for others: they include Toolkit.h.
#pragma once

#include "platform/CriticalSection.h"

struct ToolkitSections {
  platform::CriticalSection CreateList;  // windows being created; never held while foreign code runs
  platform::CriticalSection Classes;     // registration of window classes
  platform::CriticalSection Thunks;      // memory of the thunks
};

// Between InitToolkit and TermToolkit.
ToolkitSections& ToolkitLocks();

class ToolkitLock {
 public:
  explicit ToolkitLock(platform::CriticalSection& section) : m_Section(section) { m_Section.Enter(); }
  ~ToolkitLock() { m_Section.Leave(); }
  ToolkitLock(const ToolkitLock&) = delete;
  ToolkitLock& operator=(const ToolkitLock&) = delete;

 private:
  platform::CriticalSection& m_Section;
};

// Has `function` called with `argument` at the end, the last one added first, when there are no locks any more. Called
// under the lock of the classes. False if memory runs out.
bool AddTermination(void (*function)(void* argument), void* argument);
