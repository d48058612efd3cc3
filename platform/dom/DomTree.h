#pragma once

#include <string>
#include <string_view>

#include "DomNode.h"

// Building, changing and freeing trees. Nothing here recurses: a tree of the permitted depth is handled on
// any stack. What may be refused is refused by the callers; these functions take what is right.
namespace dom {

std::size_t livingNodes() noexcept;
inline DomWork work;

// A node that stands nowhere and is counted nowhere yet: link it or make it `adopt`ed.
Node* newNode(int type, NameId name);
DocumentNode* newDocument();
// Make a new node a detached root of `owner`. It is freed when the last handle into its tree goes.
Node* adopt(Node* fresh, DocumentNode* owner) noexcept;

Node* rootOf(Node* node) noexcept;
DocumentNode* documentOf(Node* node) noexcept;
// The document in whose own tree the node stands, null for a detached one.
DocumentNode* homeOf(Node* node) noexcept;

inline Node* firstAttribute(const Node* node) noexcept {
  return node->isElement() ? asElement(node)->attributes : nullptr;
}
// Next sibling; null for a root.
inline Node* nextOf(const Node* node) noexcept { return node->parent != nullptr ? node->next : nullptr; }
inline Node* previousOf(const Node* node) noexcept {
  return node->parent != nullptr && node->prev->next == node ? node->prev : nullptr;
}
inline Node* firstElement(const Node* parent) noexcept {
  Node* child = parent->takesChildren() ? parent->first() : nullptr;
  while (child != nullptr && !child->isElement()) child = child->next;
  return child;
}
inline Node* nextElement(const Node* element) noexcept {
  Node* next = nextOf(element);
  while (next != nullptr && !next->isElement()) next = next->next;
  return next;
}
Node* findAttribute(const Node* element, std::string_view name) noexcept;
Node* findAttribute(const Node* element, NameId name) noexcept;
// The node behind `node` in document order within the tree of `top`, null at the end. Attributes are no part
// of this walk.
Node* following(const Node* node, const Node* top) noexcept;
Node* followingOver(const Node* node, const Node* top) noexcept;  // without what is below `node`
// Levels of elements from the root down to `node`, and from `node` down to the deepest element.
int levelOf(const Node* node) noexcept;
int heightOf(const Node* node) noexcept;
// Whether `a` stands before `b` in the document order of one tree.
bool before(const Node* a, const Node* b);

std::string textOf(const Node* node);
// The text in one piece, taken together in `buffer` where it is in several.
std::string_view joinedText(const Node* node, std::string& buffer);
inline std::string_view textOf(const Node* node, std::string& buffer) {
  return !node->takesChildren() || node->length != 0 ? node->ownText() : joinedText(node, buffer);
}
bool textEquals(const Node* node, std::string_view text) noexcept;
// Types, names, attributes in their order, and what is below.
bool equalTrees(const Node* a, const Node* b) noexcept;

// Unguarded setters for new nodes: no index, no stamp.
void initText(Node* node, std::string_view text);  // of a node that has neither text nor children
void setOwnText(Node* node, std::string_view text);
void linkLast(Node* parent, Node* child) noexcept;
void linkFirst(Node* parent, Node* child) noexcept;
void linkAttribute(Node* element, Node* attribute) noexcept;

// Turns the text that an element holds itself into a text node, for a change.
void materialise(Node* element);
// Makes it a text node that can be handed out; the bytes of the text stay where they are.
void show(Node* element);
// The first child of any kind, one that is shown included.
Node* firstShown(const Node* parent) noexcept;

// Changes of a tree in use: indexes and stamps go with them.
void moveTo(Node* parent, Node* child, bool toFront);
void detach(Node* node);  // freed when no handle holds its tree
void removeChildren(Node* parent);
void changeValue(Node* node, std::string_view value);
void changeText(Node* element, std::string_view text);
void putAttribute(Node* element, Node* attribute);  // in place of one of its name
void touch(Node* node) noexcept;
// The stamp of a node, given now if it has none yet.
std::uint64_t stampOf(Node* node) noexcept;
// The last one that was given; 0 is that of a node whose stamp nobody has asked for.
inline std::uint64_t lastStamp = 0;

// A detached copy owned by the same document.
Node* cloneOf(const Node* node, DocumentNode* owner, bool deep);

// Frees a new tree that never was counted, or what a document without handles still holds.
void freeTree(Node* root) noexcept;
void freeIfUnused(DocumentNode* document) noexcept;

}  // namespace dom
