#pragma once

#include <string>
#include <string_view>

#include "zelstudy/EditOperations.h"

// What the operations of scripts are made of.
namespace zelstudy {

inline EditResult refused(std::string reason) { return {false, std::move(reason), Json::object()}; }

inline EditResult done(Json gave) { return {true, {}, std::move(gave)}; }

// Calls `edit` with the node of an id; refuses an id without one.
template <class Edit>
EditResult withNode(const StudySession& study, const ApiPmId& id, Edit edit) {
  ZelNode* node = study.find(id);
  return node ? edit(*node) : refused(study.whyNoNode(id));
}

// The same with an interface of the node; refuses a node that does not serve it, as one that has no `what`.
template <class Interface, class Edit>
EditResult withInterface(const StudySession& study, const ApiPmId& id, std::string_view what, Edit edit) {
  return withNode(study, id, [&](ZelNode& node) {
    auto* interface = zelQuery<Interface>(&node);
    return interface ? edit(*interface) : refused(study.describe(id) + ", has no " + std::string(what));
  });
}

// Why no object can be made under an id; empty when one can.
std::string whyNoNewId(const StudySession& study, const ApiPmId& id);

// Operations on the structure of a study.
EditResult createRootObject(StudySession& study, const Arguments& arguments);
EditResult deleteObject(StudySession& study, const Arguments& arguments);
EditResult makeRoot(StudySession& study, const Arguments& arguments);
EditResult reorderRoots(StudySession& study, const Arguments& arguments);
EditResult setPrototype(StudySession& study, const Arguments& arguments);
EditResult addLabel(StudySession& study, const Arguments& arguments);
EditResult removeLabel(StudySession& study, const Arguments& arguments);
EditResult removeSharing(StudySession& study, const Arguments& arguments);
EditResult filterStudy(StudySession& study, const Arguments& arguments);
EditResult createPrototype(StudySession& study, const Arguments& arguments);

}  // namespace zelstudy
