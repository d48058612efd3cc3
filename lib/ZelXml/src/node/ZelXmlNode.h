#pragma once

#include "api/ApiPmIds.h"
#include "dom/IXMLDOMElement.h"
#include "rt/RTPool.h"
#include "rt/RTTran3D.h"
#include "zel/ZelNode.h"
#include "zel/ZelVorLabel.h"

class ZelXmlNodeHost;

// What a new object is made from. An empty class name takes that of the type.
struct ZelXmlCreationRecord {
  ZelNodeType type;
  RWClassicWString className;
  ApiPmId id;
};

// What all node classes have in common: the tie of a node object to one object element of the study document.
// A concrete class derives from the interfaces that it serves and from this class or one derived from it.
//
// A node is an element handle, a wrapper and an id. It keeps no field: reads and writes go to the element,
// and each write is published to the OUT document in the same call. Other objects are resolved by id at each
// use. A node whose element is null (never given, or gone) answers false to everything.
//
// Operations answer false at the first step that fails; the steps before it stand. A publication that fails
// makes the answer false with the study document already changed.
class ZelXmlNode : public RTPooled {
 public:
  ZelXmlNode() = default;
  ZelXmlNode(const ZelXmlNode&) = delete;
  ZelXmlNode& operator=(const ZelXmlNode&) = delete;

