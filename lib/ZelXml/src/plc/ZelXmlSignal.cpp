#include "plc/ZelXmlSignal.h"

#include "document/ZelXmlFunctions.h"
#include "document/ZelXmlItems.h"

bool ZelXmlSignalInstance::addPairs(std::string_view list, const ApiPmIdList& ids, const GlobalIds& guids) {
  if (ids.entries() != guids.entries()) return false;
  if (ids.isEmpty()) return true;
  IXMLDOMNode pairs;
  if (!zelXmlAddChild(getXmlNode(), list, pairs)) return false;
  for (std::size_t i = 0; i < ids.entries(); ++i) {
    IXMLDOMNode item;
    if (!zelXmlAddChild(pairs, "item", item) || !zelXmlSetExternalId(item, ids[i]) ||
        !zelXmlSetGlobalId(item, guids[i])) {
      return false;
    }
  }
  return true;
}

bool ZelXmlSignalInstance::readPairs(std::string_view list, ApiPmIdList& ids, GlobalIds& guids) const {
  bool whole = true;
  return zelXmlVisitItems(getXmlNode(), list,
                          [&](const IXMLDOMNode& item) {
                            ApiPmId id;
                            ApiGlobalUniqueId guid;
                            whole = zelXmlGetExternalId(item, id) && zelXmlGetGlobalId(item, guid);
                            if (!whole) return false;
                            ids.append(id);
                            guids.append(guid);
                            return true;
                          }) &&
         whole;
}
