#pragma once

#include "node/ZelXmlCollectionService.h"

// A node with `children`. Its operations are those of its service.
class ZelXmlCollectionNode : public ZelXmlNode {
 public:
  bool addChild(ZelNode* child) override { return service_.addChild(child); }
  virtual bool removeChild(const ApiPmId& id) { return service_.removeChild(id); }
  virtual bool removeChildLocally(const ApiPmId& id) { return service_.removeChildLocally(id); }
  virtual bool addExistingChild(ZelNode* child) { return service_.addExistingChild(child); }
  virtual bool createChild(const ZelXmlCreationRecord& record, ZelNode*& child) {
    return service_.createChild(record, child);
  }
  virtual bool addLayoutChild(const IXMLDOMNode& child) { return service_.addLayoutChild(child); }
  virtual bool addLayoutChildLocally(const IXMLDOMNode& child) {
    return service_.addLayoutChildLocally(child);
  }

  ZelXmlCollectionService& collectionService() { return service_; }
  const ZelXmlCollectionService& collectionService() const { return service_; }

 private:
  ZelXmlCollectionService service_{this};
};