  virtual ~ZelXmlNode() = default;
  // Makes, places in the objects section and publishes the element of a new object. True with a null element
  // for a class that makes none.
  virtual bool createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element);
  // Takes the object out of its study, then removes its element (removeElement). The node object is gone when
  // the answer is true: touch neither it nor a reference to its id.
  virtual bool deleteNode();
  // The element that holds the data of the object: its own, for an instance that of its prototype.
  virtual bool getDataElement(IXMLDOMNode& element) const;
  virtual bool addLabel(const ApiPmId& id, const ZelVorLabelData& data);
  virtual bool removeLabel(const ApiPmId& id);
  virtual bool updateLabel(const ApiPmId& id, const ZelVorLabelData& data);
  // The object as callers hold it.
  virtual ZelNode* pmNode() = 0;
  virtual ZelNodeType zelType() const = 0;
  // Make, and take away, the nodes of the PLC elements inside this object.
  virtual bool createSubnodes() { return true; }
  virtual bool removeRequisites() { return true; }
  // After the element was replaced: if the parent that counts is no longer among `parents`, the first of them
  // takes its place.
  virtual bool validateRelevantParent();
  // The element that shows the object: as getDataElement, with the own element where that has none.
  virtual bool getDisplayElement(IXMLDOMNode& element) const;
  // Enters a child that the document has elsewhere already; false for nodes that are no collections.
  virtual bool addChild(ZelNode* child);

  const IXMLDOMNode& getXmlNode() const { return element_; }
  bool setXmlNode(const IXMLDOMNode& element);
  ZelXmlNodeHost* getWrapper() const { return wrapper_; }
  void setWrapper(ZelXmlNodeHost* wrapper) { wrapper_ = wrapper; }
  void setId(const ApiPmId& id) { id_ = id; }
  const ZelNode* pmNode() const { return const_cast<ZelXmlNode*>(this)->pmNode(); }

  // Field access. Getters are false, and leave the result alone, without the field.
  bool getExternalId(ApiPmId& id) const;
  bool getName(RWClassicWString& name) const;
  bool setName(const RWClassicWString& name);
  bool setNameLocally(const RWClassicWString& name);
  bool getCaption(RWClassicWString& caption) const;
  bool getDescription(RWClassicWString& description) const;
  bool setDescription(const RWClassicWString& description);
  bool getStringType(RWClassicWString& type) const;
  bool getDisplayStringType(RWClassicWString& type) const;
  bool getSolvaneName(RWClassicWString& name) const;
  bool getInternalId(ApiPmInternalId& id) const;
  bool getLabels(ApiPmIdList& ids) const;
  bool getThreeDRep(IXMLDOMNode& rep) const;
  // Makes the 3D representation object, and the reference to it, where there is none.
  bool getOrCreateThreeDRep(IXMLDOMNode& rep);

  // The parent that counts.
  bool getParentId(ApiPmId& id) const;
  ZelNode* getParent() const;

  // Placement: in the study for an object with a shortcut, in the parent for a child, else absolute.
  bool getLocation(RTTran3D& location) const;
  bool setLocation(const RTTran3D& location);
  bool getAbsoluteLocation(RTTran3D& location) const;

  // PLC data, group `plcInfo`, of the types that have it.
  static bool hasPlcData(ZelNodeType type);
  bool getPlcInfo(IXMLDOMNode& info) const;
  // Makes the group where there is none, with the own id as its origin. On a type without PLC data the first
  // appends a new group at each call; the second makes none where one is.
  bool getOrCreatePlcInfo(IXMLDOMNode& info);
  bool ensurePlcInfo(IXMLDOMNode& info);
  bool setOriginalId();
  bool isOriginal(bool& original) const;
  bool getVersion(RWClassicWString& version) const;
  bool setVersion(const RWClassicWString& version);
  bool getRobotSetupTime(double& seconds) const;
  bool setRobotSetupTime(double seconds);
  bool removePlcData();
  bool publishPlcData();

  // Publishes the deletion of layout and element of an object with one parent, of the element alone of one
  // without parents; of a shared object only the parent that counts is taken off. False, with nothing done,
  // for one parent that does not count (unless the session's delete mode is 1), and for a shared object
  // without a parent that counts.
  bool removeElement();
  // Puts the object under a parent: absolute placement kept, or relative placement kept. The second takes the
  // absolute placement of the parent as an argument; the third reads it from the parent's element and
  // publishes nothing, like the second.
  bool attachToParent(const IXMLDOMNode& parent);
  bool setAsChildOf(const ApiPmId& parent, const ApiPmId& parentLayout, const RTTran3D& parentAbsolute);
  bool setAsChildOfElement(const IXMLDOMNode& parent);
  // Leaves the object to the parent that counts alone: `parents`, the `children` of the others, and the
  // layout. True, and nothing changed, with fewer than two parents and without a parent that counts.
  // Publishes nothing.
  bool removeSharing();
  // The element becomes a copy of `replacement`; the second then validates the relevant parent.
  bool replaceElement(const IXMLDOMNode& replacement);
  bool updateElement(const IXMLDOMNode& replacement);
  // As removeLabel, without publication.
  bool removeLabelLocally(const ApiPmId& id);

 protected:
  IXMLDOMDocument document() const;     // the study document
  IXMLDOMDocument outDocument() const;  // null while nothing is published
  // Field of the own element that names another object, resolved.
  bool referenced(std::string_view field, IXMLDOMNode& element) const;
  bool getStudyLayout(const ApiPmId& shortcut, IXMLDOMNode& layout) const;

 private:
  bool addLabelItem(const ApiPmId& id);
  bool removeLabelItem(const ApiPmId& id);

  IXMLDOMNode element_;
  ZelXmlNodeHost* wrapper_ = nullptr;
  ApiPmId id_;
};

// Class name and family value of a new element.
bool zelXmlClassNameFromType(const ZelXmlCreationRecord& record, RWClassicWString& className);
bool zelXmlFamilyFromType(const ZelXmlCreationRecord& record, RWClassicWString& family);
// Families whose objects a study is made of: Product, Resource, Study and PLCProgram.
bool zelXmlIsMainFamily(std::string_view family);

// The ZelXmlNode part of a node; null for null and for PLC internal nodes.
ZelXmlNode* zelXmlNodeOf(ZelNode* node);
const ZelXmlNode* zelXmlNodeOf(const ZelNode* node);
