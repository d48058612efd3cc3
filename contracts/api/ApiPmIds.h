#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "api/ApiPmId.h"

// The data store's number of an object.
struct ApiPmInternalId {
  std::int32_t value = 0;
  ApiPmInternalId() = default;
  explicit ApiPmInternalId(std::int32_t number) : value(number) {}
  friend bool operator==(const ApiPmInternalId&, const ApiPmInternalId&) = default;
};

template <>
struct std::hash<ApiPmInternalId> {
  std::size_t operator()(const ApiPmInternalId& id) const noexcept {
    return std::hash<std::int32_t>{}(id.value);
  }
};

// The data store's number of one wrapper.
struct ApiDatabaseId {
  std::int32_t value = 0;
  friend bool operator==(const ApiDatabaseId&, const ApiDatabaseId&) = default;
};

// Key of something inside an object of another system, as text; the empty key is unset.
class ApiKey {
 public:
  ApiKey() = default;
  explicit ApiKey(std::string_view text) : text_(text) {}
  bool isSet() const noexcept { return !text_.empty(); }
  const std::string& getSelfAsString() const noexcept { return text_; }
  void setSelfFromString(std::string_view text) { text_ = text; }
  // The restricted form is the text itself. False, and nothing changed, for the empty text.
  std::string getSelfAsDefaultRestrictedString() const { return text_; }
  bool setSelfFromDefaultRestrictedString(std::string_view text) {
    if (text.empty()) return false;
    text_ = text;
    return true;
  }
  friend bool operator==(const ApiKey&, const ApiKey&) = default;

 private:
  std::string text_;
};

// An id, and a key inside the object that it names.
struct ApiPmExtendedId {
  ApiPmId id;
  ApiKey key;
  bool isPmOnly() const noexcept { return !key.isSet(); }
  friend bool operator==(const ApiPmExtendedId&, const ApiPmExtendedId&) = default;
};

// An id, and a name inside the object that it names.
struct ApiPmNameExtendedId {
  ApiPmId id;
  std::string name;
  friend bool operator==(const ApiPmNameExtendedId&, const ApiPmNameExtendedId&) = default;
};

// What tells an occurrence inside its equipment, and the same occurrence in copies of it; any text.
class ApiPmPrototypeChildId {
 public:
  ApiPmPrototypeChildId() = default;
  explicit ApiPmPrototypeChildId(std::string_view text) : text_(text) {}
  const std::string& getAsString() const noexcept { return text_; }
  friend bool operator==(const ApiPmPrototypeChildId&, const ApiPmPrototypeChildId&) = default;

 private:
  std::string text_;
};

// A 128-bit id in its usual text form, without braces; null when empty or when the text is no such id.
class ApiGlobalUniqueId {
 public:
  ApiGlobalUniqueId() = default;
  explicit ApiGlobalUniqueId(std::string_view text);
  bool isNull() const noexcept { return text_.empty(); }
  const std::string& getAsString() const noexcept { return text_; }
  friend bool operator==(const ApiGlobalUniqueId&, const ApiGlobalUniqueId&) = default;

 private:
  std::string text_;
};

// A document of the data store, named by its id.
struct ApiPmDocument {
  ApiPmId id;
  ApiPmDocument() = default;
  ApiPmDocument(const ApiPmId& documentId) : id(documentId) {}  // NOLINT(google-explicit-constructor)
};

// A document named by its full path.
struct ApiFullPathDocument {
  std::string path;
  friend bool operator==(const ApiFullPathDocument&, const ApiFullPathDocument&) = default;
};

// Where a study document comes from: the path of its file, or empty.
struct ApiDocumentRef {
  std::string path;
  ApiDocumentRef() = default;
  ApiDocumentRef(std::string fullPath) : path(std::move(fullPath)) {}  // NOLINT(google-explicit-constructor)
  explicit ApiDocumentRef(const ApiFullPathDocument& document) : path(document.path) {}
};

// The 128 bits of a new id, as the platform's interfaces hand them out.
struct _GUID {
  std::uint32_t Data1;
  std::uint16_t Data2;
  std::uint16_t Data3;
  std::uint8_t Data4[8];
};

namespace api {

// The text form of such an id, as newGuidText has it.
std::string guidText(const _GUID& guid);

// Text of a new id from the platform's generator: 36 characters, hexadecimal with hyphens, no braces.
std::string newGuidText();
// Puts another source in place of the platform's generator, for repeatable runs; null goes back to it.
void setGuidSource(std::function<std::string()> source);

}  // namespace api
