#pragma once

#include "node/ZelXmlNode.h"

// An object that a node class holds as a member and that acts on the node's element.
class ZelXmlService {
 public:
  explicit ZelXmlService(ZelXmlNode* owner) : owner_(owner) {}
  virtual ~ZelXmlService() = default;

  const IXMLDOMNode& getXmlNode() const { return owner_->getXmlNode(); }

 protected:
  ZelXmlNode& owner() const { return *owner_; }

 private:
  ZelXmlNode* owner_;
};
