// Chained hash map with a fixed table, and nodes from JW_Plex blocks.
//
// The table is made at the first insertion, never grows, and goes with the last entry. New nodes stand at the head
// of their chain; iteration goes through the buckets in ascending order and each chain from its head. A lookup that
// walks more than 30 steps along its chain prints one warning for each further step.
//
// A map that has grown far past its buckets keeps an index beside the chains. The index finds a node, and its place
// in its chain, without the walk; what the walk would have printed is printed all the same. Node order, iteration and
// warnings are those of the plain chains.
#pragma once

#include "JW_Base/Include/JW_Memory.h"
#include "JW_Base/Include/JW_Plex.h"
#include "JW_Base/Include/JW_Types.h"

// Prints "warning: unreasonable hash key!\r\n" to the standard output, `times` times, if the process has one.
void JW_WarnLongWalk(u32 times);

// How a key finds its bucket. 32-bit keys by their value, pointers without their alignment bits; JW_ID.h adds the
// participant id.
template <class K>
struct JW_MapKey {
  static u64 Number(K key) { return static_cast<u32>(key); }
  static u32 Bucket(K key, u32 buckets) { return static_cast<u32>(key) % buckets; }
};
template <class T>
struct JW_MapKey<T*> {
  static u64 Number(T* key) { return reinterpret_cast<uintptr_t>(key); }
  static u32 Bucket(T* key, u32 buckets) { return static_cast<u32>((reinterpret_cast<uintptr_t>(key) >> 4) % buckets); }
};

template <class K, class V>
class JW_Map {
 public:
  struct Node {
    Node* pNext;
    u32 nBucket;
    K key;
    V value;
  };

  explicit JW_Map(int blockSize = 10, int tableSize = 17)
      : pHashTable(nullptr),
        nHashTableSize(tableSize),
        nCount(0),
        pFreeList(nullptr),
        pBlocks(nullptr),
        nBlockSize(blockSize) {}
  ~JW_Map() { RemoveAll(); }
  JW_Map(const JW_Map&) = delete;
  JW_Map& operator=(const JW_Map&) = delete;

  int GetCount() const { return nCount; }
  bool IsEmpty() const { return nCount == 0; }
  bool HasTable() const { return pHashTable != nullptr; }

  // The value under `key`, null if there is none. Valid until the entry is removed.
  V* Lookup(const K& key) {
    Node* const node = Find(key);
    return node ? &node->value : nullptr;
  }
  const V* Lookup(const K& key) const { return const_cast<JW_Map*>(this)->Lookup(key); }
  bool Contains(const K& key) const { return Lookup(key) != nullptr; }

  // The value under `key`, which is inserted with an empty value if it is missing. Where memory runs out the result
  // is a scratch value that belongs to no entry.
  V& operator[](const K& key) {
    Node* node = Find(key);
    if (!node) node = Insert(key);
    if (node) return node->value;
    static V scratch;
    scratch = V();
    return scratch;
  }

  // Stores `value` under a key that the map doesn't hold yet. False, with the map as it was, if it does, or if
  // memory runs out.
  bool AddNew(const K& key, const V& value) {
    Node* const node = Find(key) ? nullptr : Insert(key);
    if (node) node->value = value;
    return node != nullptr;
  }

  // The last entry to go takes the table and the blocks with it.
  bool RemoveKey(const K& key) {
    if (!pHashTable) return false;
    const u32 bucket = JW_MapKey<K>::Bucket(key, static_cast<u32>(nHashTableSize));
    Node** link = &pHashTable[bucket];
    while (*link && !((*link)->key == key)) link = &(*link)->pNext;
    Node* const node = *link;
    if (!node) return false;
    *link = node->pNext;
    if (Side()->index.slots) Unindex(node, bucket);
    --Side()->chainLength[bucket];
    JW_Destroy(&node->key);
    JW_Destroy(&node->value);
    node->nBucket = kFreeNode;
    node->pNext = pFreeList;
    pFreeList = node;
    if (--nCount == 0) RemoveAll();
    return true;
  }

  void RemoveAll() {
    if (pHashTable) {
      ForEachInMemory([](Node& node) {
        JW_Destroy(&node.key);
        JW_Destroy(&node.value);
      });
      free(Side()->index.slots);
      free(static_cast<void*>(pHashTable));
    }
    pHashTable = nullptr;
    nCount = 0;
    pFreeList = nullptr;
    JW_Plex::FreeChain(pBlocks);
    pBlocks = nullptr;
  }

