#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "api/ApiErrStream.h"
#include "dom/IXMLDOMNode.h"
#include "rt/RTTran3D.h"
#include "zel/ZelNode.h"

namespace zelstudy {

using Json = nlohmann::ordered_json;

// Text of a value; what is no UTF-8 in it, which can only come from arguments, is replaced. An indent below 0
// puts it all on one line.
std::string jsonText(const Json& value, int indent = -1);

// null for the null id.
Json idJson(const ApiPmId& id);
Json idsJson(const ApiPmIdList& ids);
// {x, y, z, roll, pitch, yaw}
Json locationJson(const RTTran3D& location);
Json messagesJson(const std::vector<ApiErrEntry>& messages, std::size_t from = 0);

// The plain fields that stand below an element, name to value, in the order of their rows; fields of the
// group `plcInfo` are left out. Numbers, texts and true or false; ids as text, null for a reference that
// names nothing; placements as locationJson; lists as arrays. Null for what does not read as what it should
// be.
Json fieldsJson(const IXMLDOMNode& element);

// What a getter of a node answers: null for false.
using TextGetter = bool (ZelNode::*)(RWClassicWString&) const;
Json textJson(const ZelNode& node, TextGetter getter);
Json parentIdJson(const ZelNode& node);
// Own id of a node; the null id for a node without.
ApiPmId idOf(const ZelNode& node);
// {id, type, stringType, name}
Json nodeHeadJson(const ZelNode& node);

}  // namespace zelstudy
