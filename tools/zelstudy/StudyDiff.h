#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "dom/IXMLDOMDocument.h"
#include "zelstudy/NodeJson.h"

namespace zelstudy {

// In the order in which the changes of one object are told.
enum class ChangeKind : unsigned char { className, name, parent, placement, field };
std::string_view changeKindName(ChangeKind kind);

// One change of one object.
struct DiffChange {
  ChangeKind kind = ChangeKind::field;
  // The field within the object: names parted by "/", "@" ahead of an attribute, "[2]" behind the second of
  // one name. Empty for the class.
  std::string path;
  // A text, a list as an array, a group as an object, a placement as locationJson has it; null where the
  // field is not there.
  Json before, after;
  // Of a placement: how far apart the two are, in the unit of the document and in radians.
  double length = 0, angle = 0;
};

struct DiffObject {
  std::string id;  // empty for an object without
  std::string className;
  Json name;  // null for none
};

struct ChangedObject {
  DiffObject object;  // as it was
  std::vector<DiffChange> changes;
};

struct StudyDiff {
  std::vector<DiffObject> added;       // in the order of the later document
  std::vector<DiffObject> removed;     // in the order of the earlier one
  std::vector<ChangedObject> changed;  // the same

  bool equal() const { return added.empty() && removed.empty() && changed.empty(); }
};

// How far two placements may be apart and still count as one: rounding of six decimals hides below these.
struct DiffTolerances {
  double length = 1e-3;  // in the unit of the document
  double angle = 1e-5;   // in radians
};

// What differs between the objects of two study documents, each difference once: what an edit changes along
// (the lists of parents, the tree of the layouts, absolute locations that follow) is not told beside the
// change that it follows from. Objects are found by their ids. Both documents are only read, and nothing
// outside Data/Objects is looked at. Time and memory grow with the number of objects.
StudyDiff diffStudies(const IXMLDOMDocument& before, const IXMLDOMDocument& after,
                      const DiffTolerances& tolerances = {});

}  // namespace zelstudy
