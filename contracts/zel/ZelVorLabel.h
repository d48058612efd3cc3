#pragma once

#include "rt/RTTran3D.h"
#include "zel/ZelNode.h"

// What a label is given by updateLabel.
struct ZelVorLabelData {
  RWClassicWString name;
  RTTran3D relLocation;
  RWClassicWString text;
  RWClassicWString appearanceData;
  ApiPmId assignedObjId;
};

// A note attached to one object. Setters write an existing field of the label's element and publish nothing,
// unless they say otherwise; without the field they answer false.
class ZelVorLabel : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = VorLabel;
  static ZelVorLabel* queryZelVorLabel(ZelNode* node) { return zelQuery<ZelVorLabel>(node); }

  virtual bool getText(RWClassicWString& text) const = 0;
  // Makes the field `comment` if there is none, and publishes it.
  virtual bool setText(const RWClassicWString& text) = 0;
  virtual bool getAssignedObjId(ApiPmId& id) const = 0;
  virtual bool setAssignedObjId(const ApiPmId& id) = 0;
  virtual bool getAppearanceData(RWClassicWString& data) const = 0;
  virtual bool setAppearanceData(const RWClassicWString& data) = 0;
  // Removes element and node of a label whose object has no node. Publishes nothing; the label is gone
  // afterwards.
  virtual bool removeLabelElement() = 0;
};

class ZelVorLabelsContainer : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = VorLabelsContainer;
  static ZelVorLabelsContainer* queryZelVorLabelsContainer(ZelNode* node) {
    return zelQuery<ZelVorLabelsContainer>(node);
  }

  // Replaces `ids` by the list `labels`, each id once.
  virtual bool getLabels(ApiPmIdList& ids) const = 0;
  // Makes a label object with this id, lists it here, and publishes both. `data` is not read: updateLabel
  // writes it. What is said of an id in use at ZelCollection::createChild holds here too.
  virtual bool addLabel(const ApiPmId& id, const ZelVorLabelData& data) = 0;
  // Writes name, location, text, appearance data and assigned object of a label, in this order, then
  // publishes label and owner. Stops at the first that fails; what was written before stands.
  virtual bool updateLabel(const ApiPmId& id, const ZelVorLabelData& data) = 0;
  // Takes the label off the list and removes element and node. Publishes nothing.
  virtual bool removeLabelLocally(const ApiPmId& id) = 0;
};
