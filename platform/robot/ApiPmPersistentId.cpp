#include "api/ApiPmPersistentId.h"

ApiPmExtendedId ApiPmPersistentId::pmExtendedId() const {
  const auto* id = std::get_if<ApiPmExtendedId>(&id_);
  return id ? *id : ApiPmExtendedId();
}

ApiGlobalUniqueId ApiPmPersistentId::guid() const {
  const auto* guid = std::get_if<ApiGlobalUniqueId>(&id_);
  return guid ? *guid : ApiGlobalUniqueId();
}
