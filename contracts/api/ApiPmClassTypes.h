#pragma once

#include <string>
#include <string_view>

// The class types: name, base class, family value and class type id of every class that can be an object
// element. One table stands behind both services below; a host adds classes of its own to it.
struct ApiPmClassType {
  std::string name;
  std::string base;    // empty for a class without base
  std::string family;  // empty: that of the base
  int typeId = 0;      // 0 asks for the next free number
};

class ApiPmClassTypeDataMgr {
 public:
  static ApiPmClassTypeDataMgr& the();

  // The family value of a class, or of its nearest base that has one. False, and `family` untouched, for an
  // unknown class and a class without family.
  bool getFamilyFromClassName(std::string_view className, std::string& family) const;

  // Adds a class. False, and nothing changed, for a name or a type id that is taken, an empty name, and a
  // base that is not known.
  bool addClass(const ApiPmClassType& type);
  // Null for an unknown class. Good until the process ends.
  const ApiPmClassType* find(std::string_view className) const;

 private:
  ApiPmClassTypeDataMgr();
  struct Table;
  Table* table_;
  friend class ApiVorToolsClassTypesWrapper;
};

class ApiVorToolsClassTypesWrapper {
 public:
  static ApiVorToolsClassTypesWrapper& the();

  // False for an unknown class.
  bool ClassNameToClassTypeId(std::string_view className, int& typeId) const;
  // Whether the class of that number is `base` or derives from it.
  bool IsDerivedFromClass(int typeId, std::string_view base) const;
  bool IsDerivedFromClass(std::string_view className, std::string_view base) const;
};
