#include "zelstudy/DiffModel.h"

#include "document/ZelXmlFields.h"
#include "dom/IXMLDOMNodeList.h"

namespace zelstudy {

DiffModel::DiffModel(const IXMLDOMDocument& before, const IXMLDOMDocument& after) {
  sides_[earlier].document = before;
  sides_[later].document = after;
  for (OneSide& side : sides_) collect(side);
  match();
}

void DiffModel::collect(OneSide& side) {
  IXMLDOMNodeList sections;
  side.document.selectNodes("Data/Objects", sections);
  for (const IXMLDOMNode& section : sections)
    for (IXMLDOMElement each = section.firstElementChild(); each; each = each.nextElementSibling())
      side.objects.push_back(each);
  side.byId.reserve(side.objects.size());
  for (Index i = 0; i < side.objects.size(); ++i) {
    std::string_view id;
    if (!side.objects[i].getAttribute("ExternalId", id) || !zelXmlIsReference(id)) id = {};
    side.byId[id].push_back(i);
  }
}

void DiffModel::match() {
  OneSide& before = sides_[earlier];
  OneSide& after = sides_[later];
  std::vector<Index> partners(before.objects.size(), none);
  for (const auto& [id, indexes] : before.byId) {
    const auto found = after.byId.find(id);
    if (found == after.byId.end()) continue;
    if (!id.empty() && indexes.size() == 1 && found->second.size() == 1)
      partners[indexes[0]] = found->second[0];
    else
      matchMany(indexes, found->second, !id.empty(), partners);
  }
  std::vector<bool> taken(after.objects.size());
  for (Index i = 0; i < before.objects.size(); ++i) {
    if (partners[i] == none) {
      before.alone.push_back(i);
      continue;
    }
    taken[partners[i]] = true;
    std::string_view id;
    before.objects[i].getAttribute("ExternalId", id);
    if (zelXmlIsReference(id)) pairOfId_.emplace(id, static_cast<Index>(pairs_.size()));
    pairs_.push_back({{before.objects[i], after.objects[partners[i]]}, id});
  }
  for (Index i = 0; i < after.objects.size(); ++i)
    if (!taken[i]) after.alone.push_back(i);
}

void DiffModel::matchMany(const std::vector<Index>& before, const std::vector<Index>& after, bool haveId,
                          std::vector<Index>& partners) {
  std::unordered_map<std::string, std::vector<Index>> byContent;  // the last one comes first
  for (auto i = after.rbegin(); i != after.rend(); ++i)
    byContent[contentKey(sides_[later].objects[*i])].push_back(*i);
  std::unordered_set<Index> taken;
  for (const Index i : before) {
    const auto found = byContent.find(contentKey(sides_[earlier].objects[i]));
    if (found == byContent.end() || found->second.empty()) continue;
    partners[i] = found->second.back();
    taken.insert(partners[i]);
    found->second.pop_back();
  }
  if (!haveId) return;
  auto next = after.begin();
  for (const Index i : before) {
    if (partners[i] != none) continue;
    while (next != after.end() && taken.contains(*next)) ++next;
    if (next == after.end()) return;
    partners[i] = *next++;
  }
}

IXMLDOMElement DiffModel::find(Side side, std::string_view id) const {
  const auto found = sides_[side].byId.find(id);
  if (id.empty() || found == sides_[side].byId.end()) return {};
  return sides_[side].objects[found->second.front()];
}

DiffModel::Index DiffModel::findPair(std::string_view id) const {
  const auto found = pairOfId_.find(id);
  return found == pairOfId_.end() ? none : found->second;
}

const DiffModel::Texts& DiffModel::owners(const IXMLDOMElement& object) {
  const auto [entry, isNew] = owners_.try_emplace(object.identity());
  if (!isNew) return entry->second;
  Texts& ids = entry->second;
  for (std::string& id : itemTexts(object, "parents")) ids.insert(std::move(id));
  ids.insert(childText(object, "parent"));
  ids.insert(childText(object, "parentPrototype"));
  if (object.nodeName() == "Label") ids.insert(childText(object, "node"));
  std::erase_if(ids, [](const std::string& id) { return !zelXmlIsReference(id); });
  return ids;
}

std::string childText(const IXMLDOMElement& element, std::string_view name) {
  return childOf(element, name).text();
}

std::vector<std::string> itemTexts(const IXMLDOMElement& element, std::string_view list) {
  ZelXmlList<std::string> texts;
  zelXmlGetTextList(element, list, texts);
  return {texts.begin(), texts.end()};
}

}  // namespace zelstudy
