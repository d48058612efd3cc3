// Edits of single objects with publication. A user works on one area at a time: as many objects, at random
// places of the study, are edited at every size.

#include <algorithm>
#include <cstdlib>
#include <random>

#include "Bench.h"
#include "Studies.h"
#include "zel/ZelCollection.h"

namespace {

using namespace bench;

// As many objects are edited at every size.
constexpr std::size_t edits = 200;
constexpr int rounds = 20;

// So many nodes of these types, in a random order.
std::vector<ZelNode*> nodesOf(Study& study, std::initializer_list<ZelNodeType> types,
                              std::size_t most = edits) {
  ZelNodeList all;
  study.wrapper().getAllNodes(all);
  std::vector<ZelNode*> found;
  for (ZelNode* node : all) {
    if (std::count(types.begin(), types.end(), node->type())) found.push_back(node);
  }
  std::shuffle(found.begin(), found.end(), std::mt19937(2));
  if (found.size() > most) found.resize(most);
  return found;
}

// The first edit of an object publishes it whole; these are the ones that follow.
void rename(benchmark::State& state, long objects) {
  Study study(studyFile(objects));
  study.publish();
  std::vector<ZelNode*> parts = nodesOf(study, {ZEL_PART_INSTANCE, ZEL_COMPOUND_PART});
  for (ZelNode* node : parts) node->setName("first");
  long round = 0;
  for ([[maybe_unused]] auto _ : state) {
    const Watch watch;
    for (int i = 0; i < rounds; ++i) {
      const std::string name = "name " + std::to_string(++round);
      for (ZelNode* node : parts) node->setName(name);
    }
    spend(state, watch.seconds() / rounds);
  }
  count(state, parts.size());
}

// Sets the text, and copies the field into the element of a second document that is known by its id.
void renameByHand(benchmark::State& state, long objects) {
  PugiStudy study(studyFile(objects));
  pugi::xml_document out;
  pugi::xml_node section = out.append_child("Data").append_child("Objects");
  std::unordered_map<std::string, pugi::xml_node> published;
  std::vector<pugi::xml_node> parts;
  for (const auto& [id, object] : study.objects) {
    if (object.family != "Product") continue;
    parts.push_back(object.element);
    published.emplace(id, section.append_copy(object.element));
  }
  std::shuffle(parts.begin(), parts.end(), std::mt19937(2));
  if (parts.size() > edits) parts.resize(edits);
  long round = 0;
  for ([[maybe_unused]] auto _ : state) {
    const Watch watch;
    for (int i = 0; i < rounds; ++i) {
      const std::string name = "name " + std::to_string(++round);
      for (pugi::xml_node element : parts) {
        const pugi::xml_node field = element.child("name");
        field.text().set(name.c_str());
        pugi::xml_node copy = published.find(element.attribute("ExternalId").value())->second;
        copy.remove_child("name");
        copy.append_copy(field);
      }
    }
    spend(state, watch.seconds() / rounds);
  }
  count(state, parts.size());
}

void move(benchmark::State& state, long objects) {
  Study study(studyFile(objects));
  study.publish();
  const std::vector<ZelNode*> parts = nodesOf(study, {ZEL_PART_INSTANCE});
  const std::vector<ZelNode*> compounds = nodesOf(study, {ZEL_COMPOUND_PART}, 20);
  std::size_t to = 0;
  const auto moveAll = [&] {
    for (ZelNode* part : parts) {
      zelQuery<ZelCollection>(compounds[++to % compounds.size()])->moveChild(part);
    }
  };
  moveAll();
  for ([[maybe_unused]] auto _ : state) {
    const Watch watch;
    moveAll();
    spend(state, watch.seconds());
  }
  count(state, parts.size());
}

void remove(benchmark::State& state, Study& study, const std::vector<ZelNode*>& nodes) {
  std::vector<ApiPmId> ids(nodes.size());
  for (std::size_t i = 0; i < nodes.size(); ++i) nodes[i]->getExternalId(ids[i]);
  if (ids.empty()) std::exit(2);
  // A few at a time: of a small study, all of them together would soon have warmed the caches.
  constexpr std::size_t atOnce = 20;
  double seconds = 0;
  for (std::size_t i = 0; i < ids.size();) {
    cool();
    const Watch watch;
    for (const std::size_t end = std::min(i + atOnce, ids.size()); i < end; ++i)
      study.wrapper().deleteNode(ids[i]);
    seconds += watch.seconds();
  }
  spend(state, seconds);
  count(state, ids.size());
}

void removeAny(benchmark::State& state, long objects) {
  for ([[maybe_unused]] auto _ : state) {
    Study study(studyFile(objects));
    study.publish();
    remove(state, study, nodesOf(study, {ZEL_PART_INSTANCE, ZEL_RESOURCE_INSTANCE}));
  }
}

// Objects that stand in the study by a shortcut of their own.
void removeShown(benchmark::State& state, long objects) {
  for ([[maybe_unused]] auto _ : state) {
    Study study(studyFile(objects));
    study.publish();
    ApiPmIdList roots;
    study.wrapper().getRoots(roots);
    std::vector<ZelNode*> shown;
    for (const ApiPmId& id : roots) {
      ApiPmId shortcut;
      if (shown.size() < edits && study.wrapper().findShortcut(id, shortcut)) {
        shown.push_back(study.wrapper().getZelNodeFromId(id));
      }
    }
    remove(state, study, shown);
  }
}

// As many children into one new compound as the study has objects.
void fill(benchmark::State& state, long objects) {
  for ([[maybe_unused]] auto _ : state) {
    Study study(studyFile(1000));
    study.publish();
    auto* compound =
        zelQuery<ZelCollection>(study.wrapper().createRoot(ZEL_COMPOUND_PART, ApiPmId("compound")));
    provideMemory(objects);
    const Watch watch;
    for (long i = 0; i < objects; ++i) {
      compound->createChild(ZEL_PART_INSTANCE, ApiPmId("child " + std::to_string(i)));
    }
    spend(state, watch.seconds());
  }
  count(state, static_cast<std::size_t>(objects));
}

// And out again, one by one, in the order that they came.
void empty(benchmark::State& state, long objects) {
  for ([[maybe_unused]] auto _ : state) {
    Study study(studyFile(1000));
    study.publish();
    auto* compound =
        zelQuery<ZelCollection>(study.wrapper().createRoot(ZEL_COMPOUND_PART, ApiPmId("compound")));
    for (long i = 0; i < objects; ++i) {
      compound->createChild(ZEL_PART_INSTANCE, ApiPmId("child " + std::to_string(i)));
    }
    cool();
    const Watch watch;
    for (long i = 0; i < objects; ++i) compound->removeChild(ApiPmId("child " + std::to_string(i)));
    spend(state, watch.seconds());
  }
  count(state, static_cast<std::size_t>(objects));
}

const int added = add({"setName, published", {{OURS, rename}, {PUGIXML, renameByHand}}, "pugixml", 2}) +
                  add({"move a child", {{OURS, move}}}) + add({"delete a node", {{OURS, removeAny}}}) +
                  add({"delete a shown node", {{OURS, removeShown}}}) +
                  add({"add children", {{OURS, fill}}}) + add({"remove children", {{OURS, empty}}});

}  // namespace
