#include <algorithm>

#include "zelstudy/CheckModel.h"
#include "zelstudy/Placements.h"

// Layouts: whose they are, the tree that they form beside that of the objects, and where they stand.

namespace zelstudy {

namespace {

bool isLayout(const CheckObject& object) {
  return object.kind == CheckKind::layout || object.kind == CheckKind::studyLayout;
}

class LayoutCheck {
 public:
  explicit LayoutCheck(CheckModel& model) : model_(model), tree_(model), listed_(model.size()) {
    for (std::uint32_t i = 0; i < model.size(); ++i)
      if (isLayout(model.at(i)) && !model.at(i).isStray)
        for (const CheckRef child : model.list(model.at(i).children))
          if (child.isObject()) listed_[child.index()] = true;
  }

  void run() {
    for (std::uint32_t i = 0; i < model_.size(); ++i)
      if (!model_.at(i).isStray && !isLayout(model_.at(i))) findLayout(i);
    // All owners first: the tree of the layouts is held against that of their objects.
    std::vector<std::uint32_t> layouts;
    for (std::uint32_t i = 0; i < model_.size(); ++i) {
      if (!isLayout(model_.at(i)) || model_.at(i).isStray) continue;
      layouts.push_back(i);
      checkOwner(i);
    }
    for (const std::uint32_t i : layouts) {
      checkChildren(i);
      if (model_.at(i).owner.isNone()) continue;
      checkParent(i);
      if (model_.at(i).kind == CheckKind::layout) checkLocation(i);
    }
  }

 private:
  std::string_view id(CheckRef ref) const { return model_.at(ref).id; }

  void findLayout(std::uint32_t index) {
    const CheckObject& object = model_.at(index);
    if (object.layout.isNone()) {
      if (object.kind == CheckKind::placed && !object.isProcessAssembly)
        model_.report(Rule::layoutMissing, index, "layout", model_.name(index) + " has no layout");
      return;
    }
    if (!object.layout.isObject()) return;
    CheckObject& layout = model_.objects()[object.layout.index()];
    if (!isLayout(layout)) {
      model_.report(Rule::referenceKind, index, "layout",
                    model_.name(index) + " names " + model_.name(object.layout.index()) +
                        " in layout, which is no layout",
                    {layout.id});
      return;
    }
    if (layout.owner.isNone()) {
      layout.owner = CheckRef::object(index);
      return;
    }
    // The one that the layout names is the owner; otherwise the first.
    std::uint32_t intruder = index;
    if (layout.node.is(index)) {
      intruder = layout.owner.index();
      layout.owner = CheckRef::object(index);
    }
    model_.report(Rule::layoutShared, intruder, "layout",
                  model_.name(intruder) + " has the layout of " + model_.name(layout.owner.index()) + ", " +
                      model_.name(object.layout.index()),
                  {layout.id, id(layout.owner)});
  }

  // Leaves the layout without owner when there is none.
  void checkOwner(std::uint32_t index) {
    CheckObject& layout = model_.objects()[index];
    if (!layout.owner.isNone()) {
      if (layout.node.isLost()) {
        const std::string& lost = model_.lostId(layout.node);
        model_.report(Rule::reference, index, "node",
                      model_.name(index) + " names " + shown(lost) + " in node, and no object has that id",
                      {lost});
      } else if (layout.node.isNone()) {
        if (layout.kind == CheckKind::layout)
          model_.report(Rule::layoutNodeMissing, index, "node",
                        model_.name(index) + " does not name " + model_.name(layout.owner.index()) +
                            ", whose layout it is",
                        {id(layout.owner)});
      } else if (!(layout.node.is(layout.owner.index()))) {
        model_.report(Rule::layoutNode, index, "node",
                      model_.name(index) + " names " + model_.name(layout.node.index()) +
                          " in node, but is the layout of " + model_.name(layout.owner.index()),
                      {id(layout.owner), id(layout.node)});
      }
      return;
    }
    if (layout.node.isNone()) {
      model_.report(Rule::layoutUnused, index, {}, model_.name(index) + " is the layout of no object");
    } else if (layout.node.isLost()) {
      const std::string& lost = model_.lostId(layout.node);
      model_.report(Rule::layoutOrphan, index, "node",
                    model_.name(index) + " is the layout of " + shown(lost) + ", and no object has that id",
                    {lost});
    } else {
      layout.owner = layout.node;
      const CheckRef other = model_.at(layout.node).layout;
      // That object's own reference has been reported when it leads nowhere, or to the layout of another.
      if (other.isNone() || (other.isObject() && model_.at(other).node.is(layout.node.index())))
        model_.report(Rule::layoutNode, index, "node",
                      model_.name(index) + " names " + model_.name(layout.node.index()) +
                          " in node, whose layout it is not",
                      {id(layout.node)});
    }
  }

  bool lists(CheckRef layout, std::uint32_t child) const {
    return tree_.children.contains(layout.index(), child);
  }

  bool hasLivingParent(CheckRef owner) const {
    const auto parents = model_.list(model_.at(owner).parents);
    return std::any_of(parents.begin(), parents.end(), [](CheckRef ref) { return ref.isObject(); });
  }

  bool hasPlacedParent(CheckRef owner) const {
    const auto parents = model_.list(model_.at(owner).parents);
    return std::any_of(parents.begin(), parents.end(),
                       [&](CheckRef ref) { return ref.isObject() && model_.at(ref).layout.isObject(); });
  }

