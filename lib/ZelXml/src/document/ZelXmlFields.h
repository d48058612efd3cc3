#pragma once

#include <string>
#include <string_view>

#include "api/ApiPmIds.h"
#include "document/ZelXmlDom.h"
#include "rt/RTTran3D.h"
#include "rw/RWClassicTValOrderedVector.h"

// Typed child fields of an element. A reader answers false for an absent field and leaves the caller's value,
// which is the default. A writer always adds a new child and never looks for one of that name: who replaces
// removes first. A writer that fails half way leaves the child it has added. Numbers that are not finite are
// not written.

bool zelXmlGetBool(const IXMLDOMNode& element, std::string_view field, bool& value);  // true only for 1
bool zelXmlAddBool(const IXMLDOMNode& element, std::string_view field, bool value);
bool zelXmlGetInt(const IXMLDOMNode& element, std::string_view field, int& value);
bool zelXmlAddInt(const IXMLDOMNode& element, std::string_view field, int value);
bool zelXmlGetDouble(const IXMLDOMNode& element, std::string_view field, double& value);
bool zelXmlAddDouble(const IXMLDOMNode& element, std::string_view field, double value);
bool zelXmlGetString(const IXMLDOMNode& element, std::string_view field, std::string& value);
bool zelXmlAddString(const IXMLDOMNode& element, std::string_view field, std::string_view value);
bool zelXmlGetWideString(const IXMLDOMNode& element, std::string_view field, std::string& value);
bool zelXmlAddWideString(const IXMLDOMNode& element, std::string_view field, std::string_view value);

// List fields: one `item` child per entry. Readers append to the vector; an absent list and one without
// `item` are true with nothing appended. On an entry that cannot be read they answer false: lists of numbers,
// wide texts and ids have appended nothing then, the others what stood before it. With `reuse` a writer adds
// to an existing field element, without it makes a new one.
template <class T>
using ZelXmlList = RWClassicTValOrderedVector<T>;
bool zelXmlGetTextList(const IXMLDOMNode& element, std::string_view field, ZelXmlList<std::string>& values);
bool zelXmlAddTextList(const IXMLDOMNode& element, std::string_view field,
                       const ZelXmlList<std::string>& values, bool reuse);
bool zelXmlGetDoubleList(const IXMLDOMNode& element, std::string_view field, ZelXmlList<double>& values);
bool zelXmlAddDoubleList(const IXMLDOMNode& element, std::string_view field, const ZelXmlList<double>& values,
                         bool reuse);
bool zelXmlGetWideStringList(const IXMLDOMNode& element, std::string_view field,
                             ZelXmlList<std::string>& values);
bool zelXmlAddWideStringList(const IXMLDOMNode& element, std::string_view field,
                             const ZelXmlList<std::string>& values, bool reuse);
// Each id of the list once, at its first place; ids that the vector held before do not count.
bool zelXmlGetIdList(const IXMLDOMNode& element, std::string_view field, ApiPmIdList& ids);
bool zelXmlAddIdList(const IXMLDOMNode& element, std::string_view field, const ApiPmIdList& ids, bool reuse);

// An id with a relative part: `field` is the field element itself. Without relative part the id stands in it
// as text, with one in BrimID/ProcessModelID and BrimID/BrimRelativeID.
bool zelXmlGetExtendedId(const IXMLDOMNode& field, ApiPmExtendedId& id);
bool zelXmlAddExtendedId(const IXMLDOMNode& field, const ApiPmExtendedId& id);
bool zelXmlGetNameExtendedId(const IXMLDOMNode& field, ApiPmNameExtendedId& id);
bool zelXmlAddNameExtendedId(const IXMLDOMNode& field, const ApiPmNameExtendedId& id);
bool zelXmlGetNameExtendedIdList(const IXMLDOMNode& element, std::string_view field,
                                 ZelXmlList<ApiPmNameExtendedId>& ids);
bool zelXmlAddNameExtendedIdList(const IXMLDOMNode& element, std::string_view field,
                                 const ZelXmlList<ApiPmNameExtendedId>& ids, bool reuse);

// The attribute ExternalId of the first child element of the field; of each item of the field.
bool zelXmlGetNestedRef(const IXMLDOMNode& element, std::string_view field, ApiPmId& id);
bool zelXmlGetNestedRefList(const IXMLDOMNode& element, std::string_view field, ApiPmIdList& ids);
// The first child element of the field. The writer adds the field and moves `node` into it.
bool zelXmlGetFirstChild(const IXMLDOMNode& element, std::string_view field, IXMLDOMNode& node);
bool zelXmlAddNode(const IXMLDOMNode& element, std::string_view field, const IXMLDOMNode& node);

// Attributes of the element. ExternalId: false when absent or empty; a null id is not written, false.
bool zelXmlGetExternalIdText(const IXMLDOMNode& element, std::string& text);
bool zelXmlGetExternalId(const IXMLDOMNode& element, ApiPmId& id);  // false when absent or empty
bool zelXmlSetExternalId(const IXMLDOMNode& element, const ApiPmId& id);
// GUID: a null id is not written, true; absent, empty or unreadable it is false.
bool zelXmlGetGlobalId(const IXMLDOMNode& element, ApiGlobalUniqueId& id);
bool zelXmlSetGlobalId(const IXMLDOMNode& element, const ApiGlobalUniqueId& id);

// Fixed fields as text.
bool zelXmlGetName(const IXMLDOMNode& element, std::string& text);
bool zelXmlGetLayoutId(const IXMLDOMNode& element, ApiPmId& id);
bool zelXmlGetParentId(const IXMLDOMNode& element, std::string& text);  // field `parent`
bool zelXmlGetFamily(const IXMLDOMNode& element, std::string& family);  // NodeInfo/family
// Replaces or makes NodeInfo/family.
bool zelXmlSetFamily(const IXMLDOMDocument& document, const IXMLDOMNode& element, std::string_view family);
bool zelXmlGetParentPrototype(const IXMLDOMNode& element, std::string& text);
bool zelXmlSetParentPrototype(const IXMLDOMDocument& document, const IXMLDOMNode& element,
                              std::string_view text);
// Replace `ids` by the list, each id once.
bool zelXmlGetChildIds(const IXMLDOMNode& element, ApiPmIdList& ids);
bool zelXmlGetLabelIds(const IXMLDOMNode& element, ApiPmIdList& ids);
bool zelXmlGetParentItemIds(const IXMLDOMNode& element, ApiPmIdList& ids);

// The first node of the list with exactly this text, and its index.
bool zelXmlFindListItem(const IXMLDOMNodeList& list, std::string_view text, IXMLDOMNode& item, long& index);
// The first item with this text of the fields of this name, normally one; in a long list found without a
// walk.
bool zelXmlFindItem(const IXMLDOMNode& element, std::string_view list, std::string_view text,
                    IXMLDOMNode& item, long& index);
bool zelXmlFindChildItem(const IXMLDOMNode& element, std::string_view id, IXMLDOMNode& item, long& index);
bool zelXmlFindParentItem(const IXMLDOMNode& element, std::string_view id, IXMLDOMNode& item, long& index);
// The item of a list field at a place, counted from 0; false beyond the last.
bool zelXmlFindItemAt(const IXMLDOMNode& element, std::string_view list, long index, IXMLDOMNode& item);

// The text is an id that names something: neither empty nor "NULL".
inline bool zelXmlIsReference(std::string_view text) { return !text.empty() && text != "NULL"; }
