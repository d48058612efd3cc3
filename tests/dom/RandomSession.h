#pragma once

#include <algorithm>
#include <array>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "dom/IXMLDOMDocument.h"

// Random calls on document trees beside a plain model of them.
namespace domtest {

// What a tree is, without any sharing or counting: who stands where, and which nodes a test holds.
struct Model {
  int type = NODE_ELEMENT;
  std::string name;  // or the text; no two nodes of one run have the same
  Model* parent = nullptr;
  Model* owner = nullptr;  // of a root that is no document
  std::vector<Model*> attributes;
  std::vector<Model*> children;
  int handles = 0;

  Model* root() { return parent != nullptr ? parent->root() : this; }
  Model* document() { return root()->type == NODE_DOCUMENT ? root() : root()->owner; }
  template <class Visit>
  void each(Visit visit) {
    visit(this);
    for (Model* a : attributes) visit(a);
    for (Model* c : children) c->each(visit);
  }
  bool held() {
    bool any = false;
    each([&](Model* m) { any = any || m->handles > 0; });
    return any;
  }
  std::string xml() const {
    std::string out;
    if (type == NODE_TEXT) return name;
    if (type == NODE_ATTRIBUTE) return name + "=\"v\"";
    for (const Model* c : children) out += c->xml();
    if (type == NODE_DOCUMENT) return out;
    std::string start = std::string("<").append(name);
    for (const Model* a : attributes) start.append(" ").append(a->xml());
    if (out.empty()) return start.append("/>");
    return start.append(">").append(out).append("</").append(name).append(">");
  }
  void cut() {
    if (parent == nullptr) return;
    owner = document();
    std::erase(type == NODE_ATTRIBUTE ? parent->attributes : parent->children, this);
    parent = nullptr;
  }
};

// One run: random calls on random handles, done to the model alike.
class RandomSession {
 public:
  // With `forgets` the model misses removals.
  explicit RandomSession(std::mt19937::result_type seed, bool forgets = false)
      : random_(seed), forgets_(forgets), before_(IXMLDOMDocument::livingNodes()) {}

  // So many calls, then all handles go. Answers what was wrong first, or nothing.
  std::string steps(int count) {
    for (int i = 0; i < count && failure_.empty(); ++i) {
      step();
      check();
    }
    while (!held_.empty() && failure_.empty()) {
      drop();
      check();
    }
    return failure_;
  }

 private:
  struct Held {
    IXMLDOMNode node;
    Model* model;
  };

  // Keeps the first thing that is wrong.
  template <class A, class B>
  void expect(const char* what, const A& is, const B& should) {
    if (is == should || !failure_.empty()) return;
    std::ostringstream text;
    text << what << " is " << is << ", not " << should;
    failure_ = text.str();
  }

  std::size_t below(std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n - 1)(random_); }
  Held any() { return held_[below(held_.size())]; }
  // The model counts a handle only while it stands in held_: a handle that a step makes for itself is gone
  // by the time of the check.
  void hold(const IXMLDOMNode& node, Model* model) {
    expect("a handle", static_cast<bool>(node), true);
    ++model->handles;
    held_.push_back({node, model});
  }
  Model* make(int type, Model* owner) {
    auto& made = all_.emplace_back(std::make_unique<Model>());
    made->type = type;
    made->name.append("n").append(std::to_string(all_.size()));
    made->owner = owner;
    return made.get();
  }
  Model* copy(const Model* from, Model* owner) {
    auto& made = all_.emplace_back(std::make_unique<Model>(*from));
    Model* const to = made.get();
    to->handles = 0;
    to->owner = owner;
    to->parent = nullptr;
    for (auto* list : {&to->attributes, &to->children})
      for (Model*& m : *list) {
        m = copy(m, nullptr);
        m->parent = to;
      }
    return to;
  }
  void drop() {
    const std::size_t at = below(held_.size());
    --held_[at].model->handles;
    held_[at] = held_.back();
    held_.pop_back();
  }

