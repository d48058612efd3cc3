#pragma once

#include <vector>

#include "api/ApiPmIds.h"
#include "dom/IXMLDOMDocument.h"

// Pairs the data store's numbers with ids.
class ApiVorToolsIdConverter {
 public:
  static ApiVorToolsIdConverter& the();
  ApiVorToolsIdConverter(const ApiVorToolsIdConverter&) = delete;
  ApiVorToolsIdConverter& operator=(const ApiVorToolsIdConverter&) = delete;

  // Pairs the two; former pairs of either go. The null id is never paired.
  void insertIdPair(const ApiPmInternalId& number, const ApiPmId& id);
  // False, and the result untouched, for one without a pair.
  bool apiPmIdToApiPmInternalId(const ApiPmId& id, ApiPmInternalId& number) const;
  bool apiPmInternalIdToApiPmId(const ApiPmInternalId& number, ApiPmId& id) const;
  // One number per id, in order, replacing `numbers`. An id without a pair ends with false, and `numbers` is
  // untouched; with `makePending` it gets a negative number of its own instead, from -1 downward, which
  // stands for it both ways until insertIdPair, and the null id gets 0.
  bool apiPmIdsToApiPmInternalIds(const ApiPmIdList& ids,
                                  RWClassicTValOrderedVector<ApiPmInternalId>& numbers, bool makePending);
  bool isPending(const ApiPmId& id) const;
  void clear();

 private:
  ApiVorToolsIdConverter();
  struct Pairs;
  Pairs* pairs_;
};

// Documents whose fields stand in for the data store's while it is away; later documents come first.
class ApiVorToolsFieldsCache {
 public:
  static ApiVorToolsFieldsCache& the();
  ApiVorToolsFieldsCache(const ApiVorToolsFieldsCache&) = delete;
  ApiVorToolsFieldsCache& operator=(const ApiVorToolsFieldsCache&) = delete;

  // A document that is in the cache already moves to the front. Null does nothing.
  void append(const IXMLDOMDocument& document);
  void remove(const IXMLDOMDocument& document);
  void clear();
  const std::vector<IXMLDOMDocument>& documents() const { return documents_; }
  // Text of the field at `path` of the object `id`, from the first document that has it.
  bool getField(const ApiPmId& id, std::string_view path, std::string& text) const;

 private:
  ApiVorToolsFieldsCache() = default;
  std::vector<IXMLDOMDocument> documents_;
};
