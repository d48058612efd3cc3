// Edits of single objects with publication, at random places of the study.

#include <algorithm>
#include <cstdlib>
#include <random>

#include "Bench.h"
#include "Studies.h"
#include "zel/ZelCollection.h"

namespace {

using namespace bench;

// Nodes of one type, in a random order.
std::vector<ZelNode*> nodesOf(Study& study, std::initializer_list<ZelNodeType> types) {
  ZelNodeList all;
  study.wrapper().getAllNodes(all);
  std::vector<ZelNode*> found;
  for (ZelNode* node : all) {
    if (std::count(types.begin(), types.end(), node->type())) found.push_back(node);
  }
  std::shuffle(found.begin(), found.end(), std::mt19937(2));
  return found;
}

// As many edits as are measured at every size.
constexpr std::size_t edits = 500;

// The first edit of an object publishes it whole; these are the ones that follow.
void rename(benchmark::State& state, long objects) {
  Study study(studyFile(objects));
  study.publish();
  std::vector<ZelNode*> parts = nodesOf(study, {ZEL_PART_INSTANCE, ZEL_COMPOUND_PART});
  for (ZelNode* node : parts) node->setName("first");
  long round = 0;
  for (auto _ : state) {
    const std::string name = "name " + std::to_string(++round);
    const Watch watch;
    for (ZelNode* node : parts) node->setName(name);
    spend(state, watch.seconds());
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
  long round = 0;
  for (auto _ : state) {
    const std::string name = "name " + std::to_string(++round);
    const Watch watch;
    for (pugi::xml_node element : parts) {
      const pugi::xml_node field = element.child("name");
      field.text().set(name.c_str());
      pugi::xml_node copy = published.find(element.attribute("ExternalId").value())->second;
      copy.remove_child("name");
      copy.append_copy(field);
    }
    spend(state, watch.seconds());
  }
  count(state, parts.size());
}

void move(benchmark::State& state, long objects) {
  Study study(studyFile(objects));
  study.publish();
  const std::vector<ZelNode*> parts = nodesOf(study, {ZEL_PART_INSTANCE});
  const std::vector<ZelNode*> compounds = nodesOf(study, {ZEL_COMPOUND_PART});
  std::size_t to = 0;
  for (auto _ : state) {
    const Watch watch;
    for (std::size_t i = 0; i < edits; ++i) {
      zelQuery<ZelCollection>(compounds[++to % compounds.size()])->moveChild(parts[i % parts.size()]);
    }
    spend(state, watch.seconds());
  }
  count(state, edits);
}

void remove(benchmark::State& state, long objects) {
  for (auto _ : state) {
    Study study(studyFile(objects));
    study.publish();
    std::vector<ApiPmId> ids;
    for (const ZelNode* node : nodesOf(study, {ZEL_PART_INSTANCE, ZEL_RESOURCE_INSTANCE})) {
      ApiPmId id;
      if (node->getExternalId(id) && ids.size() < edits) ids.push_back(id);
    }
    const Watch watch;
    for (ApiPmId& id : ids) study.wrapper().deleteNode(id);
    spend(state, watch.seconds());
    count(state, ids.size());
  }
}

// Deletion of objects that stand in the study by a shortcut of their own.
void removeShown(benchmark::State& state, long objects) {
  for (auto _ : state) {
    Study study(studyFile(objects));
    study.publish();
    std::vector<ApiPmId> ids;
    ApiPmIdList roots;
    study.wrapper().getRoots(roots);
    for (const ApiPmId& id : roots) {
      ApiPmId shortcut;
      if (study.wrapper().findShortcut(id, shortcut) && ids.size() < edits) ids.push_back(id);
    }
    if (ids.empty()) std::exit(2);
    const Watch watch;
    for (ApiPmId& id : ids) study.wrapper().deleteNode(id);
    spend(state, watch.seconds());
    count(state, ids.size());
  }
}

// As many children into one new compound as the study has objects.
void fill(benchmark::State& state, long objects) {
  for (auto _ : state) {
    Study study(studyFile(1000));
    study.publish();
    auto* compound =
        zelQuery<ZelCollection>(study.wrapper().createRoot(ZEL_COMPOUND_PART, ApiPmId("compound")));
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
  for (auto _ : state) {
    Study study(studyFile(1000));
    study.publish();
    auto* compound =
        zelQuery<ZelCollection>(study.wrapper().createRoot(ZEL_COMPOUND_PART, ApiPmId("compound")));
    for (long i = 0; i < objects; ++i) {
      compound->createChild(ZEL_PART_INSTANCE, ApiPmId("child " + std::to_string(i)));
    }
    const Watch watch;
    for (long i = 0; i < objects; ++i) compound->removeChild(ApiPmId("child " + std::to_string(i)));
    spend(state, watch.seconds());
  }
  count(state, static_cast<std::size_t>(objects));
}

const int added = add({"setName, published", {{OURS, rename}, {PUGIXML, renameByHand}}, "pugixml", 2}) +
                  add({"move a child", {{OURS, move}}}) + add({"delete a node", {{OURS, remove}}}) +
                  add({"delete a shown node", {{OURS, removeShown}}}) +
                  add({"add children", {{OURS, fill}}}) + add({"remove children", {{OURS, empty}}});

}  // namespace
