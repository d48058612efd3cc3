#pragma once

#include <variant>

#include "api/ApiPmIds.h"

// What names an object for good, also outside the study: an id with or without a key, or a global id. Made
// without argument it is neither. Which of the two it is depends on what it was given, a null id included.
class ApiPmPersistentId {
 public:
  ApiPmPersistentId() = default;
  explicit ApiPmPersistentId(const ApiPmExtendedId& id) : id_(id) {}
  explicit ApiPmPersistentId(const ApiGlobalUniqueId& guid) : id_(guid) {}

  bool isPmExtendedId() const { return std::holds_alternative<ApiPmExtendedId>(id_); }
  bool isGuid() const { return std::holds_alternative<ApiGlobalUniqueId>(id_); }
  // The null id for one of the other kind.
  ApiPmExtendedId pmExtendedId() const;
  ApiGlobalUniqueId guid() const;
  void setPmExtendedId(const ApiPmExtendedId& id) { id_ = id; }
  void setGuid(const ApiGlobalUniqueId& guid) { id_ = guid; }
  friend bool operator==(const ApiPmPersistentId&, const ApiPmPersistentId&) = default;

 private:
  std::variant<std::monostate, ApiPmExtendedId, ApiGlobalUniqueId> id_;
};
