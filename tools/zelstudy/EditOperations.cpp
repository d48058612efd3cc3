#include "zelstudy/EditOperations.h"

#include <unordered_set>

#include "zel/ZelCollection.h"
#include "zel/ZelPhysical.h"
#include "zelstudy/EditHelpers.h"
#include "zelstudy/Numbers.h"
#include "zelstudy/Utf8.h"

namespace zelstudy {

namespace {

// Node types are numbers of a byte; larger ones name nothing.
constexpr int lastNodeType = 255;

// Why a text could not be set on an object that is there.
std::string whyNotSet(const StudySession& study, const ApiPmId& id, const std::string& text,
                      std::string_view field) {
  if (!isXmlText(text)) return "the text holds a character that XML cannot hold";
  return study.describe(id) + ", has no " + std::string(field) + " that can be set";
}

EditResult rename(StudySession& study, const Arguments& arguments) {
  const ApiPmId id = arguments.id(0);
  return withNode(study, id, [&](ZelNode& node) {
    if (!node.setName(arguments.text(1))) return refused(whyNotSet(study, id, arguments.text(1), "name"));
    return done({{"id", idJson(id)}, {"name", textJson(node, &ZelNode::getName)}});
  });
}

EditResult describe(StudySession& study, const Arguments& arguments) {
  const ApiPmId id = arguments.id(0);
  return withNode(study, id, [&](ZelNode& node) {
    if (!node.setDescription(arguments.text(1)))
      return refused(whyNotSet(study, id, arguments.text(1), "description"));
    return done({{"id", idJson(id)}, {"description", textJson(node, &ZelNode::getDescription)}});
  });
}

// Why an object did not take a placement of finite numbers.
std::string whyNotPlaced(const ZelPhysical& physical) {
  RTTran3D placement;
  return physical.getLocation(placement) && physical.getAbsoluteLocation(placement)
             ? "its place, or that of an object below, would be too large for a number"
             : "its layout is missing or incomplete";
}

EditResult place(StudySession& study, const Arguments& arguments) {
  const ApiPmId id = arguments.id(0);
  return withInterface<ZelPhysical>(study, id, "place", [&](ZelPhysical& physical) {
    const RTTran3D location({arguments.number(1), arguments.number(2), arguments.number(3)},
                            {arguments.number(4), arguments.number(5), arguments.number(6)});
    if (!physical.setLocation(location))
      return refused(study.describe(id) + ", could not be placed: " + whyNotPlaced(physical));
    RTTran3D absolute;
    const bool known = physical.getAbsoluteLocation(absolute);
    return done({{"id", idJson(id)}, {"absoluteLocation", known ? locationJson(absolute) : Json()}});
  });
}

// Whether `id` is `ancestor` or stands below it.
bool isBelow(const StudySession& study, ApiPmId id, const ApiPmId& ancestor) {
  std::unordered_set<ApiPmId> seen;
  while (id != ancestor) {
    const ZelNode* node = study.find(id);
    if (!seen.insert(id).second || !node || !node->getParentId(id)) return false;
  }
  return true;
}

EditResult move(StudySession& study, const Arguments& arguments) {
  const ApiPmId id = arguments.id(0), parentId = arguments.id(1);
  return withNode(study, id, [&](ZelNode& node) {
    return withInterface<ZelCollection>(study, parentId, "children", [&](ZelCollection& parent) {
      if (parent.moveChild(&node)) return done({{"id", idJson(id)}, {"parentId", parentIdJson(node)}});
      if (isBelow(study, parentId, id)) return refused(study.describe(id) + ", cannot stand under itself");
      return refused(study.describe(id) + ", could not be moved under " + study.describe(parentId));
    });
  });
}

EditResult create(StudySession& study, const Arguments& arguments) {
  if (arguments.text(2) == "-") return createRootObject(study, arguments);
  const ApiPmId id = arguments.id(1), parentId = arguments.id(2);
  if (std::string reason = whyNoNewId(study, id); !reason.empty()) return refused(std::move(reason));
  return withInterface<ZelCollection>(study, parentId, "children", [&](ZelCollection& parent) {
    const ZelNode* child = parent.createChild(arguments.nodeType(0), arguments.text(3), id);
    if (!child)
      return refused("no object of type " + arguments.text(0) +
                     (arguments.text(3).empty() ? "" : " and class \"" + arguments.text(3) + "\"") +
                     " could be made under " + study.describe(parentId));
    return done({{"id", idJson(idOf(*child))},
                 {"type", static_cast<int>(child->type())},
                 {"stringType", textJson(*child, &ZelNode::getStringType)},
                 {"parentId", parentIdJson(*child)}});
  });
}

constexpr Parameter textOf(std::string_view name, Parameter::Count count = Parameter::one) {
  return {name, ParameterKind::text, count};
}
constexpr Parameter numberOf(std::string_view name) { return {name, ParameterKind::number, Parameter::one}; }
constexpr Parameter typeOf(std::string_view name) { return {name, ParameterKind::nodeType, Parameter::one}; }

std::string quoted(const std::string& word) { return "\"" + word + "\""; }

std::string refuseWord(const Parameter& parameter, const std::string& word) {
  const std::string name(parameter.name);
  double number = 0;
  int type = 0;
  switch (parameter.kind) {
    case ParameterKind::text:
      return {};
    case ParameterKind::number:
      return readNumber(word, number) ? "" : name + " must be a number, not " + quoted(word);
    case ParameterKind::nodeType:
      return readNumber(word, type) && type >= 0 && type <= lastNodeType
                 ? ""
                 : name + " must be a whole number from 0 to " + std::to_string(lastNodeType) + ", not " +
                       quoted(word);
  }
  return {};
}

}  // namespace

// The library makes whatever it is asked to make. A second object of one id could never be told from the
// first, and no reference reaches one whose id is empty or "NULL".
std::string whyNoNewId(const StudySession& study, const ApiPmId& id) {
  if (id.isNull() || id.text() == "NULL") return "\"" + id.asString() + "\" cannot be an id";
  if (study.isInUse(id)) return "the id is in use: " + study.describe(id);
  return isXmlText(id.text()) ? "" : "the id holds a character that XML cannot hold";
}

std::span<const EditOperation> editOperations() {
  static const EditOperation table[] = {
      {"rename", {textOf("ID"), textOf("NAME")}, "sets the name of an object", rename},
      {"describe", {textOf("ID"), textOf("TEXT")}, "sets its description", describe},
      {"place",
       {textOf("ID"), numberOf("X"), numberOf("Y"), numberOf("Z"), numberOf("ROLL"), numberOf("PITCH"),
        numberOf("YAW")},
       "sets its location in its parent, or in the study that shows it",
       place},
      {"move", {textOf("ID"), textOf("PARENT")}, "puts it at the end of another parent's children", move},
      {"create",
       {typeOf("TYPE"), textOf("ID"), textOf("PARENT"), textOf("CLASS", Parameter::optional)},
       "makes an object under a parent; - for a root",
       create},
      {"delete", {textOf("ID")}, "removes an object, or from a shared one its parent", deleteObject},
      {"root", {textOf("ID")}, "takes it out of its parent and makes it a root", makeRoot},
      {"reorder", {textOf("ID", Parameter::repeated)}, "puts these roots first, in this order", reorderRoots},
      {"set-prototype", {textOf("ID"), textOf("PROTOTYPE")}, "gives an instance its prototype", setPrototype},
      {"label",
       {textOf("ID"), textOf("LABEL"), textOf("NAME", Parameter::optional),
        textOf("TEXT", Parameter::optional)},
       "puts a new label on an object",
       addLabel},
      {"unlabel", {textOf("ID"), textOf("LABEL")}, "removes a label of an object", removeLabel},
      {"remove-sharing", {}, "leaves every shared object to the parent that counts", removeSharing},
      {"filter-study", {}, "publishes the study without its operation shortcuts", filterStudy},
      {"prototype",
       {textOf("FAMILY"), textOf("CLASS"), numberOf("WEIGHT"), textOf("NAME", Parameter::optional)},
       "makes a prototype under a new id",
       createPrototype},
  };
  return table;
}

const EditOperation* findEditOperation(std::string_view name) {
  for (const EditOperation& operation : editOperations())
    if (operation.name == name) return &operation;
  return nullptr;
}

std::string EditOperation::usage() const {
  std::string text(name);
  for (const Parameter& parameter : parameters) {
    const std::string word(parameter.name);
    text += " " + (parameter.count == Parameter::optional   ? "[" + word + "]"
                   : parameter.count == Parameter::repeated ? word + "..."
                                                            : word);
  }
  return text;
}

std::string EditOperation::refuse(std::span<const std::string> words) const {
  std::size_t index = 0;
  for (const Parameter& parameter : parameters) {
    if (index == words.size() && parameter.count != Parameter::optional)
      return std::string(parameter.name) + " is missing: " + usage();
    do {
      if (index == words.size()) break;
      if (std::string reason = refuseWord(parameter, words[index]); !reason.empty()) return reason;
      ++index;
    } while (parameter.count == Parameter::repeated);
  }
  if (index < words.size()) return "too many words: " + usage();
  return {};
}

const std::string& Arguments::text(std::size_t index) const {
  static const std::string none;
  return index < words_.size() ? words_[index] : none;
}

double Arguments::number(std::size_t index) const {
  double value = 0;
  readNumber(text(index), value);
  return value;
}

ZelNodeType Arguments::nodeType(std::size_t index) const {
  int value = 0;
  readNumber(text(index), value);
  return static_cast<ZelNodeType>(value);
}

}  // namespace zelstudy
