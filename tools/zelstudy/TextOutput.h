#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "rt/RTTran3D.h"

namespace zelstudy {

// Text that is safe to print: control characters, line ends included, become visible signs, so that a name
// neither breaks a table nor commands the terminal.
std::string printable(std::string_view text);

// Columns on a terminal, taken as one per character.
std::size_t columns(std::string_view utf8);

// A number as short as it reads well: up to six decimals, without trailing zeros.
std::string shortNumber(double number);

// "x 1  y 2  z 3   roll 0  pitch 0  yaw 1.570796"
std::string locationText(const RTTran3D& location);

// Rows of cells in aligned columns, two blanks apart. A column is set flush right when all its cells in
// `alignRight` say so.
class Table {
 public:
  explicit Table(std::vector<bool> alignRight = {}) : alignRight_(std::move(alignRight)) {}
  void row(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }
  void print(std::ostream& out, std::string_view indent = {}) const;

 private:
  std::vector<bool> alignRight_;
  std::vector<std::vector<std::string>> rows_;
};

// Makes the less important part of a line faint on a terminal; elsewhere, and with NO_COLOR set, it leaves
// the text alone.
std::string faint(std::string_view text);

}  // namespace zelstudy
