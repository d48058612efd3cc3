#include "api/ApiVorTools.h"

#include <algorithm>

#include "api/ApiPmXmlCacheDocumentMgr.h"
#include "session/IdMap.h"

namespace {
struct Number {
  ApiPmInternalId number;
  bool pending = false;
};
}  // namespace

struct ApiVorToolsIdConverter::Pairs {
  IdMap<Number> numbers;
  NumberMap ids;
  std::int32_t nextPending = -1;

  void pair(const ApiPmInternalId& number, const ApiPmId& id, bool pending) {
    if (const Number* former = numbers.find(id)) ids.remove(former->number);
    if (const ApiPmId* former = ids.find(number)) numbers.remove(*former);
    numbers.put(id, {number, pending});
    ids.put(number, id);
  }
  ApiPmInternalId makePending(const ApiPmId& id) {
    while (ids.find(ApiPmInternalId(nextPending))) --nextPending;
    const ApiPmInternalId number(nextPending--);
    pair(number, id, true);
    return number;
  }
};

ApiVorToolsIdConverter::ApiVorToolsIdConverter() : pairs_(new Pairs) {}

ApiVorToolsIdConverter& ApiVorToolsIdConverter::the() {
  static auto& converter = *new ApiVorToolsIdConverter;
  return converter;
}

void ApiVorToolsIdConverter::insertIdPair(const ApiPmInternalId& number, const ApiPmId& id) {
  if (!id.isNull()) pairs_->pair(number, id, false);
}

bool ApiVorToolsIdConverter::apiPmIdToApiPmInternalId(const ApiPmId& id, ApiPmInternalId& number) const {
  const Number* found = pairs_->numbers.find(id);
  if (found) number = found->number;
  return found != nullptr;
}

bool ApiVorToolsIdConverter::apiPmInternalIdToApiPmId(const ApiPmInternalId& number, ApiPmId& id) const {
  const ApiPmId* found = pairs_->ids.find(number);
  if (found) id = *found;
  return found != nullptr;
}

bool ApiVorToolsIdConverter::apiPmIdsToApiPmInternalIds(const ApiPmIdList& ids,
                                                        RWClassicTValOrderedVector<ApiPmInternalId>& numbers,
                                                        bool makePending) {
  RWClassicTValOrderedVector<ApiPmInternalId> converted(ids.entries());
  for (const ApiPmId& id : ids) {
    ApiPmInternalId number;
    if (!apiPmIdToApiPmInternalId(id, number)) {
      if (!makePending) return false;
      if (!id.isNull()) number = pairs_->makePending(id);
    }
    converted.append(number);
  }
  numbers = std::move(converted);
  return true;
}

bool ApiVorToolsIdConverter::isPending(const ApiPmId& id) const {
  const Number* found = pairs_->numbers.find(id);
  return found && found->pending;
}

void ApiVorToolsIdConverter::clear() { *pairs_ = Pairs(); }

ApiVorToolsFieldsCache& ApiVorToolsFieldsCache::the() {
  static auto& cache = *new ApiVorToolsFieldsCache;
  return cache;
}

void ApiVorToolsFieldsCache::append(const IXMLDOMDocument& document) {
  if (!document) return;
  const IXMLDOMDocument kept = document;  // the argument may stand in the list
  remove(kept);
  documents_.insert(documents_.begin(), kept);
}

void ApiVorToolsFieldsCache::remove(const IXMLDOMDocument& document) {
  const auto found = std::find(documents_.begin(), documents_.end(), document);
  if (found != documents_.end()) documents_.erase(found);
}

void ApiVorToolsFieldsCache::clear() { documents_.clear(); }

namespace {

bool isObject(const IXMLDOMElement& element) {
  const IXMLDOMNode section = element.parentNode();
  const IXMLDOMNode root = section.parentNode();
  return section.nodeName() == "Objects" && root.nodeName() == "Data" &&
         root.parentNode() == element.ownerDocument();
}

// The object element of a document without index. References carry the same attribute as objects: when one
// of them stands first, only a walk over the sections tells.
bool findObject(const IXMLDOMDocument& document, std::string_view id, IXMLDOMElement& object) {
  IXMLDOMElement found;
  if (!document.findByAttribute("ExternalId", id, found)) return false;
  if (isObject(found)) {
    object = found;
    return true;
  }
  for (auto section = document.documentElement().firstElementChild(); section;
       section = section.nextElementSibling()) {
    for (auto child = section.firstElementChild(); child; child = child.nextElementSibling()) {
      std::string_view text;
      if (child.getAttribute("ExternalId", text) && text == id && isObject(child)) {
        object = child;
        return true;
      }
    }
  }
  return false;
}

}  // namespace

bool ApiVorToolsFieldsCache::getField(const ApiPmId& id, std::string_view path, std::string& text) const {
  if (id.isNull() || id.text() == "NULL") return false;
  for (const IXMLDOMDocument& document : documents_) {
    IXMLDOMElement object;
    ApiPmXmlCachedDocument* cached = nullptr;
    const bool found = ApiPmXmlCacheDocumentMgr::the().getCachedDocument(document, cached)
                           ? cached->getNodeById(document, id, object, true)
                           : findObject(document, id.text(), object);
    IXMLDOMNode field;
    if (found && object.selectSingleNode(path, field)) {
      text = field.text();
      return true;
    }
  }
  return false;
}