  // Visits all nodes in the order in which they lie in memory, which is kinder to the caches than the chains' order.
  template <class Visit>
  void ForEachInMemory(Visit visit) {
    for (JW_Plex* block = pBlocks; block; block = block->next) {
      Node* const nodes = static_cast<Node*>(block->Data());
      for (int i = 0; i < nBlockSize; ++i) {
        if (nodes[i].nBucket != kFreeNode) visit(nodes[i]);
      }
    }
  }

  // Iteration: `for (Position at = map.GetStartPosition(); at;) { Node* node = map.GetNext(at); ... }`. The position
  // has moved on when GetNext returns, so the returned node may be removed.
  typedef Node* Position;
  Position GetStartPosition() const { return nCount == 0 ? nullptr : StartMark(); }
  Node* GetNext(Position& position) const {
    Node* const node = position == StartMark() ? First() : position;
    position = node ? After(node) : nullptr;
    return node;
  }

  struct Iterator {
    const JW_Map* map;
    Node* node;
    Node& operator*() const { return *node; }
    Iterator& operator++() {
      node = map->After(node);
      return *this;
    }
    bool operator!=(const Iterator& other) const { return node != other.node; }
  };
  Iterator begin() const { return {this, First()}; }
  Iterator end() const { return {this, nullptr}; }

 private:
  // From this many entries on an index pays; below it a chain holds few nodes.
  static constexpr int kIndexedFrom = 96;
  static constexpr u32 kQuietSteps = 30;
  // The bucket of a node on the free list.
  static constexpr u32 kFreeNode = 0xFFFFFFFF;

  struct Slot {
    Node* node;
    u32 hash;
    u32 rank;  // nodes behind this one in its chain
  };
  struct Index {
    Slot* slots;
    u32 mask;
  };
  // Stands behind the buckets in the table's memory.
  struct SideTable {
    Index index;
    u32 chainLength[1];
  };

  SideTable* Side() const { return reinterpret_cast<SideTable*>(pHashTable + nHashTableSize); }
  static Node* StartMark() { return reinterpret_cast<Node*>(~static_cast<uintptr_t>(0)); }

  Node* FirstFrom(u32 bucket) const {
    for (; bucket < static_cast<u32>(nHashTableSize); ++bucket) {
      if (pHashTable[bucket]) return pHashTable[bucket];
    }
    return nullptr;
  }
  Node* First() const { return pHashTable ? FirstFrom(0) : nullptr; }
  Node* After(const Node* node) const { return node->pNext ? node->pNext : FirstFrom(node->nBucket + 1); }

  static u32 HashOf(const K& key) {
    const u64 product = JW_MapKey<K>::Number(key) * 0x9E3779B97F4A7C15u;
    return static_cast<u32>(product >> 32);
  }
  static void WarnAfter(u32 steps) {
    if (steps > kQuietSteps) [[unlikely]]
      JW_WarnLongWalk(steps - kQuietSteps);
  }

  Node* Find(const K& key) const {
    if (!pHashTable) return nullptr;
    const u32 bucket = JW_MapKey<K>::Bucket(key, static_cast<u32>(nHashTableSize));
    if (Side()->index.slots) {
      const Slot* const slot = FindSlot(key, HashOf(key));
      const u32 length = Side()->chainLength[bucket];
      WarnAfter(slot->node ? length - slot->rank : length);
      return slot->node;
    }
    u32 steps = 0;
    Node* node = pHashTable[bucket];
    for (; node; node = node->pNext) {
      ++steps;
      if (node->key == key) break;
    }
    WarnAfter(steps);
    return node;
  }

