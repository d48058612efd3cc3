#pragma once

#include <utility>

#include "rt/RTAutoPtr.h"
#include "rw/RWClassicTValOrderedVector.h"
#include "rw/RWClassicText.h"

class ZelXmlUpdateFromExternalDocument;

// Whether the current object of an import belongs to what is to be taken over: one condition per family. A
// condition holds constants only and decides from the object and from the relations collected so far, so that
// it can refuse an object in the first walk and take it in the second.
class ZelXmlImportCondition {
 public:
  explicit ZelXmlImportCondition(RWClassicWString family) : family_(std::move(family)) {}
  virtual ~ZelXmlImportCondition() = default;
  ZelXmlImportCondition(const ZelXmlImportCondition&) = delete;
  ZelXmlImportCondition& operator=(const ZelXmlImportCondition&) = delete;

  // `update` stands on an object of this family.
  virtual bool shouldImport(const ZelXmlUpdateFromExternalDocument& update) const = 0;

  const RWClassicWString& family() const { return family_; }

 private:
  RWClassicWString family_;
};

class ZelXmlImportAll : public ZelXmlImportCondition {
 public:
  using ZelXmlImportCondition::ZelXmlImportCondition;
  bool shouldImport(const ZelXmlUpdateFromExternalDocument&) const override { return true; }
};

// With the parts, also where the resources ask.
class ZelXmlImportMarvekStudyInfo : public ZelXmlImportCondition {
 public:
  using ZelXmlImportCondition::ZelXmlImportCondition;
  bool shouldImport(const ZelXmlUpdateFromExternalDocument& update) const override;
};

// A prototype that an instance which was taken over has named.
class ZelXmlImportPrototype : public ZelXmlImportCondition {
 public:
  using ZelXmlImportCondition::ZelXmlImportCondition;
  bool shouldImport(const ZelXmlUpdateFromExternalDocument& update) const override;
};

// A 3D representation that a prototype has named.
class ZelXmlImport3DRep : public ZelXmlImportCondition {
 public:
  using ZelXmlImportCondition::ZelXmlImportCondition;
  bool shouldImport(const ZelXmlUpdateFromExternalDocument& update) const override;
};

// A file that such a 3D representation has named.
class ZelXmlImportReferenceFile : public ZelXmlImportCondition {
 public:
  using ZelXmlImportCondition::ZelXmlImportCondition;
  bool shouldImport(const ZelXmlUpdateFromExternalDocument& update) const override;
};

// A layout that an object which was taken over has named, or that is a study info's.
class ZelXmlImportLayout : public ZelXmlImportCondition {
 public:
  using ZelXmlImportCondition::ZelXmlImportCondition;
  bool shouldImport(const ZelXmlUpdateFromExternalDocument& update) const override;
};

// A shortcut to an object that was taken over. Else the study infos that come along are asked for the
// shortcut's own id; but a link that leads nowhere is refused before that.
class ZelXmlImportShortcut : public ZelXmlImportCondition {
 public:
  using ZelXmlImportCondition::ZelXmlImportCondition;
  bool shouldImport(const ZelXmlUpdateFromExternalDocument& update) const override;
};

// The condition that it owns, for the same family; true without one.
class ZelXmlImportConditionDecorator : public ZelXmlImportCondition {
 public:
  explicit ZelXmlImportConditionDecorator(RTAutoPtr<ZelXmlImportCondition> wrapped);
  bool shouldImport(const ZelXmlUpdateFromExternalDocument& update) const override;

 private:
  RTAutoPtr<ZelXmlImportCondition> wrapped_;
};

// Refuses in addition objects of one class: by the element name, exactly.
class ZelXmlExcludeClassesImportConditionDecorator : public ZelXmlImportConditionDecorator {
 public:
  ZelXmlExcludeClassesImportConditionDecorator(RTAutoPtr<ZelXmlImportCondition> wrapped,
                                               const RWClassicWString& className);
  bool shouldImport(const ZelXmlUpdateFromExternalDocument& update) const override;

 private:
  RWClassicTValOrderedVector<RWClassicWString> excludedClasses_{1};
};
