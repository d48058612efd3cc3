// Random edit scripts for generated studies: `diff` tells what the scripts say, and nothing else.

#include <cmath>
#include <functional>
#include <set>

#include "RandomDraws.h"
#include "StudyGenerator.h"
#include "tool/ToolRun.h"
#include "zelgen/Objects.h"

namespace {

using namespace tool_test;
using nlohmann::json;

struct Object {
  std::string name;
  json comment;        // null for none
  std::string parent;  // empty for a root
  RTTran3D place;      // in the parent; of a root in the study
  bool isCompound = false, isSingle = true, isMoved = false;
};

class DiffRandomEdits : public testing::Test, protected RandomDraws {
 protected:
  void read(const std::string& text) {
    const zelgen_test::Objects all = zelgen_test::objectsOf(document_test::parse(text));
    for (const auto& [id, each] : all) {
      const auto layout = all.find(each.textOf("layout"));
      if (layout == all.end() || layout->second.name != "PmLayout") continue;
      Object& object = objects[id];
      object.name = each.textOf("name");
      if (each.has("comment")) object.comment = each.textOf("comment");
      const auto parents = each.items("parents");
      if (!parents.empty()) object.parent = parents[0];
      object.isSingle = parents.size() < 2;
      object.isCompound = each.has("children");
      zelXmlGetLayoutTransform(layout->second.node, object.place);
    }
    before = objects;
  }

  double length() { return RandomDraws::length(2500); }
  std::string any(const std::function<bool(const Object&)>& fits) {
    for (;;) {
      auto found = objects.begin();
      std::advance(found, below(objects.size()));
      if (fits(found->second)) return found->first;
    }
  }
  bool isBelow(std::string id, const std::string& ancestor) const {
    while (!id.empty() && id != ancestor) id = objects.at(id).parent;
    return !id.empty();
  }
  // A root that is placed is placed in the study, which moves nothing below it.
  RTTran3D absolute(const std::map<std::string, Object>& in, const std::string& id) const {
    const Object& object = in.at(id);
    return object.parent.empty() ? before.at(id).place : absolute(in, object.parent) * object.place;
  }

  // One line of a script, carried out on the model too.
  std::string edit() {
    const std::string made = "new-" + std::to_string(++edits);
    switch (below(7)) {
      case 0: {
        const std::string id = any([](const Object&) { return true; });
        objects[id].name = "name " + made;
        return "rename " + id + " \"name " + made + "\"";
      }
      case 1: {
        const std::string id = any([](const Object&) { return true; });
        objects[id].comment = "<" + made;
        return "describe " + id + " \"<" + made + "\"";
      }
      case 2: {
        const std::string id = any([](const Object& each) { return each.isSingle; });
        const RTVec3D at{length(), length(), length()}, turned{angle(3), angle(1.5), angle(3)};
        objects[id].place = RTTran3D(at, turned);
        std::string line = "place " + id;
        for (const double number : {at.x, at.y, at.z, turned.x, turned.y, turned.z})
          line += " " + std::to_string(number);
        return line;
      }
      case 3: {
        const std::string id =
            any([](const Object& each) { return each.isSingle && !each.isMoved && !each.parent.empty(); });
        const std::string parent = any([](const Object& each) { return each.isCompound; });
        Object& object = objects[id];
        if (isBelow(parent, id) || parent == object.parent) return "# nothing";
        object.place = absolute(objects, parent).inverse() * absolute(objects, id);
        object.parent = parent;
        object.isMoved = true;
        return "move " + id + " " + parent;
      }
      case 4: {
        const std::string parent = any([](const Object& each) { return each.isCompound; });
        Object& object = objects[made];
        object.parent = parent;
        object.isCompound = true;
        object.place = absolute(objects, parent).inverse();
        return "create " + std::to_string(3 + below(2)) + " " + made + " " + parent;
      }
      case 5: {
        const std::string id = any([](const Object& each) {
          return each.isSingle && !each.isCompound && !each.isMoved && !each.parent.empty();
        });
        objects.erase(id);
        gone.insert(id);
        return "delete " + id;
      }
      default:
        labels.insert("label-" + made);
        return "label " + any([](const Object&) { return true; }) + " label-" + made + " Note text";
    }
  }

  // What is told of an object that stood before and after, but for its place.
  json expected(const std::string& id) const {
    const Object &was = before.at(id), &is = objects.at(id);
    json changes = json::object();
    if (was.name != is.name) changes["name name"] = {was.name, is.name};
    if (was.parent != is.parent) changes["parent parents"] = {{was.parent}, {is.parent}};
    if (was.comment != is.comment) changes["field comment"] = {was.comment, is.comment};
    return changes;
  }

  std::map<std::string, Object> before, objects;
  std::set<std::string> gone, labels;
  int edits = 0;
};

TEST_F(DiffRandomEdits, AreToldAsTheyWereDone) {
  SCOPED_TRACE("ZEL_SEED=" + std::to_string(seed));
  const Folder folder;
  for (int round = 0; round < 6; ++round) {
    gone.clear();
    labels.clear();
    objects.clear();
    const std::string text = zelgen::generateStudy(
        {.objects = 600, .seed = seed + static_cast<std::uint64_t>(round), .shared = 20});
    read(text);
    std::string script;
    for (int i = 0; i < 40; ++i) script += edit() + "\n";
    const std::string old = folder.write("old.xml", text), now = folder.path("new.xml");
    ASSERT_EQ(run({"edit", old, "-", "-o", now}, script).exitCode, 0) << script;
    const Outcome outcome = run({"diff", old, now, "--json"});
    const json diff = outcome.json();

    std::set<std::string> added, removed, expectedAdded = labels;
    std::size_t layouts = 0;
    for (const json& each : diff["removed"])
      if (each["class"] != "PmLayout") removed.insert(each["id"]);
    for (const json& each : diff["added"])
      each["class"] == "PmLayout" ? void(++layouts) : void(added.insert(each["id"]));
    for (const auto& [id, object] : objects)
      if (!before.contains(id)) expectedAdded.insert(id);
    EXPECT_EQ(removed, gone);
    EXPECT_EQ(added, expectedAdded);
    EXPECT_EQ(layouts, expectedAdded.size() - labels.size());

    std::map<std::string, json> changed;
    for (const json& each : diff["changed"]) changed[each["id"]] = each["changes"];
    for (const auto& [id, object] : objects) {
      if (!before.contains(id)) continue;
      json told = json::object();
      double moved = 0, turned = 0;
      for (const json& change : changed[id]) {
        const std::string key = change["kind"].get<std::string>() + " " + change["path"].get<std::string>();
        if (change["kind"] == "placement") {
          moved += change["length"].get<double>();
          turned += change["angle"].get<double>();
        } else {
          told[key] = {change["old"], change["new"]};
        }
      }
      changed.erase(id);
      EXPECT_EQ(told, expected(id)) << id << "\n" << script;
      const bool byParent = before.at(id).parent == object.parent;
      const RTTran3D from = byParent ? before.at(id).place : absolute(before, id),
                     to = byParent ? object.place : absolute(objects, id);
      const RTVec3D a = from.getTranslation(), b = to.getTranslation();
      EXPECT_NEAR(moved, std::hypot(a.x - b.x, a.y - b.y, a.z - b.z), 0.1) << id << "\n" << script;
      EXPECT_NEAR(turned, from.angleTo(to), 1e-3) << id << "\n" << script;
    }
    EXPECT_TRUE(changed.empty()) << json(changed) << "\n" << script;
  }
}

}  // namespace
