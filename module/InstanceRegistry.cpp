#include "module/InstanceRegistry.h"

#include <cstring>

const char kVoteInterfaceName[8] = "IZQVote";

bool GetVoteInterfaceName(int index, char* buffer) {
  if (index != 0 || !buffer) return false;
  memcpy(buffer, kVoteInterfaceName, sizeof(kVoteInterfaceName));
  return true;
}

void* InstanceRegistry::Create(const char* name) {
  const JW_AutoLock lock(&m_Locker);
  if (!name || strcmp(name, kVoteInterfaceName) != 0) return nullptr;
  IZQVote* const instance = m_pFactory();
  m_Instances[instance] = name;
  return instance;
}

void InstanceRegistry::Destroy(void* instance) {
  const JW_AutoLock lock(&m_Locker);
  if (m_Instances[instance] != kVoteInterfaceName) return;
  // The sink of the value 1 marks the data as given up: a host that goes on is outside the contract.
  if (instance) static_cast<IZQVote*>(instance)->SetVoteSink(reinterpret_cast<IZQVoteSink*>(static_cast<uintptr_t>(1)));
  m_Instances.RemoveKey(instance);
}