  void checkParent(std::uint32_t index) {
    const CheckObject& layout = model_.at(index);
    const CheckRef parent = layout.parent;
    if (parent.isObject()) {
      checkLivingParent(index, parent);
    } else if (listed_[index]) {
      return;  // told of the layout that lists it
    } else if (parent.isLost()) {
      const std::string& lost = model_.lostId(parent);
      model_.report(Rule::layoutParentLost, index, "parent",
                    model_.name(index) + " has the parent " + shown(lost) + ", and no object has that id",
                    {lost});
    } else if (hasPlacedParent(layout.owner)) {
      model_.report(layout.parentIsEmpty ? Rule::layoutCleared : Rule::layoutDetached, index, "parent",
                    model_.name(index) + " has no parent, but " + model_.name(layout.owner.index()) +
                        ", whose layout it is, has one",
                    {id(layout.owner)});
    }
  }

  void checkLivingParent(std::uint32_t index, CheckRef parent) {
    const CheckObject& layout = model_.at(index);
    const CheckRef holder = model_.at(parent).owner;
    if (!isLayout(model_.at(parent))) {
      model_.report(
          Rule::referenceKind, index, "parent",
          model_.name(index) + " names " + model_.name(parent.index()) + " in parent, which is no layout",
          {id(parent)});
    } else if (!lists(parent, index)) {
      model_.report(Rule::layoutParent, index, "parent",
                    model_.name(index) + " has the parent " + model_.name(parent.index()) +
                        ", whose children do not hold it",
                    {id(parent)});
    } else if (!parent.is(index) && !holder.isNone() && !tree_.holds(holder.index(), layout.owner.index())) {
      model_.report(Rule::layoutLeft, index, "parent",
                    model_.name(index) + " stands under " + model_.name(parent.index()) + ", but " +
                        model_.name(layout.owner.index()) + " is no child of " + model_.name(holder.index()),
                    {id(parent), id(layout.owner), id(holder)});
    }
  }

  void checkChildren(std::uint32_t index) {
    const CheckObject& layout = model_.at(index);
    for (const CheckRef child : model_.list(layout.children)) {
      if (child.isLost()) {
        const std::string& lost = model_.lostId(child);
        model_.report(Rule::layoutChildLost, index, "children",
                      model_.name(index) + " has the child " + shown(lost) + ", and no object has that id",
                      {lost});
      } else if (child.isObject() && !isLayout(model_.at(child))) {
        model_.report(
            Rule::referenceKind, index, "children",
            model_.name(index) + " lists " + model_.name(child.index()) + " in children, which is no layout",
            {id(child)});
      } else if (child.isObject() && !layout.owner.isNone()) {
        checkListing(index, child);
      }
    }
  }

  // What a layout lists names it as its parent.
  void checkListing(std::uint32_t index, CheckRef child) {
    const CheckObject& listed = model_.at(child);
    if (listed.parent.is(index) || listed.owner.isNone()) return;
    // Told of the listed layout, which names a parent that does not list it.
    if (listed.parent.isObject() && !lists(listed.parent, child.index())) return;
    if (listed.parent.isObject() && tree_.holds(model_.at(index).owner.index(), listed.owner.index())) {
      model_.report(Rule::layoutAlsoListed, index, "children",
                    model_.name(index) + " has the child " + model_.name(child.index()) +
                        ", which stands under " + model_.name(listed.parent.index()),
                    {listed.id, id(listed.parent)});
      return;
    }
    const bool left = !hasLivingParent(listed.owner);
    model_.report(left ? Rule::layoutLeft : Rule::layoutChildren, left ? child.index() : index,
                  left ? "parent" : "children",
                  model_.name(index) + " has the child " + model_.name(child.index()) +
                      ", which does not name it in parent",
                  {left ? model_.at(index).id : listed.id});
  }

  void checkLocation(std::uint32_t index) {
    const CheckObject& layout = model_.at(index);
    const CheckPlacement& own = model_.placement(layout);
    if (!own.relative || !own.absolute) return;
    const RTTran3D relative(own.location, own.rotation);
    const RTTran3D absolute(own.absoluteLocation, own.absoluteRotation);
    double distance = std::max(reach(own.location), reach(own.absoluteLocation));
    const auto differs = [&](const RTTran3D& expected) {
      return !isSameButForRounding(absolute, expected, distance);
    };
    if (layout.parent.isObject() && model_.at(layout.parent).kind == CheckKind::layout) {
      const CheckPlacement& parent = model_.placement(model_.at(layout.parent));
      if (!parent.absolute) return;
      distance = std::max(distance, reach(parent.absoluteLocation));
      if (differs(RTTran3D(parent.absoluteLocation, parent.absoluteRotation) * relative))
        model_.report(Rule::locationAbsolute, index, "NodeInfo/absoluteLocation",
                      model_.name(index) + " is not where its location under " +
                          model_.name(layout.parent.index()) + " puts it",
                      {id(layout.parent), id(layout.owner)});
    } else if (layout.parent.isNone() && model_.at(layout.owner).parents.count == 0 && differs(relative)) {
      model_.report(Rule::locationRoot, index, "NodeInfo/absoluteLocation",
                    model_.name(index) + " has no parent, and two different locations", {id(layout.owner)});
    }
  }

  CheckModel& model_;
  const CheckTree tree_;
  std::vector<bool> listed_;
};

}  // namespace

void checkLayouts(CheckModel& model) { LayoutCheck(model).run(); }

}  // namespace zelstudy
