#pragma once

#include <cstddef>
#include <vector>

#include "dom/IXMLDOMNode.h"
#include "rw/RWClassicTValOrderedVector.h"
#include "rw/RWClassicText.h"

// One column of a table of wide text.
class ZelXmlTableServicesColumn : public RWClassicTValOrderedVector<RWClassicWString> {
 public:
  ZelXmlTableServicesColumn() : RWClassicTValOrderedVector(64) {}
  explicit ZelXmlTableServicesColumn(std::size_t capacity) : RWClassicTValOrderedVector(capacity) {}
  ZelXmlTableServicesColumn(std::initializer_list<RWClassicWString> cells)
      : RWClassicTValOrderedVector(cells) {}
};

// Reader and writer of one table below an owner element: a child of the table's name, an `item` per row, in
// each a child per column. Column j of a table in memory goes with name j.
class ZelXmlTableServices {
 public:
  using Columns = RWClassicTValOrderedVector<ZelXmlTableServicesColumn>;

  // `columnNames` must outlive this object.
  ZelXmlTableServices(const IXMLDOMNode& owner, RWClassicCString tableName,
                      const RWClassicTValOrderedVector<RWClassicCString>& columnNames)
      : owner_(owner), tableName_(std::move(tableName)), columnNames_(&columnNames) {}

  // Appends the rows; an empty `columns` gets its columns first. True for a table that is not there. A row
  // that lacks a cell ends the read with false, with the rows before it in `columns`; so does a `columns`
  // that is neither empty nor of as many columns as there are names, untouched.
  bool readTable(Columns& columns) const;
  // Adds the table, beside one of that name that is there already. False, and nothing written, when columns
  // and names differ in number or the columns in length. A table without rows makes no element.
  bool writeTable(const Columns& columns) const;

 private:
  IXMLDOMNode owner_;
  RWClassicCString tableName_;
  const RWClassicTValOrderedVector<RWClassicCString>* columnNames_;
};
