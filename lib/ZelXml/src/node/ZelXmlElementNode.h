#pragma once

#include "api/ApiPmIds.h"
#include "document/ZelXmlField.h"
#include "dom/IXMLDOMElement.h"
#include "rt/RTPool.h"
#include "zel/ZelNode.h"

class ZelXmlNodeHost;

// What everything that stands on an element has in common, be it an object of the study (ZelXmlNode) or a
// part of one, inside its group `plcInfo`: an element handle, a wrapper and an id. Field rows, the registry
// and the class template (ZelXmlConcreteNode) serve both.
//
// A node keeps no field: reads and writes go to the element. Other objects are resolved by id at each use. A
// node whose element is null (never given, or gone) answers false to everything.
//
// Internal operations have names that no interface has, so a class that derives from both can call, and
// override, either of them by its plain name.
class ZelXmlElementNode : public RTPooled {
 public:
  ZelXmlElementNode() = default;
  ZelXmlElementNode(const ZelXmlElementNode&) = delete;
  ZelXmlElementNode& operator=(const ZelXmlElementNode&) = delete;

  virtual ~ZelXmlElementNode() = default;
  // The node as callers hold it.
  virtual ZelNode* pmNode() = 0;
  virtual ZelNodeType zelType() const = 0;
  // Make, and take away, the nodes of the PLC elements inside this one.
  virtual bool createSubnodes() { return true; }
  virtual bool removeRequisites() { return true; }
  // The group of PLC fields, as it is and made where there is none; only objects have one.
  virtual bool getPlcInfo(IXMLDOMNode&) const { return false; }
  virtual bool getOrCreatePlcInfo(IXMLDOMNode&) { return false; }

  const ZelNode* pmNode() const { return const_cast<ZelXmlElementNode*>(this)->pmNode(); }
  const IXMLDOMNode& getXmlNode() const { return element_; }
  bool setXmlNode(const IXMLDOMNode& element);
  ZelXmlNodeHost* getWrapper() const { return wrapper_; }
  void setWrapper(ZelXmlNodeHost* wrapper) { wrapper_ = wrapper; }
  void setId(const ApiPmId& id) { id_ = id; }
  // The id that was set, else that of the element.
  bool readId(ApiPmId& id) const;
  // What fields stand in, by their rows; and how a written field is sent.
  bool getFieldHolder(ZelFieldPlace place, IXMLDOMNode& holder) const;
  bool getOrCreateFieldHolder(ZelFieldPlace place, IXMLDOMNode& holder);
  bool publishField(ZelFieldPublication publication, const IXMLDOMNode& field) const;

 protected:
  IXMLDOMDocument document() const;     // the study document
  IXMLDOMDocument outDocument() const;  // null while nothing is published

  IXMLDOMNode element_;
  ZelXmlNodeHost* wrapper_ = nullptr;

 private:
  ApiPmId id_;
};

// The part of a node that stands on its element; null for null.
ZelXmlElementNode* zelXmlElementNodeOf(ZelNode* node);
