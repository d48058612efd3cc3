#pragma once

#include <vector>

#include "api/ApiPmId.h"
#include "rw/RWClassicTValHashDictionary.h"
#include "zel/ZelNode.h"

// The node registry: which node object stands for an id. It owns the node objects; a node lives as long as
// its entry, and a node whose entry was given to another lives on, unreachable, until `clear`.
//
// PLC internal nodes stand in a dictionary of their own. Listings give the others first; within a dictionary
// the order is that of the hash buckets and says nothing about the document.
class ZelXmlIdConvertor {
 public:
  ZelXmlIdConvertor();
  ~ZelXmlIdConvertor();
  ZelXmlIdConvertor(const ZelXmlIdConvertor&) = delete;
  ZelXmlIdConvertor& operator=(const ZelXmlIdConvertor&) = delete;

  // Deletes all nodes; bucket counts stay.
  void clear();
  ZelNode* findNode(const ApiPmId& id) const;
  ZelNode* findPlcInternalNode(const ApiPmId& id) const;
  // Registers a node. An id that is present keeps its entry and gets the new node; the answer is the one that
  // it had, else null.
  ZelNode* insertNode(const ApiPmId& id, ZelNode* node);
  // Drops the entry; the node becomes the caller's.
  void removeNode(const ApiPmId& id);
  // Drops entry and node. `id` may be the entry's own key, or the node's own id.
  void removeAndDeleteNode(const ApiPmId& id);
  void removeAndDeletePlcInternalNode(const ApiPmId& id);

  // Listings append. The id pointers stay good until the entry goes.
  void getAllNodes(ZelNodeList& nodes) const;
  void getAllNodesAndIds(ZelNodeList& nodes, RWClassicTValOrderedVector<const ApiPmId*>& ids) const;
  void getVorNodesAndIds(ZelNodeList& nodes, RWClassicTValOrderedVector<const ApiPmId*>& ids) const;
  void getPlcInternalIds(RWClassicTValOrderedVector<const ApiPmId*>& ids) const;
  int nodesNum() const;

  // Whether a node is of one of the classes that live inside the PLC data of an object.
  static bool isPlcInternalNode(const ZelNode* node);

  // Takes a node that gets no entry, so that it is deleted with the others.
  void keepUnregistered(ZelNode* node) { unregistered_.push_back(node); }

 private:
  using Dictionary = RWClassicTValHashDictionary<ApiPmId, ZelNode*, RWOrderHash<ApiPmId>, RWByNumber>;
  static void deleteNodes(Dictionary& nodes);
  static bool removeAndDelete(Dictionary& nodes, const ApiPmId& id);

  Dictionary vorNodes_;
  Dictionary plcInternalNodes_;
  std::vector<ZelNode*> unregistered_;
};
