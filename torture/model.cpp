// Registry, finders, roots, study document and OUT document agree with a model that is written apart from the
// library, after random operations; a run that fails is cut down to the operations that it takes.

#include <algorithm>
#include <optional>

#include "OpenStudy.h"
#include "StudyModel.h"
#include "Torture.h"
#include "zel/ZelCollection.h"
#include "zel/ZelPhysical.h"
#include "zel/ZelVorLabel.h"
#include "zel/ZelVorStudy.h"

namespace torture {

namespace {

using Facts = std::map<std::string, std::string>;

struct Operation {
  unsigned what = 0;
  std::array<unsigned, 3> pick{};
};

std::string attribute(const IXMLDOMNode& element) {
  std::string_view id;
  element.getAttribute("ExternalId", id);
  return std::string(id);
}

std::string field(const IXMLDOMNode& element, std::string_view path) {
  IXMLDOMNode found;
  return element.selectSingleNode(path, found) ? found.text() : std::string();
}

std::vector<std::string> items(const IXMLDOMNode& element, const std::string& list) {
  IXMLDOMNodeList found;
  element.selectNodes(list + "/item", found);
  std::vector<std::string> texts;
  for (const IXMLDOMNode& each : found) texts.push_back(each.text());
  return texts;
}

std::string joined(const std::vector<std::string>& ids) {
  std::string text;
  for (const std::string& id : ids) text += ' ' + id;
  return text;
}

std::string numbers(const std::vector<std::string>& texts) {
  std::string text;
  for (const std::string& each : texts)
    text += (text.empty() ? "" : " ") + std::to_string(std::strtol(each.c_str(), nullptr, 10));
  return text;
}

template <class Visit>
void eachObject(const IXMLDOMNode& section, Visit visit) {
  for (IXMLDOMElement each = section.firstElementChild(); each; each = each.nextElementSibling()) visit(each);
}

// What the ids that the library makes stand for, in the model's words.
class Names {
 public:
  void learn(const IXMLDOMNode& element) {
    if (element.nodeName() == "PmLayout") names_[attribute(element)] = "layout of " + field(element, "node");
  }
  // Of an object that the study shows: its shortcut, and what belongs to that.
  void learnShown(const IXMLDOMDocument& document, const std::string& id, const std::string& shortcut) {
    IXMLDOMElement study, info;
    document.findByAttribute("ExternalId", StudyModel::studyId, study);
    const std::vector<std::string> shortcuts = items(study, "children"), infos = items(study, "info");
    const auto at = std::find(shortcuts.begin(), shortcuts.end(), shortcut) - shortcuts.begin();
    if (static_cast<std::size_t>(at) >= infos.size()) return;
    document.findByAttribute("ExternalId", infos[static_cast<std::size_t>(at)], info);
    names_[shortcut] = "shortcut to " + id;
    names_[attribute(info)] = "info of " + id;
    names_[field(info, "layout")] = "study layout of " + id;
  }
  void learnLayoutOf(const IXMLDOMDocument& document, const std::string& id) {
    IXMLDOMElement object;
    if (document.findByAttribute("ExternalId", id, object))
      names_[field(object, "layout")] = "layout of " + id;
  }
  std::string of(const std::string& id) const {
    const auto found = names_.find(id);
    return found == names_.end() ? id : found->second;
  }

 private:
  std::map<std::string, std::string> names_;
};

// The facts of StudyModel, as the library has them.
class Seen {
 public:
  Seen(fuzz::OpenStudy& study, Names& names) : study_(study), names_(names) {}

  Facts reopened() {
    std::vector<std::string> ids = roots();
    std::sort(ids.begin(), ids.end());
    facts_["roots"] = joined(ids);
    nodes();
    document();
    return facts_;
  }

  Facts picture() {
    reopened();
    facts_["roots"] = joined(roots());
    stream();
    return facts_;
  }

 private:
  std::vector<std::string> roots() const {
    ApiPmIdList roots;
    study_.wrapper().getRoots(roots);
    std::vector<std::string> ids;
    for (const ApiPmId& id : roots) ids.push_back(id.asString());
    return ids;
  }

  void nodes() {
    ZelNodeList nodes;
    study_.wrapper().getAllNodes(nodes);
    for (ZelNode* node : nodes) {
      ApiPmId id, parent, shortcut;
      node->getExternalId(id);
      const std::string text = id.asString();
      facts_["type of " + text] = std::to_string(node->type());
      const bool hasParent = study_.wrapper().relevantParentFinder().findRelevantParent(id, parent);
      facts_["parent of " + text] = hasParent ? parent.asString() : "-";
      if (study_.wrapper().findShortcut(id, shortcut)) finder_[text] = shortcut.asString();
      if (study_.wrapper().getZelNodeFromId(id) != node) facts_["another node is found for " + text];
    }
  }

