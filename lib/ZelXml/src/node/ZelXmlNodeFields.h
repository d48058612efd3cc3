#pragma once

#include "document/ZelXmlFieldRows.h"
#include "node/ZelXmlElementNode.h"

// Fields of a node by their rows.

// False without the field, and without the group that it stands in.
template <class T>
bool zelXmlGetField(const ZelXmlElementNode& node, const ZelField<T>& row,
                    typename ZelField<T>::Value& value) {
  IXMLDOMNode group;
  return node.getFieldHolder(row.place, group) && zelXmlReadField(group, row, value);
}

// Writes the field as its row says; publishes nothing.
template <class T>
bool zelXmlSetFieldLocally(ZelXmlElementNode& node, const ZelField<T>& row,
                           const std::type_identity_t<typename ZelField<T>::Value>& value,
                           IXMLDOMNode& field) {
  IXMLDOMNode group;
  return node.getOrCreateFieldHolder(row.place, group) && zelXmlWriteField(group, row, value, field);
}

// The same, and then sends what the row says.
template <class T>
bool zelXmlSetField(ZelXmlElementNode& node, const ZelField<T>& row,
                    const std::type_identity_t<typename ZelField<T>::Value>& value) {
  IXMLDOMNode field;
  return zelXmlSetFieldLocally(node, row, value, field) && node.publishField(row.publication, field);
}
