#include "StudyModel.h"

#include <algorithm>

namespace torture {

namespace {

using Ids = std::vector<std::string>;

void drop(Ids& ids, const std::string& id) { ids.erase(std::remove(ids.begin(), ids.end(), id), ids.end()); }

bool has(const Ids& ids, const std::string& id) { return std::find(ids.begin(), ids.end(), id) != ids.end(); }

void add(Ids& ids, const std::string& id) {
  if (!has(ids, id)) ids.push_back(id);
}

std::string joined(const Ids& ids) {
  std::string text;
  for (const std::string& id : ids) text += ' ' + id;
  return text;
}

std::string joined(const StudyModel::Point& point) {
  return std::to_string(point[0]) + ' ' + std::to_string(point[1]) + ' ' + std::to_string(point[2]);
}

StudyModel::Point minus(const StudyModel::Point& a, const StudyModel::Point& b) {
  return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

StudyModel::Point plus(const StudyModel::Point& a, const StudyModel::Point& b) {
  return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}

}  // namespace

void StudyModel::createRoot(int type, const std::string& id) {
  objects_[id].type = type;
  order_.push_back(id);
  layouts_[id] = {};
  roots_.push_back(id);
  publish(id);
  publishLayout(id);
}

void StudyModel::createChild(const std::string& parent, int type, const std::string& id) {
  createRoot(type, id);
  drop(roots_, id);
  attach(parent, id);
}

// By any list of parents above, or any list of children below: lists of a study need not agree.
bool StudyModel::isBelow(const std::string& collection, const std::string& id) const {
  const auto leads = [&](const std::string& from, const std::string& to, bool up) {
    Ids waiting{from};
    std::set<std::string> seen{from};
    while (!waiting.empty()) {
      const std::string at = waiting.back();
      waiting.pop_back();
      if (at == to) return true;
      const auto object = objects_.find(at);
      if (object == objects_.end()) continue;
      for (const std::string& next : up ? object->second.parents : object->second.children)
        if (seen.insert(next).second) waiting.push_back(next);
    }
    return false;
  };
  return leads(collection, id, true) || leads(id, collection, false);
}

// Off the parent that counts, which is there.
void StudyModel::detach(const std::string& id) {
  const std::string parent = relevant_.at(id);
  drop(objects_.at(parent).children, id);
  publish(parent);
  relevant_.erase(id);
  drop(objects_.at(id).parents, parent);
  publish(id);
}

void StudyModel::attach(const std::string& parent, const std::string& id) {
  add(objects_.at(parent).children, id);
  publish(parent);
  releaseOutlivedLinks(parent, id);
  Layout& layout = layouts_.at(id);
  if (const auto former = layouts_.find(layout.parent); former != layouts_.end()) {
    drop(former->second.children, id);
    publishLayout(layout.parent);
  }
  add(layouts_.at(parent).children, id);
  publishLayout(parent);
  add(objects_.at(id).parents, parent);
  publish(id);
  layout.parent = parent;
  layout.relative = minus(layout.absolute, layouts_.at(parent).absolute);
  publishLayout(id);
  relevant_[id] = parent;
}

// The layout of a root stays below that of its former parent, until they would close a ring.
void StudyModel::releaseOutlivedLinks(const std::string& lower, const std::string& upper) {
  Ids links;
  for (std::string at = lower; at != upper;) {
    const std::string& above = layouts_.at(at).parent;
    if (has(links, at) || !layouts_.count(above)) return;
    links.push_back(at);
    at = above;
  }
  for (const std::string& id : links) {
    Layout& layout = layouts_.at(id);
    if (const auto owner = objects_.find(id);
        owner != objects_.end() && has(owner->second.parents, layout.parent))
      continue;
    drop(layouts_.at(layout.parent).children, id);
    publishLayout(layout.parent);
    layout.parent.clear();
    layout.relative = layout.absolute;
    publishLayout(id);
  }
}

bool StudyModel::moveChild(const std::string& parent, const std::string& id) {
  if (isBelow(parent, id)) return false;
  hide(id);
  const auto relevant = relevant_.find(id);
  if (relevant == relevant_.end()) {
    if (!forgets_) drop(roots_, id);
  } else if (!objects_.count(relevant->second)) {
    return false;
  } else {
    detach(id);
  }
  attach(parent, id);
  return true;
}

bool StudyModel::show(const std::string& id) {
  if (const auto relevant = relevant_.find(id); relevant != relevant_.end()) {
    if (!has(order_, relevant->second)) return false;
    detach(id);
  }
  shown_[id] = {};
  shownOrder_.push_back(id);
  publish(studyId);
  for (const char* what : {"shortcut to ", "info of ", "study layout of "}) updated_.insert(what + id);
  add(roots_, id);
  return true;
}

bool StudyModel::hide(const std::string& id) {
  if (shown_.erase(id) == 0) return false;
  drop(shownOrder_, id);
  for (const char* what : {"shortcut to ", "info of ", "study layout of "}) deleted_.insert(what + id);
  publish(studyId);
  return true;
}

bool StudyModel::makeRoot(const std::string& id) {
  const auto relevant = relevant_.find(id);
  if (relevant == relevant_.end() || !has(order_, relevant->second)) return true;
  detach(id);
  roots_.push_back(id);
  return true;
}

void StudyModel::forgetNode(const std::string& id) {
  drop(order_, id);
  drop(roots_, id);
  relevant_.erase(id);
}

bool StudyModel::remove(const std::string& id) {
  Object& object = objects_.at(id);
  if (object.type == label) {
    if (has(order_, object.assigned)) {
      drop(objects_.at(object.assigned).labels, id);
      publish(object.assigned);
      deleted_.insert(id);
    }
    objects_.erase(id);
    forgetNode(id);
    return true;
  }
  if (const auto relevant = relevant_.find(id);
      relevant != relevant_.end() && has(order_, relevant->second)) {
    drop(objects_.at(relevant->second).children, id);
    publish(relevant->second);
  }
  hide(id);
  if (!object.parents.empty()) {
    layouts_.erase(id);
    deleted_.insert("layout of " + id);
  }
  deleted_.insert(id);
  objects_.erase(id);
  forgetNode(id);
  return true;
}

bool StudyModel::setName(const std::string& id, const std::string& name) {
  objects_.at(id).name = name;
  objects_.at(id).isNamed = true;
  publish(id);
  return true;
}

bool StudyModel::setDescription(const std::string& id, const std::string& text) {
  objects_.at(id).comment = text;
  objects_.at(id).hasComment = true;
  publish(id);
  return true;
}

// The absolute placements below follow the relative ones.
void StudyModel::carry(const std::string& owner) {
  Ids waiting{owner};
  while (!waiting.empty()) {
    const Layout layout = layouts_.at(waiting.back());
    waiting.pop_back();
    for (const std::string& child : layout.children) {
      const auto found = layouts_.find(child);
      if (found == layouts_.end()) continue;
      found->second.absolute = plus(layout.absolute, found->second.relative);
      waiting.push_back(child);
    }
  }
}

bool StudyModel::place(const std::string& id, const Point& at) {
  if (const auto shown = shown_.find(id); shown != shown_.end()) {
    shown->second = at;
    updated_.insert("study layout of " + id);
    return true;
  }
  Layout& layout = layouts_.at(id);
  const auto relevant = relevant_.find(id);
  const bool hasParent = relevant != relevant_.end() && has(order_, relevant->second);
  const Point now =
      hasParent ? minus(layout.absolute, layouts_.at(relevant->second).absolute) : layout.absolute;
  const Point delta = minus(at, now);
  if (delta != Point{}) {
    layout.relative = plus(layout.relative, delta);
    layout.absolute = plus(layout.absolute, delta);
    carry(id);
  }
  publishLayout(id);
  return true;
}

void StudyModel::addLabel(const std::string& id, const std::string& made, const std::string& text) {
  Object& object = objects_[made];
  object.type = label;
  object.name = "name of " + text;
  object.comment = text;
  object.assigned = id;
  object.isNamed = object.hasComment = true;
  order_.push_back(made);
  objects_.at(id).labels.push_back(made);
  publish(made);
  publish(id);
}

void StudyModel::reorder(const std::string& first) {
  const auto found = std::find(roots_.begin(), roots_.end(), first);
  if (found != roots_.end()) std::rotate(roots_.begin(), found, found + 1);
}

std::map<std::string, std::string> StudyModel::picture() const {
  std::map<std::string, std::string> facts = reopened();
  for (const std::string& id : order_) {
    const auto relevant = relevant_.find(id);
    facts["parent of " + id] = relevant == relevant_.end() ? "-" : relevant->second;
  }
  facts["roots"] = joined(roots_);
  for (const std::string& id : updated_) {
    const auto object = objects_.find(id);
    std::string& fact = facts["updated " + id];
    if (object == objects_.end()) continue;
    fact = (object->second.isNamed ? object->second.name : "-") + " |" + joined(object->second.parents) +
           " |" + (id == studyId ? "" : joined(object->second.children)) + " |" +
           joined(object->second.labels);
  }
  for (const std::string& id : deleted_) facts["deleted " + id];
  return facts;
}

std::map<std::string, std::string> StudyModel::reopened() const {
  std::map<std::string, std::string> facts;
  Ids roots;
  for (const std::string& id : order_) {
    const Object& object = objects_.at(id);
    facts["type of " + id] = std::to_string(object.type);
    const bool hasParent = !object.parents.empty() && objects_.count(object.parents.front());
    facts["parent of " + id] = hasParent ? object.parents.front() : "-";
    if (object.type != label && !hasParent) roots.push_back(id);
  }
  std::sort(roots.begin(), roots.end());
  facts["roots"] = joined(roots);
  for (const auto& [id, object] : objects_) {
    facts["object " + id] = object.name + " | " + object.comment + " |" + joined(object.parents) + " |" +
                            (id == studyId ? joined(shownOrder_) : joined(object.children)) + " |" +
                            joined(object.labels);
  }
  for (const auto& [id, layout] : layouts_) {
    // What is told of its place goes by the layout's own lists.
    facts["layout of " + id] =
        joined(layout.relative) + " | " + joined(layout.absolute) + " | " + layout.parent;
  }
  for (const auto& [id, at] : shown_) facts["shown " + id] = joined(at);
  return facts;
}

}  // namespace torture
