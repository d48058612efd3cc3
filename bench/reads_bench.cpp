// Reads of single objects, in random order over the whole study. Reads over and over are out of the cache in
// a small study, and wait for memory in a large one, whoever does them: what counts there is the ratio to the
// peer, and growth is only told. A first read waits for memory in every study, and must cost the same.

#include <algorithm>

#include "Bench.h"
#include "Studies.h"
#include "rt/RTTran3D.h"
#include "zel/ZelPhysical.h"

namespace {

using namespace bench;

// Calls `read` for each of the things, over and over, in iterations of at least so many calls.
template <class Things, class Read>
void readAll(benchmark::State& state, const Things& things, Read read) {
  const std::size_t rounds = std::max<std::size_t>(1, 50'000 / things.size());
  for ([[maybe_unused]] auto _ : state) {
    const Watch watch;
    for (std::size_t round = 0; round < rounds; ++round) {
      for (const auto& thing : things) benchmark::DoNotOptimize(read(thing));
    }
    spend(state, watch.seconds());
  }
  count(state, rounds * things.size());
}

// Calls `read` once for each of some of the things: a few at a time, so that one does not warm the caches for
// the others, with cold caches before them.
template <class Things, class Read>
void readFirst(benchmark::State& state, const Things& things, Read read) {
  constexpr std::size_t atOnce = 50;
  const std::size_t all = std::min<std::size_t>(things.size(), 400);
  for ([[maybe_unused]] auto _ : state) {
    double seconds = 0;
    for (std::size_t i = 0; i < all;) {
      cool();
      const Watch watch;
      for (const std::size_t end = std::min(i + atOnce, all); i < end; ++i)
        benchmark::DoNotOptimize(read(things[i]));
      seconds += watch.seconds();
    }
    spend(state, seconds);
  }
  count(state, all);
}

enum class Reads { overAndOver, first };

template <Reads reads, class Things, class Read>
void readThem(benchmark::State& state, const Things& things, Read read) {
  if constexpr (reads == Reads::first) {
    readFirst(state, things, read);
  } else {
    readAll(state, things, read);
  }
}

template <Reads reads>
void find(benchmark::State& state, long objects) {
  std::vector<ApiPmId> ids(shuffledNodes(objects).size());
  for (std::size_t i = 0; i < ids.size(); ++i) shuffledNodes(objects)[i]->getExternalId(ids[i]);
  ZelWrapper& wrapper = readStudy(objects).wrapper();
  readThem<reads>(state, ids, [&](const ApiPmId& id) { return wrapper.getZelNodeFromId(id); });
}

void findByHand(benchmark::State& state, long objects) {
  std::vector<std::string> ids;
  for (const pugi::xml_node element : shuffledElements(objects))
    ids.emplace_back(element.attribute("ExternalId").value());
  const PugiStudy& study = readPugiStudy(objects);
  readAll(state, ids, [&](const std::string& id) { return study.objects.find(id)->second.element; });
}

template <Reads reads>
void name(benchmark::State& state, long objects) {
  RWClassicWString text;
  readThem<reads>(state, shuffledNodes(objects), [&](const ZelNode* node) { return node->getName(text); });
}

void nameByHand(benchmark::State& state, long objects) {
  std::string text;
  readAll(state, shuffledElements(objects), [&](const pugi::xml_node element) {
    text = element.child("name").child_value();
    return text.size();
  });
}

// Objects with a placement in a parent.
std::vector<const ZelPhysical*> placedNodes(long objects) {
  std::vector<const ZelPhysical*> placed;
  for (const ZelNode* node : shuffledNodes(objects)) {
    const auto* physical = zelQuery<ZelPhysical>(node);
    RTTran3D location;
    if (physical && node->getParent() && physical->getLocation(location)) placed.push_back(physical);
  }
  return placed;
}

template <Reads reads>
void location(benchmark::State& state, long objects) {
  RTTran3D place;
  readThem<reads>(state, placedNodes(objects),
                  [&](const ZelPhysical* node) { return node->getLocation(place); });
}

RTTran3D absolute(const PugiStudy& study, const pugi::xml_node element) {
  const pugi::xml_node layout = study.objects.find(element.child_value("layout"))->second.element;
  const pugi::xml_node place = layout.child("NodeInfo").child("absoluteLocation");
  const auto number = [&](const char* field) { return place.child(field).text().as_double(); };
  return {{number("x"), number("y"), number("z")}, {number("rx"), number("ry"), number("rz")}};
}

// As the library finds it: from the absolute placements of the object and of its parent.
void locationByHand(benchmark::State& state, long objects) {
  const PugiStudy& study = readPugiStudy(objects);
  std::vector<pugi::xml_node> placed;
  for (const ZelPhysical* node : placedNodes(objects)) {
    ApiPmId id;
    node->getExternalId(id);
    placed.push_back(study.objects.at(id.asString()).element);
  }
  readAll(state, placed, [&](const pugi::xml_node element) {
    const auto parent = study.parents.find(element.attribute("ExternalId").value());
    return absolute(study, study.objects.find(parent->second)->second.element).inverse() *
           absolute(study, element);
  });
}

constexpr Reads often = Reads::overAndOver, once = Reads::first;
const int added =
    add({"getZelNodeFromId", {{OURS, find<often>}, {PUGIXML, findByHand}}, "pugixml", 1.5, false}) +
    add({"getName", {{OURS, name<often>}, {PUGIXML, nameByHand}}, "pugixml", 1.5, false}) +
    add({"getLocation", {{OURS, location<often>}, {PUGIXML, locationByHand}}, "pugixml", 1.5, false}) +
    add({"first getZelNodeFromId", {{OURS, find<once>}}}) + add({"first getName", {{OURS, name<once>}}}) +
    add({"first getLocation", {{OURS, location<once>}}});

}  // namespace