  // Puts a new node with a key that the map doesn't hold at the head of its chain.
  Node* Insert(const K& key) {
    if (!pHashTable && !MakeTable()) return nullptr;
    if (!pFreeList && !AddBlock()) return nullptr;
    Node* const node = pFreeList;
    pFreeList = node->pNext;
    const u32 bucket = JW_MapKey<K>::Bucket(key, static_cast<u32>(nHashTableSize));
    node->nBucket = bucket;
    memset(static_cast<void*>(&node->key), 0, sizeof(K));
    ::new (static_cast<void*>(&node->key), JW_Place()) K(key);
    memset(static_cast<void*>(&node->value), 0, sizeof(V));
    ::new (static_cast<void*>(&node->value), JW_Place()) V();
    node->pNext = pHashTable[bucket];
    pHashTable[bucket] = node;
    ++nCount;
    const u32 rank = Side()->chainLength[bucket]++;
    if (Side()->index.slots || nCount >= kIndexedFrom) AddToIndex(node, rank);
    return node;
  }
  bool MakeTable() {
    const u32 buckets = static_cast<u32>(nHashTableSize);
    const size_t size = buckets * sizeof(Node*) + sizeof(SideTable) + buckets * sizeof(u32);
    void* const table = malloc(size);
    if (!table) return false;
    memset(table, 0, size);
    pHashTable = static_cast<Node**>(table);
    return true;
  }
  bool AddBlock() {
    JW_Plex* const block = JW_Plex::Create(pBlocks, static_cast<u32>(nBlockSize), sizeof(Node));
    if (!block) return false;
    Node* const nodes = static_cast<Node*>(block->Data());
    for (int i = nBlockSize - 1; i >= 0; --i) {
      nodes[i].nBucket = kFreeNode;
      nodes[i].pNext = pFreeList;
      pFreeList = &nodes[i];
    }
    return true;
  }

  // The index is an open-addressing table at most half full. Without memory for it the map goes on without one.
  Slot* FindSlot(const K& key, u32 hash) const {
    const Index& index = Side()->index;
    for (u32 at = hash & index.mask;; at = (at + 1) & index.mask) {
      Slot* const slot = &index.slots[at];
      if (!slot->node || (slot->hash == hash && slot->node->key == key)) return slot;
    }
  }
  Slot* FreeSlot(u32 hash) const {
    const Index& index = Side()->index;
    u32 at = hash & index.mask;
    while (index.slots[at].node) at = (at + 1) & index.mask;
    return &index.slots[at];
  }
  void AddToIndex(Node* node, u32 rank) {
    const Index& index = Side()->index;
    const bool hadIndex = index.slots != nullptr;
    if (!hadIndex || static_cast<u32>(nCount) * 2 > index.mask) Reindex();
    // The first making of the index has found the node in its chain.
    if (!hadIndex || !index.slots) return;
    const u32 hash = HashOf(node->key);
    *FreeSlot(hash) = {node, hash, rank};
  }
  // Makes the index, or a larger one from the slots of the old.
  void Reindex() {
    Index& index = Side()->index;
    const Index old = index;
    index.slots = nullptr;
    u64 size = 64;
    while (size < static_cast<u64>(nCount) * 4) size *= 2;
    if (size * sizeof(Slot) <= 0x3FFFFFFF) {
      index.slots = static_cast<Slot*>(calloc(static_cast<size_t>(size), sizeof(Slot)));
      index.mask = static_cast<u32>(size) - 1;
    }
    if (index.slots && old.slots) {
      for (u32 at = 0; at <= old.mask; ++at) {
        if (old.slots[at].node) *FreeSlot(old.slots[at].hash) = old.slots[at];
      }
    } else if (index.slots) {
      for (u32 bucket = 0; bucket < static_cast<u32>(nHashTableSize); ++bucket) {
        u32 rank = Side()->chainLength[bucket];
        for (Node* node = pHashTable[bucket]; node; node = node->pNext) {
          const u32 hash = HashOf(node->key);
          *FreeSlot(hash) = {node, hash, --rank};
        }
      }
    }
    free(old.slots);
  }
  // Takes a node that has left its chain out of the index: the nodes before it move one place to the front.
  void Unindex(Node* node, u32 bucket) {
    Index& index = Side()->index;
    const u32 rank = FindSlot(node->key, HashOf(node->key))->rank;
    for (Node* before = pHashTable[bucket]; before; before = before->pNext) {
      Slot* const slot = FindSlot(before->key, HashOf(before->key));
      if (slot->rank < rank) break;
      --slot->rank;
    }
    // Closes the gap in the probe sequence, so that no search ends early.
    u32 gap = static_cast<u32>(FindSlot(node->key, HashOf(node->key)) - index.slots);
    for (u32 at = (gap + 1) & index.mask; index.slots[at].node; at = (at + 1) & index.mask) {
      const u32 home = index.slots[at].hash & index.mask;
      if (((at - home) & index.mask) >= ((at - gap) & index.mask)) {
        index.slots[gap] = index.slots[at];
        gap = at;
      }
    }
    index.slots[gap].node = nullptr;
  }

  Node** pHashTable;
  int nHashTableSize;
  int nCount;
  Node* pFreeList;
  JW_Plex* pBlocks;
  int nBlockSize;
};
static_assert(sizeof(void*) != 4 || sizeof(JW_Map<u32, u32>) == 24,
              "table, table size, count, free list, blocks, block size");
