// Doubly linked list whose nodes come from JW_Plex blocks.
//
// A list that arrives across the module's boundary was built by another heap: it is walked from GetHead by GetNext
// and copied, and never changed.
#pragma once

#include "JW_Base/Include/JW_Memory.h"
#include "JW_Base/Include/JW_Plex.h"
#include "JW_Base/Include/JW_Types.h"

template <class T>
class JW_List {
 public:
  struct Node {
    Node* pNext;
    Node* pPrev;
    T data;
  };

  explicit JW_List(int blockSize = 10)
      : pHead(nullptr), pTail(nullptr), nCount(0), pFreeList(nullptr), pBlocks(nullptr), nBlockSize(blockSize) {}
  JW_List(const JW_List& other) : JW_List(other.nBlockSize) { AppendAll(other); }
  JW_List& operator=(const JW_List& other) {
    if (this != &other) {
      RemoveAll();
      AppendAll(other);
    }
    return *this;
  }
  ~JW_List() { RemoveAll(); }

  int GetCount() const { return nCount; }
  bool IsEmpty() const { return nCount == 0; }
  Node* GetHead() { return pHead; }
  Node* GetTail() { return pTail; }
  const Node* GetHead() const { return pHead; }
  const Node* GetTail() const { return pTail; }

  // Each returns the new node, or null, with the list as it was, if memory runs out.
  Node* AddTail(const T& value) { return Link(pTail, nullptr, value); }
  Node* AddHead(const T& value) { return Link(nullptr, pHead, value); }
  Node* InsertBefore(Node* node, const T& value) { return node ? Link(node->pPrev, node, value) : AddHead(value); }

  void AppendAll(const JW_List& other) {
    for (const Node* node = other.pHead; node; node = node->pNext) AddTail(node->data);
  }

  void RemoveAt(Node* node) {
    (node->pPrev ? node->pPrev->pNext : pHead) = node->pNext;
    (node->pNext ? node->pNext->pPrev : pTail) = node->pPrev;
    JW_Destroy(&node->data);
    node->pNext = pFreeList;
    pFreeList = node;
    if (--nCount == 0) RemoveAll();
  }
  void RemoveAll() {
    for (Node* node = pHead; node; node = node->pNext) JW_Destroy(&node->data);
    pHead = pTail = pFreeList = nullptr;
    nCount = 0;
    JW_Plex::FreeChain(pBlocks);
    pBlocks = nullptr;
  }

  template <class Value>
  struct IteratorT {
    decltype(Node::pNext) node;
    Value& operator*() const { return node->data; }
    IteratorT& operator++() {
      node = node->pNext;
      return *this;
    }
    bool operator!=(const IteratorT& other) const { return node != other.node; }
  };
  IteratorT<T> begin() { return {pHead}; }
  IteratorT<T> end() { return {nullptr}; }
  IteratorT<const T> begin() const { return {pHead}; }
  IteratorT<const T> end() const { return {nullptr}; }

 private:
  Node* Link(Node* previous, Node* next, const T& value) {
    if (!pFreeList && !AddBlock()) return nullptr;
    Node* const node = pFreeList;
    pFreeList = node->pNext;
    memset(static_cast<void*>(&node->data), 0, sizeof(T));
    ::new (static_cast<void*>(&node->data), JW_Place()) T(value);
    node->pPrev = previous;
    node->pNext = next;
    (previous ? previous->pNext : pHead) = node;
    (next ? next->pPrev : pTail) = node;
    ++nCount;
    return node;
  }
  bool AddBlock() {
    JW_Plex* const block = JW_Plex::Create(pBlocks, static_cast<u32>(nBlockSize), sizeof(Node));
    if (!block) return false;
    Node* const nodes = static_cast<Node*>(block->Data());
    for (int i = nBlockSize - 1; i >= 0; --i) {
      nodes[i].pNext = pFreeList;
      pFreeList = &nodes[i];
    }
    return true;
  }

  Node* pHead;
  Node* pTail;
  int nCount;
  Node* pFreeList;
  JW_Plex* pBlocks;
  int nBlockSize;
};
static_assert(sizeof(void*) != 4 || sizeof(JW_List<u32>) == 24, "head, tail, count, free list, blocks, block size");
