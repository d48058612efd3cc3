#pragma once

#include "node/ZelXmlCollectionService.h"

// A node with `children`. Its operations are those of its service.
class ZelXmlCollectionNode : public ZelXmlNode {
 public:
  bool addChild(ZelNode* child) override { return service_.addChild(child); }

  ZelXmlCollectionService& collectionService() { return service_; }
  const ZelXmlCollectionService& collectionService() const { return service_; }

 private:
  ZelXmlCollectionService service_{this};
};