  void document() {
    IXMLDOMNode section;
    study_.document().selectSingleNode("Data/Objects", section);
    std::map<std::string, std::string> targets, places, layoutOfInfo;
    IXMLDOMNode study;
    eachObject(section, [&](const IXMLDOMElement& element) {
      names_.learn(element);
      const std::string id = attribute(element);
      if (element.nodeName() == "PmShortcut") targets[id] = field(element, "linkExternalID");
      if (element.nodeName() == "PmStudyLayout") places[id] = numbers(items(element, "location"));
      if (element.nodeName() == "MarvekStudyInfo") layoutOfInfo[id] = field(element, "layout");
      if (element.nodeName() == "MarvekStudy") study = element;
    });
    eachObject(section, [&](const IXMLDOMElement& element) {
      const std::string id = attribute(element);
      if (element.nodeName() == "PmLayout") {
        layout(element);
      } else if (element.nodeName().substr(0, 10) != "PmShortcut" && element.nodeName() != "PmStudyLayout" &&
                 element.nodeName() != "MarvekStudyInfo") {
        standing_.insert(id);
        std::vector<std::string> children = items(element, "children");
        if (element == study)
          for (std::string& each : children) each = targets[each];
        facts_["object " + id] = field(element, "name") + " | " + field(element, "comment") + " |" +
                                 joined(items(element, "parents")) + " |" + joined(children) + " |" +
                                 joined(items(element, "labels"));
      }
    });
    const std::vector<std::string> shortcuts = items(study, "children"), infos = items(study, "info");
    if (shortcuts.size() != infos.size() || targets.size() != infos.size() || places.size() != infos.size() ||
        layoutOfInfo.size() != infos.size() || finder_.size() != infos.size()) {
      facts_["shortcuts, infos, layouts and finder differ in number"];
      return;
    }
    for (std::size_t i = 0; i < shortcuts.size(); ++i) {
      const std::string& shown = targets[shortcuts[i]];
      facts_["shown " + shown] = places[layoutOfInfo[infos[i]]];
      if (finder_[shown] != shortcuts[i]) facts_["the finder has another shortcut for " + shown];
    }
  }

  void layout(const IXMLDOMElement& element) {
    std::vector<std::string> absolute;
    for (const char* name : {"x", "y", "z"})
      absolute.push_back(field(element, std::string("NodeInfo/absoluteLocation/") + name));
    std::string parent = field(element, "parent");
    parent = parent == "NULL" ? "" : names_.of(parent);
    if (parent.rfind("layout of ", 0) == 0) parent.erase(0, 10);
    facts_["layout of " + field(element, "node")] =
        numbers(items(element, "location")) + " | " + numbers(absolute) + " | " + parent;
  }

  void stream() {
    IXMLDOMNodeList updated, deleted;
    study_.out().selectNodes("Data/Objects[@command='DG_UPDATE_STREAM_COMMAND']/*", updated);
    study_.out().selectNodes("Data/Objects[@command='DG_DELETE_STREAM_COMMAND']/*", deleted);
    for (const IXMLDOMNode& element : updated) names_.learn(element);
    for (const IXMLDOMNode& element : updated) {
      const std::string id = attribute(element);
      std::string& fact = facts_["updated " + names_.of(id)];
      if (standing_.count(id) == 0) continue;
      IXMLDOMNode name;
      fact = (element.selectSingleNode("name", name) ? name.text() : "-") + " |" +
             joined(items(element, "parents")) + " |" +
             (id == StudyModel::studyId ? "" : joined(items(element, "children"))) + " |" +
             joined(items(element, "labels"));
    }
    for (const IXMLDOMNode& element : deleted) facts_["deleted " + names_.of(attribute(element))];
  }

  fuzz::OpenStudy& study_;
  Names& names_;
  Facts facts_;
  std::map<std::string, std::string> finder_;
  std::set<std::string> standing_;
};

std::string quoted(const std::string& text) { return '"' + text + '"'; }

std::string difference(const Facts& is, const Facts& should) {
  for (const auto& [fact, value] : should) {
    const auto found = is.find(fact);
    if (found == is.end()) return std::string("no ").append(fact).append(", which is ").append(quoted(value));
    if (found->second != value)
      return std::string(fact)
          .append(" is ")
          .append(quoted(found->second))
          .append(", not ")
          .append(quoted(value));
  }
  for (const auto& [fact, value] : is)
    if (should.count(fact) == 0)
      return std::string("there is ").append(fact).append(": ").append(quoted(value));
  return {};
}

IXMLDOMDocument emptyStudy() {
  IXMLDOMDocument document = IXMLDOMDocument::create();
  document.loadXML(
      "<Data><Objects><MarvekStudy ExternalId=\"S\"><name>Line</name><children/><info/><NodeInfo>"
      "<family>Study</family></NodeInfo></MarvekStudy></Objects></Data>");
  return document;
}

// One study, and the model beside it.
class Session {
 public:
  explicit Session(bool planted) : model_(planted), study_(emptyStudy()) {}

