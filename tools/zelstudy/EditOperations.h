#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "zelstudy/NodeJson.h"
#include "zelstudy/StudySession.h"

namespace zelstudy {

enum class ParameterKind { text, number, nodeType };

struct Parameter {
  std::string_view name;
  ParameterKind kind = ParameterKind::text;
  enum Count { one, optional, repeated } count = one;  // only the last ones may be other than `one`
};

// The words behind the name of an operation. They have been checked: what is read here reads.
class Arguments {
 public:
  explicit Arguments(std::vector<std::string> words) : words_(std::move(words)) {}
  std::size_t count() const { return words_.size(); }
  // Empty behind the end.
  const std::string& text(std::size_t index) const;
  ApiPmId id(std::size_t index) const { return ApiPmId(text(index)); }
  double number(std::size_t index) const;
  ZelNodeType nodeType(std::size_t index) const;

 private:
  std::vector<std::string> words_;
};

struct EditResult {
  bool result = false;
  std::string reason;          // of a false result
  Json gave = Json::object();  // what the operation gave, joined to the line of output
};

// One operation of edit scripts. A new operation is a function and a row of the table.
struct EditOperation {
  std::string_view name;
  std::vector<Parameter> parameters;
  std::string_view does;
  EditResult (*run)(StudySession& study, const Arguments& arguments);

  // "place ID X Y Z ROLL PITCH YAW"
  std::string usage() const;
  // Why the operation does not take these words; empty when it does.
  std::string refuse(std::span<const std::string> words) const;
};

std::span<const EditOperation> editOperations();
// Null for an unknown name.
const EditOperation* findEditOperation(std::string_view name);

}  // namespace zelstudy
