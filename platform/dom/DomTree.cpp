#include "DomTree.h"

#include <new>
#include <utility>

#include "DomIndex.h"
#include "DomLists.h"
#include "DomNames.h"
#include "rt/RTPool.h"
#include "rw/RWFlatTable.h"

namespace dom {

namespace {

std::size_t living = 0;

// The text nodes of elements that are shown, by element. Never destroyed, like the names.
RWFlatTable<Node*>& shownTexts() {
  static auto* const texts = new RWFlatTable<Node*>;
  return *texts;
}

Node* shownText(const Node* element) noexcept { return shownTexts().find(rwSpread(element))->value; }

Node* takeShownText(Node* element) noexcept {
  auto* const slot = shownTexts().find(rwSpread(element));
  Node* const text = slot->value;
  shownTexts().remove(slot);
  element->shown = false;
  return text;
}

// A shown element, made one with a child.
void settle(Node* element) noexcept {
  if (!element->shown) return;
  Node* const text = takeShownText(element);
  std::memset(element->slot, 0, sizeof element->slot);
  element->length = 0;
  element->setFirst(text);
}

void freeNode(Node* node) noexcept {
  if (node->shown) freeNode(takeShownText(node));
  if (node->known) lists().forget(node);
  if (node->length > Node::inlineText) RTPool::free(const_cast<char*>(node->ownText().data()), node->length);
  --living;
  if (node->isElement()) {
    RTPool::free(node, sizeof(ElementNode));
  } else if (node->type == NODE_DOCUMENT) {
    delete asDocument(node);
  } else {
    RTPool::free(node, sizeof(Node));
  }
}

void unlink(Node*& first, Node* node) noexcept {
  if (node == first) {
    first = node->next;
  } else {
    node->prev->next = node->next;
  }
  if (node->next != nullptr) {
    node->next->prev = node->prev;
  } else if (first != nullptr) {
    first->prev = node->prev;
  }
}

void link(Node*& first, Node* parent, Node* node) noexcept {
  node->parent = parent;
  node->next = nullptr;
  if (first == nullptr) {
    node->prev = node;
    first = node;
  } else {
    node->prev = first->prev;
    first->prev->next = node;
    first->prev = node;
  }
}

std::size_t held(const Node* node) noexcept { return node->refs != 0 ? 1 : 0; }

std::size_t heldIn(const Node* top) noexcept {
  std::size_t count = 0;
  for (const Node* node = top; node != nullptr; node = following(node, top)) {
    count += held(node);
    if (node->shown) count += held(shownText(node));
    for (const Node* a = firstAttribute(node); a != nullptr; a = a->next) count += held(a);
  }
  return count;
}

std::size_t& heldCount(Node* root) noexcept {
  return root->type == NODE_DOCUMENT ? asDocument(root)->heldNodes : root->treeRefs;
}

// Takes a linked node out of its tree and makes it a detached root, indexes left and handles counted. The
// former tree may be without handles afterwards: the caller looks.
void cut(Node* node) {
  Node* const parent = node->parent;
  settle(parent);
  Node* const root = rootOf(parent);
  DocumentNode* const document = root->type == NODE_DOCUMENT ? asDocument(root) : root->owner;
  Indexes* const indexes = root->type == NODE_DOCUMENT ? document->indexes.get() : nullptr;
  Lists::Known* known = nullptr;
  if (node->type == NODE_ATTRIBUTE) {
    if (indexes != nullptr) indexes->leaveAttribute(node);
    unlink(asElement(parent)->attributes, node);
  } else {
    if (indexes != nullptr) {
      indexes->leaveTree(node);
      indexes->leaveContent(parent);
    }
    known = lists().of(parent);  // not before: the indexes may ask for an order
    Node* first = parent->first();
    unlink(first, node);
    parent->setFirst(first);
    if (indexes != nullptr) indexes->enterContent(parent);
  }
  const std::size_t count = heldIn(node);
  heldCount(root) -= count;
  node->parent = nullptr;
  node->owner = document;
  node->treeRefs = count;
  ++document->detachedTrees;
  touch(parent);
  lists().removed(known, node);
}

// What `cut` left behind or an emptied handle count: frees it when nobody holds it.
void dropIfUnheld(Node* root) noexcept {
  if (root->type == NODE_DOCUMENT) {
    freeIfUnused(asDocument(root));
    return;
  }
  if (root->treeRefs != 0) return;
  DocumentNode* const owner = root->owner;
  freeTree(root);
  --owner->detachedTrees;
  freeIfUnused(owner);
}

// Before a detached root is linked into the tree of `root`: its handles are counted there.
DocumentNode* giveUpRoot(Node* node, Node* root) noexcept {
  DocumentNode* const former = node->owner;
  heldCount(root) += node->treeRefs;
  --former->detachedTrees;
  return former;
}

}  // namespace

DocumentNode::DocumentNode() noexcept : Node(NODE_DOCUMENT, nameDocument) {}
DocumentNode::~DocumentNode() = default;

std::size_t livingNodes() noexcept { return living; }

Node* newNode(int type, NameId name) {
  Node* node;
  if (type == NODE_ELEMENT) {
    node = new (RTPool::allocate(sizeof(ElementNode))) ElementNode(name);
  } else {
    node = new (RTPool::allocate(sizeof(Node))) Node(type, name);
  }
  ++living;
  return node;
}

DocumentNode* newDocument() {
  auto* const document = new DocumentNode;
  ++living;
  return document;
}

Node* adopt(Node* fresh, DocumentNode* owner) noexcept {
  fresh->owner = owner;
  fresh->treeRefs = 0;
  ++owner->detachedTrees;
  return fresh;
}

Node* rootOf(Node* node) noexcept {
  std::uint64_t levels = 0;
  for (; node->parent != nullptr; node = node->parent) ++levels;
  work.levelsClimbed += levels;
  return node;
}

DocumentNode* documentOf(Node* node) noexcept {
  Node* const root = rootOf(node);
  return root->type == NODE_DOCUMENT ? asDocument(root) : root->owner;
}

DocumentNode* homeOf(Node* node) noexcept {
  Node* const root = rootOf(node);
  return root->type == NODE_DOCUMENT ? asDocument(root) : nullptr;
}

Node* findAttribute(const Node* element, std::string_view name) noexcept {
  // A few names are compared as texts, more of them by their number.
  constexpr int few = 4;
  Node* attribute = firstAttribute(element);
  for (int i = 0; attribute != nullptr && i < few; ++i, attribute = attribute->next) {
    if (nameOf(attribute->name) == name) return attribute;
  }
  return attribute != nullptr ? findAttribute(element, findName(name)) : nullptr;
}

Node* findAttribute(const Node* element, NameId name) noexcept {
  Node* attribute = firstAttribute(element);
  while (attribute != nullptr && attribute->name != name) attribute = attribute->next;
  return attribute;
}

Node* followingOver(const Node* node, const Node* top) noexcept {
  while (node != top) {
    if (node->next != nullptr) return node->next;
    node = node->parent;
  }
  return nullptr;
}

Node* following(const Node* node, const Node* top) noexcept {
  Node* const child = node->takesChildren() ? node->first() : nullptr;
  return child != nullptr ? child : followingOver(node, top);
}

int levelOf(const Node* node) noexcept {
  int level = 0;
  for (; node != nullptr; node = node->parent) level += node->isElement() ? 1 : 0;
  return level;
}

int heightOf(const Node* top) noexcept {
  int level = top->isElement() ? 1 : 0;
  int deepest = level;
  for (const Node* node = top;;) {
    if (const Node* child = node->takesChildren() ? node->first() : nullptr) {
      node = child;
      if (++level > deepest && node->isElement()) deepest = level;
      continue;
    }
    while (node != top && node->next == nullptr) {
      node = node->parent;
      --level;
    }
    if (node == top) return deepest;
    node = node->next;
    if (level > deepest && node->isElement()) deepest = level;
  }
}

bool before(const Node* a, const Node* b) {
  const auto depth = [](const Node* node) {
    int count = 0;
    for (; node->parent != nullptr; node = node->parent) ++count;
    return count;
  };
  int depthA = depth(a);
  int depthB = depth(b);
  const bool shallower = depthA < depthB;
  for (; depthA > depthB; --depthA) a = a->parent;
  for (; depthB > depthA; --depthB) b = b->parent;
  if (a == b) return shallower;
  for (; a->parent != b->parent; a = a->parent) b = b->parent;
  // Two siblings: a walk from both at once finds those that are near to each other or to the end.
  constexpr int shortWalk = 32;
  const Node* nextA = a;
  const Node* nextB = b;
  for (int i = 0; i < shortWalk; ++i) {
    ++work.nodesVisited;
    nextA = nextA->next;
    nextB = nextB->next;
    if (nextA == b || nextB == nullptr) return true;
    if (nextB == a || nextA == nullptr) return false;
  }
  return lists().before(a->parent, a, b);
}

std::string textOf(const Node* node) {
  std::string buffer;
  const std::string_view text = textOf(node, buffer);
  return text.data() == buffer.data() ? std::move(buffer) : std::string(text);
}

std::string_view joinedText(const Node* node, std::string& buffer) {
  const Node* const first = node->first();
  if (first == nullptr) return {};
  if (first->isText() && first->next == nullptr) return first->ownText();
  buffer.clear();
  for (const Node* n = first; n != nullptr; n = following(n, node)) {
    if (n->isText() || n->isElement()) buffer += n->ownText();
  }
  return buffer;
}

bool textEquals(const Node* node, std::string_view text) noexcept {
  if (!node->takesChildren() || node->length != 0) return node->ownText() == text;
  for (const Node* n = following(node, node); n != nullptr; n = following(n, node)) {
    if (!(n->isText() || n->isElement())) continue;
    const std::string_view piece = n->ownText();
    if (!text.starts_with(piece)) return false;
    text.remove_prefix(piece.size());
  }
  return text.empty();
}

namespace {

// Without what is below them.
bool alike(const Node* a, const Node* b) noexcept {
  if (a->type != b->type || a->name != b->name) return false;
  if (!a->takesChildren()) return a->ownText() == b->ownText();
  const Node* one = firstAttribute(a);
  const Node* other = firstAttribute(b);
  for (; one != nullptr && other != nullptr; one = one->next, other = other->next) {
    if (one->name != other->name || one->ownText() != other->ownText()) return false;
  }
  return one == nullptr && other == nullptr;
}

// Of two elements one of which holds its text itself.
bool sameText(const Node* a, const Node* b) noexcept {
  if (a->length == 0) std::swap(a, b);
  if (b->length != 0) return a->ownText() == b->ownText();
  const Node* const text = b->first();
  return text != nullptr && text->type == NODE_TEXT && text->next == nullptr &&
         text->ownText() == a->ownText();
}

}  // namespace

bool equalTrees(const Node* a, const Node* b) noexcept {
  const Node* const top = a;
  for (;;) {
    if (!alike(a, b)) return false;
    const Node* nextA = nullptr;
    const Node* nextB = nullptr;
    if (a->takesChildren()) {
      if (a->length != 0 || b->length != 0) {
        if (!sameText(a, b)) return false;
      } else {
        nextA = a->first();
        nextB = b->first();
      }
    }
    while (nextA == nullptr || nextB == nullptr) {
      if (nextA != nextB) return false;  // one has more than the other
      if (a == top) return true;
      nextA = a->next;
      nextB = b->next;
      if (nextA == nullptr && nextB == nullptr) {
        a = a->parent;
        b = b->parent;
      }
    }
    a = nextA;
    b = nextB;
  }
}

void initText(Node* node, std::string_view text) {
  node->length = static_cast<std::uint32_t>(text.size());
  if (text.size() <= Node::inlineText) {
    if (!text.empty()) std::memcpy(node->slot, text.data(), text.size());
    return;
  }
  void* const kept = RTPool::allocate(text.size());
  std::memcpy(kept, text.data(), text.size());
  std::memcpy(node->slot, &kept, sizeof kept);
}

void setOwnText(Node* node, std::string_view text) {
  // The new text may be a piece of the old one: that is freed last.
  const bool pooled = text.size() > Node::inlineText;
  char* kept = nullptr;
  if (pooled) {
    kept = static_cast<char*>(RTPool::allocate(text.size()));
    std::memcpy(kept, text.data(), text.size());
  }
  char* const old = node->length > Node::inlineText ? const_cast<char*>(node->ownText().data()) : nullptr;
  const std::uint32_t oldLength = node->length;
  unsigned char slot[Node::inlineText] = {};
  if (pooled) {
    std::memcpy(slot, &kept, sizeof kept);
  } else if (!text.empty()) {
    std::memcpy(slot, text.data(), text.size());
  }
  std::memcpy(node->slot, slot, sizeof slot);
  node->length = static_cast<std::uint32_t>(text.size());
  if (old != nullptr) RTPool::free(old, oldLength);
}

void linkLast(Node* parent, Node* child) noexcept {
  Node* first = parent->first();
  link(first, parent, child);
  parent->setFirst(first);
}

void linkFirst(Node* parent, Node* child) noexcept {
  Node* const first = parent->first();
  child->parent = parent;
  child->next = first;
  child->prev = first != nullptr ? first->prev : child;
  if (first != nullptr) first->prev = child;
  parent->setFirst(child);
}

void linkAttribute(Node* element, Node* attribute) noexcept {
  link(asElement(element)->attributes, element, attribute);
}

void materialise(Node* element) {
  if (!element->isElement() || element->length == 0) return;
  if (element->shown) {
    settle(element);
    return;
  }
  Node* const text = newNode(NODE_TEXT, nameText);
  std::memcpy(text->slot, element->slot, sizeof text->slot);
  text->length = element->length;
  std::memset(element->slot, 0, sizeof element->slot);
  element->length = 0;
  linkLast(element, text);
}

void show(Node* element) {
  if (!element->isElement() || element->shown) return;
  if (element->length == 0 || element->length > Node::inlineText) {
    materialise(element);  // bytes in the pool stay where they are
    return;
  }
  Node* const text = newNode(NODE_TEXT, nameText);
  initText(text, element->ownText());
  Node* none = nullptr;
  link(none, element, text);
  shownTexts().add(rwSpread(element), text);
  element->shown = true;
}

Node* firstShown(const Node* parent) noexcept { return parent->shown ? shownText(parent) : parent->first(); }

std::uint64_t stampOf(Node* node) noexcept {
  if (node->stamp() == 0) node->setStamp(++lastStamp);
  return node->stamp();
}

void touch(Node* node) noexcept {
  ++lastStamp;
  for (; node != nullptr; node = node->parent) node->setStamp(lastStamp);
}

void moveTo(Node* parent, Node* child, bool toFront) {
  if (child->parent == parent && parent->isElement() && !toFront && child->type == NODE_ELEMENT) {
    Node* const top = rootOf(parent);
    if (top->type != NODE_DOCUMENT || asDocument(top)->indexes == nullptr) {
      // To the end of its own siblings: the tree, its handles and its levels stay, so the subtree is not
      // walked.
      Lists::Known* const known = lists().of(parent);
      Node* first = parent->first();
      unlink(first, child);
      parent->setFirst(first);
      linkLast(parent, child);
      touch(parent);
      lists().removed(known, child);
      lists().appended(known, child);
      return;
    }
  }
  Node* const from = child->parent != nullptr ? rootOf(child) : nullptr;
  if (from != nullptr) cut(child);
  Node* const root = rootOf(parent);
  DocumentNode* const former = giveUpRoot(child, root);
  Indexes* const indexes = root->type == NODE_DOCUMENT ? asDocument(root)->indexes.get() : nullptr;
  if (indexes != nullptr) indexes->leaveContent(parent);
  if (toFront) lists().forget(parent);
  Lists::Known* const known = lists().of(parent);
  materialise(parent);
  if (toFront) {
    linkFirst(parent, child);
  } else {
    linkLast(parent, child);
  }
  if (indexes != nullptr) {
    indexes->enterContent(parent);
    indexes->enterTree(child);
  }
  touch(parent);
  lists().appended(known, child);
  // The tree that the child left may have had no other handle. If it went, it took care of its document.
  if (from != nullptr && from != root) dropIfUnheld(from);
  if (from == nullptr) freeIfUnused(former);
}

void detach(Node* node) {
  cut(node);
  dropIfUnheld(node);
}

void removeChildren(Node* parent) {
  settle(parent);
  while (Node* child = parent->first()) detach(child);
}

void changeValue(Node* node, std::string_view value) {
  DocumentNode* const home = homeOf(node);
  Indexes* const indexes = home != nullptr ? home->indexes.get() : nullptr;
  std::string kept;  // the value may be a view of the element's own text
  if (node->parent != nullptr && node->parent->shown && node->type != NODE_ATTRIBUTE) {
    kept = value;
    value = kept;
    settle(node->parent);
  }
  if (indexes == nullptr || node->parent == nullptr) {
    setOwnText(node, value);
  } else if (node->type == NODE_ATTRIBUTE) {
    indexes->leaveAttribute(node);
    setOwnText(node, value);
    indexes->enterAttribute(node);
  } else {
    indexes->leaveContent(node->parent);
    setOwnText(node, value);
    indexes->enterContent(node->parent);
  }
  touch(node);
}

void changeText(Node* element, std::string_view text) {
  DocumentNode* const home = homeOf(element);
  Indexes* const indexes = home != nullptr ? home->indexes.get() : nullptr;
  // The text may be a view of a child that goes.
  std::string kept;
  if (firstShown(element) != nullptr) {
    kept = text;
    text = kept;
    removeChildren(element);
  }
  if (indexes != nullptr) indexes->leaveContent(element);
  if (text.empty()) {
    if (element->length != 0) setOwnText(element, text);
  } else {
    setOwnText(element, text);
  }
  if (indexes != nullptr) indexes->enterContent(element);
  touch(element);
}

void putAttribute(Node* element, Node* attribute) {
  Node* const root = rootOf(element);
  Node* const old = findAttribute(element, attribute->name);
  DocumentNode* const former = giveUpRoot(attribute, root);
  if (old == nullptr) {
    linkAttribute(element, attribute);
  } else {
    // In front of the old one, which then goes.
    Node*& first = asElement(element)->attributes;
    attribute->parent = element;
    attribute->next = old;
    attribute->prev = old->prev;
    if (first == old) {
      first = attribute;
    } else {
      old->prev->next = attribute;
    }
    old->prev = attribute;
    detach(old);
  }
  if (root->type == NODE_DOCUMENT && asDocument(root)->indexes != nullptr) {
    asDocument(root)->indexes->enterAttribute(attribute);
  }
  touch(element);
  freeIfUnused(former);
}

Node* cloneOf(const Node* node, DocumentNode* owner, bool deep) {
  const auto copy = [](const Node* from, bool content) {
    Node* const to = newNode(from->type, from->name);
    if (from->length != 0 && content) initText(to, from->ownText());
    for (const Node* a = firstAttribute(from); a != nullptr; a = a->next) {
      Node* const attribute = newNode(NODE_ATTRIBUTE, a->name);
      initText(attribute, a->ownText());
      linkAttribute(to, attribute);
    }
    return to;
  };
  Node* const top = copy(node, deep || !node->isElement());
  if (deep) {
    Node* to = top;  // the copy of `from`
    for (const Node* from = node;;) {
      const Node* next = from->takesChildren() ? from->first() : nullptr;
      if (next == nullptr) {
        while (from != node && from->next == nullptr) {
          from = from->parent;
          to = to->parent;
        }
        if (from == node) break;
        next = from->next;
        to = to->parent;
      }
      Node* const child = copy(next, true);
      linkLast(to, child);
      from = next;
      to = child;
    }
  }
  return adopt(top, owner);
}

void freeTree(Node* root) noexcept {
  // Climbs back over `parent`: a node goes when its last child has gone.
  for (Node* node = root;;) {
    Node* const child = node->takesChildren() ? node->first() : nullptr;
    if (child != nullptr) {
      node = child;
      continue;
    }
    Node* const parent = node == root ? nullptr : node->parent;
    if (parent != nullptr) parent->setFirst(node->next);
    for (Node* a = firstAttribute(node); a != nullptr;) {
      Node* const next = a->next;
      freeNode(a);
      a = next;
    }
    freeNode(node);
    if (parent == nullptr) return;
    node = parent;
  }
}

void freeIfUnused(DocumentNode* document) noexcept {
  if (document->heldNodes != 0 || document->detachedTrees != 0) return;
  freeTree(document);
}

}  // namespace dom

void IXMLDOMNode::acquire(dom::Node* node) noexcept {
  if (node == nullptr || node->refs++ != 0) return;
  ++dom::heldCount(dom::rootOf(node));
}

void IXMLDOMNode::release(dom::Node* node) noexcept {
  if (node == nullptr || --node->refs != 0) return;
  dom::Node* const root = dom::rootOf(node);
  --dom::heldCount(root);
  if (dom::heldCount(root) == 0) dom::dropIfUnheld(root);
}