  void step() {
    const int what = std::array{0, 0, 0, 1, 1, 1, 2, 3, 4, 5, 6, 7}[below(12)];
    if (held_.empty() || (what == 0 && below(4) == 0)) {
      Model* const model = make(NODE_DOCUMENT, nullptr);
      hold(IXMLDOMDocument::create(), model);
      return;
    }
    const Held a = any(), b = any();
    switch (held_.size() > 40 ? 7 : what) {
      case 0: {
        const int type = std::array{NODE_ELEMENT, NODE_TEXT, NODE_ATTRIBUTE}[below(3)];
        Model* const model = make(type, a.model->document());
        const IXMLDOMNode node = a.node.ownerDocument().createNode(type, model->name);
        expect("putText",
               node.putText(type == NODE_TEXT        ? model->name
                            : type == NODE_ATTRIBUTE ? "v"
                                                     : ""),
               true);
        hold(node, model);
        break;
      }
      case 1:
        append(a, b);
        break;
      case 2:
        expect("removeChild", a.node.parentNode().removeChild(a.node),
               a.model->parent && a.model->type != NODE_ATTRIBUTE);
        if (a.model->type != NODE_ATTRIBUTE && !forgets_) a.model->cut();
        break;
      case 3:
        if (a.model->type == NODE_DOCUMENT) {
          expect("copy of a document", static_cast<bool>(a.node.cloneNode(true)), false);
        } else {
          hold(a.node.cloneNode(true), copy(a.model, a.model->document()));
        }
        break;
      case 4: {
        const bool can = a.model->type == NODE_ELEMENT && b.model->type == NODE_ATTRIBUTE &&
                         (!b.model->parent || b.model->parent == a.model);
        expect("setAttributeNode", a.node.setAttributeNode(b.node), can);
        if (!can || b.model->parent == a.model) break;
        // In the place of the one of its name, which a clone may have left there.
        auto& list = a.model->attributes;
        const auto old =
            std::find_if(list.begin(), list.end(), [&](Model* m) { return m->name == b.model->name; });
        const auto place = old - list.begin();
        if (old != list.end()) (*old)->cut();
        list.insert(list.begin() + place, b.model);
        b.model->parent = a.model;
        break;
      }
      case 5:
        if (!a.model->attributes.empty()) {
          Model* const attribute = a.model->attributes[below(a.model->attributes.size())];
          if (below(2) == 0) {
            hold(a.node.getNamedItem(attribute->name), attribute);
          } else {
            expect("removeAttribute", a.node.removeAttribute(attribute->name), true);
            attribute->cut();
          }
        }
        break;
      case 6:
        if (a.model->parent != nullptr && a.model->type != NODE_ATTRIBUTE && below(2) == 0) {
          hold(a.node.parentNode(), a.model->parent);
        } else if (!a.model->children.empty()) {
          const std::size_t at = below(a.model->children.size());
          hold(a.node.childNodes().item(static_cast<long>(at)), a.model->children[at]);
        } else {
          hold(a.node.ownerDocument(), a.model->document());
        }
        break;
      default:
        drop();
    }
  }

  void append(const Held& to, const Held& child) {
    const auto kind = [](const Held& h) { return h.model->type; };
    bool can = (kind(to) == NODE_ELEMENT || kind(to) == NODE_DOCUMENT) &&
               (kind(child) == NODE_ELEMENT || (kind(child) == NODE_TEXT && kind(to) == NODE_ELEMENT));
    for (Model* up = to.model; up != nullptr; up = up->parent) can = can && up != child.model;
    if (kind(to) == NODE_DOCUMENT) {
      for (Model* other : to.model->children) can = can && other == child.model;
    }
    expect("appendChild", to.node.appendChild(child.node), can);
    if (!can) return;
    child.model->cut();
    child.model->parent = to.model;
    to.model->children.push_back(child.model);
  }

  // Which nodes have to live follows from the rule alone: all of a tree that is held, and the documents that
  // own such a tree.
  void check() {
    std::size_t expected = 0;
    std::vector<Model*> owners;
    for (const auto& m : all_) {
      if (m->parent != nullptr || m->type == NODE_DOCUMENT || !m->held()) continue;
      m->each([&](Model*) { ++expected; });
      owners.push_back(m->owner);
    }
    for (const auto& m : all_) {
      if (m->type != NODE_DOCUMENT) continue;
      if (m->held() || std::find(owners.begin(), owners.end(), m.get()) != owners.end()) {
        m->each([&](Model*) { ++expected; });
      }
    }
    expect("count of living nodes", IXMLDOMDocument::livingNodes() - before_, expected);
    if (held_.empty()) return;
    const Held one = any();
    expect("a tree", one.node.xml(), one.model->xml());
    expect("a document", one.node.ownerDocument().xml(), one.model->document()->xml());
  }

  std::mt19937 random_;
  bool forgets_;
  std::string failure_;
  std::size_t before_;
  std::vector<std::unique_ptr<Model>> all_;
  std::vector<Held> held_;
};

}  // namespace domtest
