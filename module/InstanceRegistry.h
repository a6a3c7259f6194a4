// The instances that hosts have asked for, by the pointer that they were given.
#pragma once

#include "JW_Base/Include/JW_Locker.h"
#include "JW_Base/Include/JW_Map.h"
#include "JW_Base/Include/JW_String.h"
#include "module/IZQVote.h"

class InstanceRegistry {
 public:
  // Makes an object and returns its IZQVote part; null if memory runs out.
  typedef IZQVote* (*Factory)();

  explicit InstanceRegistry(Factory factory) : m_pFactory(factory), m_Locker("g_mapInstance") {}

  // A new instance for the name "IZQVote", else null. A failed allocation leaves an entry under the null key.
  void* Create(const char* name);

  // Takes the instance's entry away, after having given it the sink 1. The object itself isn't freed. A pointer that
  // isn't registered leaves an entry with an empty name as its trace.
  void Destroy(void* instance);

  // Entries, and whether the map holds memory for them.
  int Count() const { return m_Instances.GetCount(); }
  bool HasTable() const { return m_Instances.HasTable(); }

 private:
  Factory m_pFactory;
  JW_Map<void*, JW_StringA> m_Instances;
  JW_Locker m_Locker;
};

// The one interface that the module has.
extern const char kVoteInterfaceName[8];

// Writes the name of interface `index` into `buffer`, which has room for 8 bytes. False, with nothing written, for any
// index but 0.
bool GetVoteInterfaceName(int index, char* buffer);