  // What was wrong, or nothing. The two are compared after every `batch` operations.
  std::string run(const std::vector<Operation>& operations, std::size_t batch) {
    for (std::size_t i = 0; i < operations.size(); ++i) {
      const std::size_t said = log_.size();
      const bool asExpected = apply(operations[i]);
      // What comes and goes between two comparisons has to be known too.
      if (log_.size() > said) names_.learnLayoutOf(study_.document(), "n" + std::to_string(said));
      if (!asExpected) return "the answer to \"" + log_.back() + "\" is not the model's";
      if ((i + 1) % batch != 0 && i + 1 != operations.size()) continue;
      std::string wrong = difference(Seen(study_, names_).picture(), model_.picture());
      if (!wrong.empty()) return wrong;
    }
    const IXMLDOMDocument again = IXMLDOMDocument::create();
    if (!again.loadXML(study_.saved())) return "the saved study cannot be read";
    std::string wrong;
    {
      fuzz::OpenStudy reopened(again);
      wrong = difference(Seen(reopened, names_).reopened(), model_.reopened());
    }
    study_.enter();
    return wrong.empty() ? wrong : "reopened: " + wrong;
  }

  const std::vector<std::string>& log() const { return log_; }

 private:
  static constexpr int types[] = {StudyModel::part, StudyModel::resource, StudyModel::compoundPart,
                                  StudyModel::compoundResource};

  // The first id from the picked one on that fits.
  template <class Fits>
  std::optional<std::string> any(unsigned pick, Fits fits) const {
    const std::vector<std::string>& ids = model_.ids();
    for (std::size_t i = 0; i < ids.size(); ++i)
      if (const std::string& id = ids[(pick + i) % ids.size()]; fits(id)) return id;
    return std::nullopt;
  }
  ZelNode* node(const std::string& id) { return study_.wrapper().getZelNodeFromId(ApiPmId(id)); }
  void note(std::initializer_list<std::string> words) {
    std::string line;
    for (const std::string& word : words) line += (line.empty() ? "" : " ") + word;
    log_.push_back(line);
  }

