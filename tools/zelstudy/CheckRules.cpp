#include "zelstudy/CheckRules.h"

#include <array>

namespace zelstudy {

namespace {

constexpr Severity error = Severity::error, debris = Severity::debris;
constexpr bool always = false, onDemand = true;

constexpr std::string_view cleanUp =
    "Nothing needs it. It may be left, or taken out by hand when the study is tidied.";

constexpr CheckRule rules[] = {
    {Rule::idMissing, error, always, "id-missing", "Every object has an ExternalId.",
     "The id is the object's name everywhere: without it no reference reaches the object, it gets no node, "
     "and "
     "no change to it can be told to another system.",
     "<PmPartInstance> without the attribute, or with ExternalId=\"\" or \"NULL\"",
     "Give the object an id that no other object has, or remove the object."},
    {Rule::idDuplicate, error, always, "id-duplicate", "No two objects have the same ExternalId.",
     "A reference finds the first object with its id. The second one is never reached, and edits meant for "
     "one go "
     "to the other.",
     "two objects with ExternalId=\"P-sill\"",
     "Give the later object an id of its own and put that into the references that mean it, or remove it."},
    {Rule::familyMissing, error, always, "family-missing", "Every object has a NodeInfo/family.",
     "The family decides what becomes of an object when a study is opened; without one it is passed over. "
     "Study "
     "infos need none, and nothing can be said for a class that is not known.",
     "<PmPartInstance ExternalId=\"P\"> without NodeInfo",
     "Write the family of the class into NodeInfo/family."},
    {Rule::familyClass, error, always, "family-class", "The family of an object is that of its class.",
     "The element name is the class of an object, and the class types tell its family. An object of another "
     "family "
     "becomes a node of the wrong kind. Classes that are not known are not judged.",
     "<PmPartInstance> with the family Resource",
     "Write the family of the class into NodeInfo/family, or correct the element name."},
    {Rule::classMisspelt, error, always, "class-misspelt", "The class of an object is spelt as it is known.",
     "An element name that no class has, but for one slip: a letter too many, too few, another, two that "
     "changed places, or the case. What asks for the class passes the object over. A name that differs in a "
     "digit, or comes with a family that is not that of the known class, counts as a class of its own.",
     "<PmPartInstanse>", "Correct the element name, or make the class known."},
    {Rule::number, error, always, "number", "A field that holds a number reads as one.",
     "A text that is no number is read as 0, or as far as its digits go, without a word. An empty text is a "
     "number "
     "not yet given, and counts as 0. Looked at are the locations of layouts and labels, NodeInfo/Id and "
     "weight.",
     "<item>12,5</item> in a location", "Write the number with a point, and without a unit."},
    {Rule::location, error, always, "location",
     "A layout has three numbers of location, three of rotation and, as a PmLayout, six of absoluteLocation.",
     "Where one is missing the layout has no place: it is passed over when its parent moves, and it cannot "
     "be "
     "moved itself.",
     "a PmLayout without NodeInfo/absoluteLocation", "Add what is missing; an empty text stands for 0."},
    {Rule::reference, error, always, "reference", "A reference names an object, or nothing.",
     "An object that leans on one that is not there has lost a part of itself: its place, its prototype, its "
     "shape, a child. The empty text and NULL name nothing and are fine.",
     "<prototype>PP-7</prototype>, and no object has the id PP-7",
     "Bring the missing object back, name another one, or empty the field."},
    {Rule::referenceLeft, debris, always, "reference-left",
     "A label, an operation or a flow names no object that was deleted.",
     "Deleting an object takes it out of its parent and its study. What only points at it from elsewhere "
     "stays as "
     "it was: its labels, the operations that use it, the flows from and to it.",
     "<processResource>R-1</processResource> after R-1 was deleted",
     "Name another object, empty the field, or delete what points at nothing."},
    {Rule::referenceKind, error, always, "reference-kind", "A reference names an object of the right kind.",
     "A layout is asked for numbers, a label for its text, a shortcut for its target; another object has "
     "none of "
     "them.",
     "<layout>P-sill</layout>, where P-sill is a part",
     "Name an object of the kind that the field is meant for."},
    {Rule::repeated, error, always, "repeated", "A list of ids holds each id once.",
     "Readers pass over the second one, while removals take out the first one only: the object seems to come "
     "back.",
     "<children><item>B</item><item>B</item></children>",
     "Remove all but one of the items; in a study together with the items of info at the same places."},
    {Rule::childWithoutParent, error, always, "child-without-parent",
     "Whatever stands in the children of an object has that object in its parents.",
     "The two lists are one relation, told from both sides. Where they differ, the answer depends on who is "
     "asked.",
     "A lists B in children, the parents of B do not hold A",
     "Add the item to parents of the child, or take the child off the list."},
    {Rule::parentWithoutChild, error, always, "parent-without-child",
     "Whatever stands in the parents of an object has that object in its children.",
     "The two lists are one relation, told from both sides. Where they differ, the answer depends on who is "
     "asked.",
     "B names A in parents, the children of A do not hold B",
     "Add the item to children of the parent, or take the parent off the list."},
    {Rule::parentLost, debris, always, "parent-lost", "The parents of an object are there.",
     "Deleting a compound leaves its children in the study, and their parents name it still. It does not "
     "count as "
     "a parent any more.",
     "<parents><item>A</item></parents> after A was deleted", cleanUp},
    {Rule::resourceInPart, error, always, "resource-in-part", "Parts hold parts.",
     "Products and resources are two trees. A robot or a tool below a part goes wherever the part goes, and "
     "who looks through the resources does not find it. An edit puts an object where it is told.",
     "the children of a PmCompoundPart name a PmToolInstance",
     "Move the resource to a compound resource, or make it a root."},
    {Rule::cycle, error, always, "cycle", "No object stands under itself.",
     "A walk down the tree would not end, and no object of the cycle is reached from a root.",
     "A is a child of B, and B a child of A", "Take one of the objects out of the children of another."},
    {Rule::labelNode, error, always, "label-node", "A label names the object that lists it.",
     "Deleting a label goes to the object that its node names; the item in the list of another one would "
     "stay.",
     "B lists the label L, and the node of L is C",
     "Write the object that lists the label into its node, or move the item to the object that node names."},
    {Rule::layoutNode, error, always, "layout-node", "The node of a layout is the object whose layout it is.",
     "From the object one finds the layout, from the layout the object; both ways must end at the same pair.",
     "B has the layout L, and the node of L is C", "Write the object that names the layout into node."},
    {Rule::layoutShared, error, always, "layout-shared", "A layout belongs to one object.",
     "Two objects with one layout cannot be moved apart, and deleting one takes the place of the other away.",
     "both B and C have the layout L", "Give one of the objects a layout of its own."},
    {Rule::layoutUnused, error, always, "layout-unused", "Every layout belongs to an object.",
     "No object names the layout, and it names no object either: it places nothing.",
     "a PmStudyLayout that no study info names",
     "Remove the layout, or write its id into the object it places."},
    {Rule::layoutOrphan, debris, always, "layout-orphan", "A layout goes with its object.",
     "Deleting a root leaves its layout in the study; its node names an object that is gone.",
     "a PmLayout whose node was deleted", cleanUp},
    {Rule::layoutParent, error, always, "layout-parent",
     "The layout that another one names as its parent lists it in its children.",
     "Moving an object moves the layouts that its own layout lists. One that is not listed stays behind, "
     "though it "
     "is counted from there.",
     "LB has the parent LA, the children of LA do not hold LB",
     "Add the item to children of the parent layout, or correct parent."},
    {Rule::layoutChildren, error, always, "layout-children",
     "A layout that is listed in the children of another one names that one as its parent.",
     "The listed layout moves along with the one that lists it, while its own location is counted from "
     "elsewhere.",
     "LA lists LB in children, and the parent of LB is NULL",
     "Write the layout that lists it into parent, or take it off the list."},
    {Rule::layoutAlsoListed, debris, always, "layout-also-listed",
     "The layout of a shared object is listed by the layout of one parent.",
     "An import enters the layout of an object that several parents share in the layout of each parent that "
     "it takes. The object is counted from the layout that its own names in parent.",
     "LA and LC list LB, and the parent of LB is LA; A and C hold B",
     "Nothing needs it. Moving the object to a parent puts its layout in order."},
    {Rule::layoutDetached, error, always, "layout-detached",
     "The layout of a child has the layout of a parent as its parent.",
     "The layouts form a tree beside that of the objects. A child whose layout has no parent stays behind "
     "when the "
     "parent moves.",
     "B is a child of A, and the parent of its layout is NULL",
     "Write the parent's layout into parent, list the layout in its children, and count its location anew."},
    {Rule::layoutCleared, debris, always, "layout-cleared",
     "The layout of a child that is shared no more has the layout of a parent as its parent.",
     "Removing the sharing of an object empties parent of its layout when that was the layout of a parent "
     "that "
     "went. The object keeps its absolute location.",
     "an empty parent of the layout of B, after B was left to A alone",
     "Move the object to its parent once more: its layout is entered there."},
    {Rule::layoutParentLost, debris, always, "layout-parent-lost", "The parent of a layout is there.",
     "Deleting a compound removes its layout, which the layouts of its children name still. They count as "
     "detached.",
     "<parent>LA</parent> after A and its layout LA were deleted", cleanUp},
    {Rule::layoutChildLost, debris, always, "layout-child-lost", "The children of a layout are there.",
     "Deleting a child removes its layout, which the layout of its parent lists still. It is passed over.",
     "<children><item>LB</item></children> after B and its layout LB were deleted", cleanUp},
    {Rule::layoutLeft, debris, always, "layout-left",
     "A layout stands under the layout of an object that holds its object.",
     "An object that became a root, or that left one of the parents it is shared by, can keep its layout "
     "under "
     "that of the former parent. It goes on moving along with it.",
     "the layout of B has the parent LA, after B was made a root",
     "Move the object to a parent: that puts its layout in order. Or it may be left."},
    {Rule::layoutCycle, error, always, "layout-cycle", "No layout stands under itself.",
     "Placing one object of the cycle moves the others along, and their locations fall apart. Making a child "
     "a "
     "root, and then moving its former parent under it, leads here: see layout-left.",
     "LA lists LB, and LB lists LA",
     "Take the layout that is in the wrong place out of the children of the other."},
    {Rule::locationAbsolute, error, always, "location-absolute",
     "The absolute location of a layout is that of its parent times the relative one.",
     "Both stand in the study and are read by different questions, so both must tell the same place. The "
     "texts have "
     "six decimals, and each edit rounds; so 0.001 in length plus a hundred-thousandth of the distances at "
     "hand, "
     "and 0.0001 radians in angle, are let pass. Every layout is compared with its parent only, so the "
     "tolerance "
     "does not grow with depth.",
     "a layout at 1 under one at 10, and absolute at 12",
     "Set the location of the object once more, or write the product into NodeInfo/absoluteLocation."},
    {Rule::locationRoot, error, always, "location-root",
     "The relative and the absolute location of a layout without parent are the same.",
     "What stands under nothing is counted from the origin of the study. The tolerance is that of "
     "location-absolute.",
     "a root at 10, and absolute at 12", "Write the one location over the other."},
    {Rule::studyLists, error, always, "study-lists", "The children and the info of a study are in step.",
     "The info at a place belongs to the shortcut at the same place. When one list is longer, some object "
     "has no "
     "place in the study, or the place of another.",
     "three children and two infos", "Remove the items in excess, or add the missing info with its layout."},
    {Rule::infoUnlisted, error, always, "info-unlisted", "A study info stands in the info of a study.",
     "One that no study lists belongs to no shortcut, and nothing reaches it.",
     "a MarvekStudyInfo of no study", "Remove it with its layout, or list it at the place of its shortcut."},
    {Rule::infoLayout, error, always, "info-layout", "A study info has a layout.",
     "The layout of the info is where the object stands in the study.", "a MarvekStudyInfo without layout",
     "Add a PmStudyLayout and write its id into layout."},
    {Rule::shortcutParent, error, always, "shortcut-parent",
     "A shortcut names the study that lists it as its parent.",
     "From the shortcut one finds the study, and there the place; with another parent both fail.",
     "S lists the shortcut K, and the parent of K is empty", "Write the study that lists it into parent."},
    {Rule::shortcutTarget, error, always, "shortcut-target",
     "A shortcut that a study lists links to an object.", "A study shows what its shortcuts link to.",
     "<linkExternalID>P-7</linkExternalID>, and no object has the id P-7",
     "Remove the shortcut with its info and layout, or link it to an object."},
    {Rule::shortcutTwice, error, always, "shortcut-twice", "A study has one shortcut to an object.",
     "An object has one place in a study; of two shortcuts one is never asked, and it stays when the object "
     "is "
     "taken out. Moving to the study what stands there already makes a second one.",
     "the study lists two shortcuts with the same linkExternalID",
     "Remove one of the two with its info and layout."},
    {Rule::shortcutUnlisted, debris, always, "shortcut-unlisted",
     "A shortcut stands in the children of a study.",
     "Taking an object out of a study for this system alone leaves the shortcut behind, without info and "
     "layout.",
     "a PmShortcut that no study lists", cleanUp},
    {Rule::classUnknown, error, onDemand, "class-unknown", "The class of every object is known.",
     "An element name that the class types do not know may be a class of the host; its family cannot be "
     "checked.",
     "<Gripper>", "Make the class known, or correct the element name."},
    {Rule::layoutMissing, error, onDemand, "layout-missing", "Parts and resources have a layout.",
     "Without one an object has no place, and nothing can be put under it. Process assemblies have none.",
     "a PmCompoundPart without layout", "Add a PmLayout and write its id into layout."},
    {Rule::layoutNodeMissing, error, onDemand, "layout-node-missing",
     "The layout of a part or resource names it in node.",
     "Some questions go from the layout to the object, and end here.", "a PmLayout without node",
     "Write the id of the object that names the layout into node."},
    {Rule::referenceOther, error, onDemand, "reference-other",
     "References to what need not be in the study are there.",
     "Variants, mounted tools and collections may be known elsewhere. And an id may be that of an element "
     "within "
     "an object, a signal for example, which is no object of its own.",
     "<variant>VS-1</variant>, and no object has the id VS-1",
     "See whether the object was meant to come along."},
    {Rule::studySeveral, error, onDemand, "study-several", "A document holds one study.",
     "The last study object is the study; the others are carried along.", "two objects of the family Study",
     "Keep each study in a document of its own."},
};

constexpr bool inOrder() {
  for (std::size_t i = 0; i < std::size(rules); ++i)
    if (static_cast<std::size_t>(rules[i].rule) != i) return false;
  return std::size(rules) == ruleCount;
}
static_assert(inOrder());

}  // namespace

std::string_view severityName(Severity severity) { return severity == Severity::error ? "error" : "debris"; }

std::span<const CheckRule> checkRules() { return rules; }

const CheckRule& checkRule(Rule rule) { return rules[static_cast<std::size_t>(rule)]; }

const CheckRule* findCheckRule(std::string_view code) {
  for (const CheckRule& rule : rules)
    if (rule.code == code) return &rule;
  return nullptr;
}

}  // namespace zelstudy
