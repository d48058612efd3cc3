#pragma once

#include <string>
#include <string_view>

// The class types: name, base class, family value and class type id of every class that can be an object
// element. One table stands behind both services below. It starts with the classes that the system knows.
//
// A host adds classes of its own before it opens a study that holds them. The base decides what an object of
// the class is: a gripper that derives from "PmToolInstance" has the family "Resource", and a library of
// filters that derives from "PmVariantFilterLibrary" is built as one.
//
//   ApiPmClassTypeDataMgr::the().addClass({.name = "Gripper", .base = "PmToolInstance"});
//
// Without a number of its own a class gets the first free one from 10000 up, in the order of the calls; a
// host that keeps numbers in files names them. Classes stay until the process ends.
struct ApiPmClassType {
  std::string name{};
  std::string base{};    // empty for a class without base
  std::string family{};  // empty: that of the base
  int typeId = 0;        // 0 asks for the next free number
};

class ApiPmClassTypeDataMgr {
 public:
  static ApiPmClassTypeDataMgr& the();
  ApiPmClassTypeDataMgr(const ApiPmClassTypeDataMgr&) = delete;
  ApiPmClassTypeDataMgr& operator=(const ApiPmClassTypeDataMgr&) = delete;

  // The family value of a class, or of its nearest base that has one. False, and `family` untouched, for an
  // unknown class and a class without family.
  bool getFamilyFromClassName(std::string_view className, std::string& family) const;

  // Adds a class. False, and nothing changed, for a name or a type id that is taken, an empty name, and a
  // base that is not known.
  bool addClass(const ApiPmClassType& type);
  // Null for an unknown class. Good until the process ends.
  const ApiPmClassType* find(std::string_view className) const;
  // The class that a name means which no class has: one that differs by a single letter, by two letters that
  // changed places, or by the case of letters. Digits are never taken for slips. Null when there is none.
  const ApiPmClassType* findMisspelt(std::string_view className) const;

 private:
  ApiPmClassTypeDataMgr();
  struct Table;
  Table* table_;
  friend class ApiVorToolsClassTypesWrapper;
};

class ApiVorToolsClassTypesWrapper {
 public:
  static ApiVorToolsClassTypesWrapper& the();
  ApiVorToolsClassTypesWrapper(const ApiVorToolsClassTypesWrapper&) = delete;
  ApiVorToolsClassTypesWrapper& operator=(const ApiVorToolsClassTypesWrapper&) = delete;

  // False for an unknown class.
  bool ClassNameToClassTypeId(std::string_view className, int& typeId) const;
  // Whether the first class is the second or derives from it. False when either is not known.
  bool IsDerivedFromClass(int typeId, std::string_view base) const;
  bool IsDerivedFromClass(std::string_view className, std::string_view base) const;
  bool IsDerivedFromClass(int typeId, int baseTypeId) const;

 private:
  ApiVorToolsClassTypesWrapper() = default;
};
