#pragma once

#include "node/ZelXmlElementNode.h"
#include "rt/RTTran3D.h"
#include "zel/ZelVorLabel.h"

// What a new object is made from. An empty class name takes that of the type.
struct ZelXmlCreationRecord {
  ZelNodeType type;
  RWClassicWString className;
  ApiPmId id;
};

// What all node classes of objects have in common: the tie of a node to one object element of the study
// document. A concrete class derives from the interfaces that it serves and from this class or one derived
// from it. Each write is published to the OUT document in the same call.
//
// Operations answer false at the first step that fails; the steps before it stand. A publication that fails
// makes the answer false with the study document already changed.
class ZelXmlNode : public ZelXmlElementNode {
 public:
  // Makes, places in the objects section and publishes the element of a new object. True with a null element
  // for a class that makes none.
  virtual bool createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element);
  // Takes the object out of its study, then removes its element (removeElement). The node object is gone when
  // the answer is true: touch neither it nor a reference to its id.
  virtual bool deleteNode();
  // The element that holds the data of the object: its own, for an instance that of its prototype.
  virtual bool getDataElement(IXMLDOMNode& element) const;
  virtual bool createLabel(const ApiPmId& id, const ZelVorLabelData& data);
  virtual bool removeLabel(const ApiPmId& id);
  virtual bool writeLabel(const ApiPmId& id, const ZelVorLabelData& data);
  // After the element was replaced: if the parent that counts is no longer among `parents`, the first of them
  // takes its place.
  virtual bool validateRelevantParent();
  // The element that shows the object: as getDataElement, with the own element where that has none.
  virtual bool getDisplayElement(IXMLDOMNode& element) const;
  // Enters a child that the document has elsewhere already; false for nodes that are no collections.
  virtual bool addChild(ZelNode* child);
  // The parent that callers are told of: the one that counts, if the class has one to tell.
  virtual bool readShownParentId(ApiPmId& id) const { return readParentId(id); }
  ZelNode* shownParent() const;

  // Field access. Getters are false, and leave the result alone, without the field.
  bool readName(RWClassicWString& name) const;
  bool writeName(const RWClassicWString& name);
  bool writeNameLocally(const RWClassicWString& name);
  bool readCaption(RWClassicWString& caption) const;
  bool readDescription(RWClassicWString& description) const;
  bool writeDescription(const RWClassicWString& description);
  bool readStringType(RWClassicWString& type) const;
  bool readDisplayStringType(RWClassicWString& type) const;
  bool readLabels(ApiPmIdList& ids) const;
  bool getThreeDRep(IXMLDOMNode& rep) const;
  // Makes the 3D representation object, and the reference to it, where there is none.
  bool getOrCreateThreeDRep(IXMLDOMNode& rep);
  // Path of the 3D representation; writing makes the representation where there is none, and publishes
  // nothing.
  bool readThreeDRepPath(RWClassicWString& path) const;
  bool writeThreeDRepPath(const RWClassicWString& path);

  // The parent that counts.
  bool readParentId(ApiPmId& id) const;

  // Placement: in the study for an object with a shortcut, in the parent for a child, else absolute.
  bool readLocation(RTTran3D& location) const;
  bool writeLocation(const RTTran3D& location);
  bool readAbsoluteLocation(RTTran3D& location) const;

  // PLC data, group `plcInfo`, of the types that have it.
  static bool hasPlcData(ZelNodeType type);
  bool getPlcInfo(IXMLDOMNode& info) const override;
  // Makes the group where there is none, with the own id as its origin. On a type without PLC data it
  // appends a new group at each call.
  bool getOrCreatePlcInfo(IXMLDOMNode& info) override;
  bool isOriginal(bool& original) const;
  bool removePlcData();
  bool publishPlcData();
  // Stands on another element from now on. The nodes inside `plcInfo` follow: those that the new element has
  // at the same kind of place stay and take their new elements, those that it has not go, new ones come.
  void takeElement(const IXMLDOMNode& element);

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
  bool dropLabel(const ApiPmId& id);

 protected:
  // Field of the own element that names another object, resolved.
  bool referenced(std::string_view field, IXMLDOMNode& element) const;
  bool getStudyLayout(const ApiPmId& shortcut, IXMLDOMNode& layout) const;

 private:
  bool addLabelItem(const ApiPmId& id);
  bool removeLabelItem(const ApiPmId& id);
};

// Class name and family value of a new element.
bool zelXmlClassNameFromType(const ZelXmlCreationRecord& record, RWClassicWString& className);
bool zelXmlFamilyFromType(const ZelXmlCreationRecord& record, RWClassicWString& family);
// Families whose objects a study is made of: Product, Resource, Study and PLCProgram.
bool zelXmlIsMainFamily(std::string_view family);

// The ZelXmlNode part of a node; null for null and for a node that is no object.
ZelXmlNode* zelXmlNodeOf(ZelNode* node);
const ZelXmlNode* zelXmlNodeOf(const ZelNode* node);
