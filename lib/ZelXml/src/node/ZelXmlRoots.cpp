#include "node/ZelXmlRoots.h"

void ZelXmlRoots::append(ZelNode* node) {
  if (places_.emplace(node, roots_.size()).second) roots_.push_back(node);
}

bool ZelXmlRoots::remove(const ZelNode* node) {
  const auto found = places_.find(node);
  if (found == places_.end()) return false;
  roots_[found->second] = nullptr;
  places_.erase(found);
  if (roots_.size() > 64 && places_.size() < roots_.size() / 2) {
    roots_ = list();
    for (std::size_t i = 0; i < roots_.size(); ++i) places_[roots_[i]] = i;
  }
  return true;
}

void ZelXmlRoots::clear() {
  roots_.clear();
  places_.clear();
}

void ZelXmlRoots::assign(const std::vector<ZelNode*>& roots) {
  clear();
  for (ZelNode* root : roots) {
    if (root) append(root);
  }
}

std::vector<ZelNode*> ZelXmlRoots::list() const {
  std::vector<ZelNode*> listed;
  listed.reserve(places_.size());
  for (ZelNode* root : roots_) {
    if (root) listed.push_back(root);
  }
  return listed;
}
