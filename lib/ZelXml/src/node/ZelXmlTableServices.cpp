#include "node/ZelXmlTableServices.h"

#include "document/ZelXmlFunctions.h"

bool ZelXmlTableServices::readTable(Columns& columns) const {
  IXMLDOMNodeList rows;
  if (!zelXmlSelectChildren(owner_, tableName_ + "/item", rows)) return true;
  const std::size_t width = columnNames_->entries();
  if (columns.isEmpty()) {
    for (std::size_t i = 0; i < width; ++i) {
      columns.append(ZelXmlTableServicesColumn(static_cast<std::size_t>(rows.length())));
    }
  } else if (columns.entries() != width) {
    return false;
  }
  for (const IXMLDOMNode& row : rows) {
    std::vector<RWClassicWString> cells(width);
    for (std::size_t i = 0; i < width; ++i) {
      if (!zelXmlGetWideString(row, (*columnNames_)[i], cells[i])) return false;
    }
    for (std::size_t i = 0; i < width; ++i) columns[i].append(std::move(cells[i]));
  }
  return true;
}

bool ZelXmlTableServices::writeTable(const Columns& columns) const {
  if (columns.entries() != columnNames_->entries()) return false;
  if (columns.isEmpty()) return true;
  const std::size_t rows = columns[0].entries();
  for (const ZelXmlTableServicesColumn& column : columns) {
    if (column.entries() != rows) return false;
  }
  if (rows == 0) return true;
  IXMLDOMNode table;
  if (!zelXmlAddChild(owner_, tableName_, table)) return false;
  for (std::size_t row = 0; row < rows; ++row) {
    IXMLDOMNode item;
    if (!zelXmlAddChild(table, "item", item)) return false;
    for (std::size_t i = 0; i < columns.entries(); ++i) {
      if (!zelXmlAddWideString(item, (*columnNames_)[i], columns[i][row])) return false;
    }
  }
  return true;
}