  // False when library and model answer differently. What cannot be done here is passed over.
  bool apply(const Operation& operation) {
    const auto isObject = [&](const std::string& id) {
      return model_.typeOf(id) != StudyModel::study && model_.typeOf(id) != StudyModel::label;
    };
    const std::optional<std::string> object = any(operation.pick[0], isObject);
    const std::optional<std::string> collection =
        any(operation.pick[1], [&](const std::string& id) { return model_.isCollection(id); });
    const std::string fresh = "n" + std::to_string(log_.size());
    const int type = types[operation.pick[2] % 4];
    ZelXmlWrapper& wrapper = study_.wrapper();
    switch (operation.what % 12) {
      case 0:
        note({"createRoot", std::to_string(type), fresh});
        model_.createRoot(type, fresh);
        return wrapper.createRoot(static_cast<ZelNodeType>(type), ApiPmId(fresh)) != nullptr;
      case 1:
        if (!collection) return true;
        note({"createChild", *collection, std::to_string(type), fresh});
        model_.createChild(*collection, type, fresh);
        return zelQuery<ZelCollection>(node(*collection))
                   ->createChild(static_cast<ZelNodeType>(type), ApiPmId(fresh)) != nullptr;
      case 2:
      case 3:
        if (!collection || !object) return true;
        note({"moveChild", *collection, *object});
        return zelQuery<ZelCollection>(node(*collection))->moveChild(node(*object)) ==
               model_.moveChild(*collection, *object);
      case 4: {
        if (!object || model_.isShown(*object)) return true;
        note({"show", *object});
        const bool done = zelQuery<ZelCollection>(node(StudyModel::studyId))->moveChild(node(*object));
        ApiPmId shortcut;
        if (done && wrapper.findShortcut(ApiPmId(*object), shortcut))
          names_.learnShown(study_.document(), *object, shortcut.asString());
        return done == model_.show(*object);
      }
      case 5:
        if (!object) return true;
        note({"hide", *object});
        return zelQuery<ZelVorStudy>(node(StudyModel::studyId))->removeNodeShortcut(ApiPmId(*object)) ==
               model_.hide(*object);
      case 6:
        if (!object) return true;
        note({"makeRoot", *object});
        return wrapper.addRootFromOtherParent(node(*object)) == model_.makeRoot(*object);
      case 7: {
        const std::optional<std::string> id =
            any(operation.pick[0], [&](const std::string& each) { return each != StudyModel::studyId; });
        if (!id) return true;
        note({"remove", *id});
        ApiPmId removed(*id);
        return wrapper.deleteNode(removed) == model_.remove(*id);
      }
      case 8: {
        const std::optional<std::string> id = any(operation.pick[0], [](const std::string&) { return true; });
        const std::string text = "<" + fresh + "> & \"" + std::to_string(operation.pick[1]);
        if (operation.pick[2] % 2 == 0) {
          note({"setName", *id, text});
          return node(*id)->setName(text) == model_.setName(*id, text);
        }
        note({"setDescription", *id, text});
        return node(*id)->setDescription(text) == model_.setDescription(*id, text);
      }
      case 9: {
        if (!object) return true;
        const auto length = [&](unsigned pick) { return static_cast<long>(pick % 2001) - 1000; };
        const StudyModel::Point at{length(operation.pick[1]), length(operation.pick[2]),
                                   length(operation.what)};
        note({"place", *object, std::to_string(at[0]), std::to_string(at[1]), std::to_string(at[2])});
        const RTTran3D place({double(at[0]), double(at[1]), double(at[2])}, {0, 0, 0});
        return zelQuery<ZelPhysical>(node(*object))->setLocation(place) == model_.place(*object, at);
      }
      case 10: {
        if (!object) return true;
        note({"addLabel", *object, fresh});
        model_.addLabel(*object, fresh, fresh);
        auto* labelled = zelQuery<ZelVorLabelsContainer>(node(*object));
        const ApiPmId id(fresh);
        return labelled->addLabel(id, {}) &&
               labelled->updateLabel(id, {"name of " + fresh, RTTran3D::unit, fresh, "a", ApiPmId(*object)});
      }
      default: {
        const std::optional<std::string> id = any(operation.pick[0], [](const std::string&) { return true; });
        note({"reorder", *id});
        model_.reorder(*id);
        ApiPmIdList order{ApiPmId(*id)};
        return wrapper.reorderRoots(order);
      }
    }
  }

  StudyModel model_;
  fuzz::OpenStudy study_;
  Names names_;
  std::vector<std::string> log_;
};

std::vector<Operation> randomOperations(std::uint64_t seed, std::size_t count) {
  std::mt19937_64 random(seed);
  std::vector<Operation> operations(count);
  for (Operation& each : operations) {
    each.what = static_cast<unsigned>(random() >> 40);
    for (unsigned& pick : each.pick) pick = static_cast<unsigned>(random() >> 40);
  }
  return operations;
}

// The fewest operations that still fail, as far as leaving stretches of them out leads.
std::string shrunk(std::vector<Operation> operations, std::size_t batch, bool planted) {
  int tries = 500;
  const auto fails = [&](const std::vector<Operation>& of) {
    return tries-- > 0 && !Session(planted).run(of, batch).empty();
  };
  if (fails(operations) && !Session(planted).run(operations, 1).empty()) batch = 1;
  for (std::size_t size = operations.size() / 2; size > 0; size /= 2) {
    for (std::size_t at = 0; at + size <= operations.size();) {
      std::vector<Operation> fewer = operations;
      const auto from = fewer.begin() + static_cast<std::ptrdiff_t>(at);
      fewer.erase(from, from + static_cast<std::ptrdiff_t>(size));
      if (fails(fewer)) {
        operations = std::move(fewer);
      } else {
        at += size;
      }
    }
  }
  Session session(planted);
  std::string told = session.run(operations, batch);
  for (const std::string& line : session.log()) told += "\n           " + line;
  return told;
}

Result besideModel(const Run& run) {
  constexpr std::size_t operationsPerRun = 500;
  constexpr std::size_t batch = 50;
  Result result;
  for (std::uint64_t seed = run.seed; result.count < run.of(100'000, 5'000); ++seed) {
    begin(seed, 300);
    const std::vector<Operation> operations = randomOperations(seed, operationsPerRun);
    const std::string wrong = Session(run.planted).run(operations, batch);
    result.count += operationsPerRun;
    if (!wrong.empty())
      return {result.count, "seed " + std::to_string(seed) + ": " + wrong +
                                "\n         shrunk: " + shrunk(operations, batch, run.planted)};
  }
  return result;
}

}  // namespace

std::vector<Figure> modelFigures() {
  return {{6, "operations on a study beside a plain model", "the model leaves moved objects among the roots",
           besideModel}};
}

}  // namespace torture
