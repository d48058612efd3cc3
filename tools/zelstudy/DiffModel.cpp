#include "zelstudy/DiffModel.h"

#include "document/ZelXmlFields.h"
#include "rw/RWTextHash.h"

namespace zelstudy {

DiffModel::DiffModel(const IXMLDOMDocument& before, const IXMLDOMDocument& after) {
  sides_[earlier].document = before;
  sides_[later].document = after;
  collect(sides_[earlier], OneSide());
  collect(sides_[later], sides_[earlier]);
  match();
}

void DiffModel::collect(OneSide& side, const OneSide& other) {
  side.document.visitNodes("Data/Objects/*",
                           [&](const IXMLDOMNode& each) { side.objects.emplace_back(each); });
  side.nextSame.assign(side.objects.size(), none);
  side.ids.reserve(side.objects.size());
  Index likely = 0;
  for (Index i = 0; i < side.objects.size(); ++i) {
    std::string_view text;
    if (!side.objects[i].getAttribute("ExternalId", text) || !zelXmlIsReference(text)) text = {};
    if (likely < other.ids.size() && other.ids[likely].text() == text) {
      side.ids.push_back(other.ids[likely]);
    } else {
      side.ids.emplace_back(text);
      likely = other.same(side.ids[i]).first;
    }
    if (likely != none) ++likely;
    OneSide::Same& same = side.byId.at(side.ids[i].number());
    (same.first == none ? same.first : side.nextSame[same.last]) = i;
    same.last = i;
  }
}

void DiffModel::match() {
  OneSide& before = sides_[earlier];
  OneSide& after = sides_[later];
  std::vector<Index> partners(before.objects.size(), none);
  for (Index i = 0; i < before.objects.size(); ++i) {
    const OneSide::Same same = before.same(before.ids[i]), others = after.same(before.ids[i]);
    if (same.first != i || others.first == none) continue;
    const bool haveId = !before.ids[i].isNull();
    if (haveId && same.first == same.last && others.first == others.last)
      partners[i] = others.first;
    else
      matchMany(before.all(i), after.all(others.first), haveId, partners);
  }
  std::vector<bool> taken(after.objects.size());
  for (Index i = 0; i < before.objects.size(); ++i) {
    if (partners[i] == none) {
      before.alone.push_back(i);
      continue;
    }
    taken[partners[i]] = true;
    pairs_.push_back({{before.objects[i], after.objects[partners[i]]}, before.ids[i].text()});
    Index& first = firstPair_.at(before.ids[i].number());
    if (first == 0) first = static_cast<Index>(pairs_.size());
  }
  for (Index i = 0; i < after.objects.size(); ++i)
    if (!taken[i]) after.alone.push_back(i);
}

void DiffModel::matchMany(const std::vector<Index>& before, const std::vector<Index>& after, bool haveId,
                          std::vector<Index>& partners) {
  std::unordered_map<std::string, std::vector<Index>, RWTextHash> byContent;  // the last one comes first
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
  const Index first = id.empty() ? none : sides_[side].same(ApiPmId::existing(id)).first;
  return first == none ? IXMLDOMElement() : sides_[side].objects[first];
}

DiffModel::Index DiffModel::findPair(std::string_view id) const {
  const Index* first = id.empty() ? nullptr : firstPair_.find(ApiPmId::existing(id).number());
  return first && *first ? *first - 1 : none;
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
