#include "dom/IXMLDOMNode.h"

#include "DomLists.h"
#include "DomNames.h"
#include "DomText.h"
#include "DomTree.h"
#include "DomWriter.h"
#include "DomXPath.h"
#include "dom/IXMLDOMDocument.h"

// The operations of a handle: what is refused is refused here, then the tree does it. Taking and giving back
// of handles stands with the tree's lifetime in DomTree.cpp.

using dom::Node;

namespace {

bool isDeclaration(const Node* node) {
  return node->type == NODE_PROCESSING_INSTRUCTION && node->name == dom::nameXml;
}

// Whether a document that has a `child` of this kind already takes no other one.
bool onlyOne(const Node* child) { return child->isElement() || isDeclaration(child); }

// Whether an element has room for another attribute.
bool takesAttribute(const Node* element) {
  int count = 0;
  for (const Node* a = dom::firstAttribute(element); a != nullptr; a = a->next) ++count;
  return count < IXMLDOMNode::maxAttributes;
}

bool takes(const Node* parent, const Node* child) {
  if (!parent->takesChildren() || child->type == NODE_ATTRIBUTE || child->type == NODE_DOCUMENT) return false;
  for (const Node* up = parent; up != nullptr; up = up->parent) {
    if (up == child) return false;
  }
  if (parent->type != NODE_DOCUMENT) {
    if (isDeclaration(child)) return false;
  } else {
    if (child->isText()) return false;
    for (const Node* other = onlyOne(child) ? parent->first() : nullptr; other != nullptr;
         other = other->next) {
      if (other != child && other->type == child->type && onlyOne(other)) return false;
    }
  }
  if (!child->isElement()) return true;
  // A child that only changes its place among its siblings stays at its level, so its subtree is not walked.
  return child->parent == parent || dom::levelOf(parent) + dom::heightOf(child) <= IXMLDOMNode::maxDepth;
}

}  // namespace

IXMLDOMNode& IXMLDOMNode::operator=(const IXMLDOMNode& other) noexcept {
  acquire(other.node_);
  release(std::exchange(node_, other.node_));
  return *this;
}

IXMLDOMNode& IXMLDOMNode::operator=(IXMLDOMNode&& other) noexcept {
  if (this != &other) release(std::exchange(node_, std::exchange(other.node_, nullptr)));
  return *this;
}

int IXMLDOMNode::nodeType() const noexcept {
  return node_ != nullptr ? static_cast<int>(node_->type) : NODE_INVALID;
}

std::string_view IXMLDOMNode::nodeName() const noexcept {
  return node_ != nullptr ? dom::nameOf(node_->name) : std::string_view();
}

std::string IXMLDOMNode::nodeValue() const {
  return node_ != nullptr && !node_->takesChildren() ? std::string(node_->ownText()) : std::string();
}

bool IXMLDOMNode::putNodeValue(std::string_view value) const {
  if (node_ == nullptr || node_->takesChildren()) return false;
  if (isDeclaration(node_) && value.empty()) value = dom::defaultDeclaration;
  if (!dom::validValue(node_->type, nodeName(), value)) return false;
  dom::changeValue(node_, value);
  return true;
}

std::string IXMLDOMNode::text() const { return node_ != nullptr ? dom::textOf(node_) : std::string(); }

std::string_view IXMLDOMNode::textView(std::string& buffer) const {
  return node_ != nullptr ? dom::textOf(node_, buffer) : std::string_view();
}

bool IXMLDOMNode::putText(std::string_view text) const {
  if (node_ == nullptr || node_->type == NODE_DOCUMENT) return false;
  if (!node_->isElement()) return putNodeValue(text);
  if (!dom::validText(text)) return false;
  dom::changeText(node_, text);
  return true;
}

IXMLDOMNode IXMLDOMNode::parentNode() const {
  return Node::handle(node_ != nullptr && node_->type != NODE_ATTRIBUTE ? node_->parent : nullptr);
}

IXMLDOMDocument IXMLDOMNode::ownerDocument() const {
  return Node::handle(node_ != nullptr ? dom::documentOf(node_) : nullptr);
}

IXMLDOMElement IXMLDOMNode::firstElementChild() const {
  return Node::handle(node_ != nullptr ? dom::firstElement(node_) : nullptr);
}

IXMLDOMElement IXMLDOMNode::nextElementSibling() const {
  return Node::handle(node_ != nullptr && node_->type != NODE_ATTRIBUTE ? dom::nextElement(node_) : nullptr);
}

IXMLDOMNodeList IXMLDOMNode::childNodes() const {
  IXMLDOMNodeList list;
  if (node_ == nullptr || !node_->takesChildren()) return list;
  dom::show(node_);
  for (Node* child = dom::firstShown(node_); child != nullptr; child = child->next)
    list.append(Node::handle(child));
  return list;
}

bool IXMLDOMNode::appendChild(const IXMLDOMNode& child) const {
  if (node_ == nullptr || child.node_ == nullptr || !takes(node_, child.node_)) return false;
  dom::moveTo(node_, child.node_, isDeclaration(child.node_));
  return true;
}

bool IXMLDOMNode::removeChild(const IXMLDOMNode& child) const {
  Node* const node = child.node_;
  if (node == nullptr || node_ == nullptr || node->parent != node_ || node->type == NODE_ATTRIBUTE)
    return false;
  dom::detach(node);
  return true;
}

IXMLDOMNode IXMLDOMNode::cloneNode(bool deep) const {
  if (node_ == nullptr || node_->type == NODE_DOCUMENT) return {};
  return Node::handle(dom::cloneOf(node_, dom::documentOf(node_), deep));
}

bool IXMLDOMNode::selectSingleNode(std::string_view xpath, IXMLDOMNode& found) const {
  Node* const node = node_ != nullptr ? dom::selectFirst(node_, xpath) : nullptr;
  if (node == nullptr) return false;
  found = Node::handle(node);
  return true;
}

bool IXMLDOMNode::selects(std::string_view xpath) const {
  return node_ != nullptr && dom::selectFirst(node_, xpath) != nullptr;
}

bool IXMLDOMNode::selectText(std::string_view xpath, std::string& buffer, std::string_view& text) const {
  const Node* const node = node_ != nullptr ? dom::selectFirst(node_, xpath) : nullptr;
  if (node == nullptr) return false;
  text = dom::textOf(node, buffer);
  return true;
}

bool IXMLDOMNode::selectNodes(std::string_view xpath, IXMLDOMNodeList& found) const {
  std::vector<Node*> nodes;
  if (node_ == nullptr || !dom::selectAll(node_, xpath, nodes)) return false;
  // The former list may have the only handle to this tree, and this handle itself: it goes last.
  IXMLDOMNodeList fresh;
  for (Node* const node : nodes) fresh.append(Node::handle(node));
  found = std::move(fresh);
  return true;
}

bool IXMLDOMNode::visitNodes(std::string_view xpath,
                             const std::function<void(const IXMLDOMNode&)>& visit) const {
  const IXMLDOMNode kept = *this;  // `visit` may let go of the handle that it was called by
  return node_ != nullptr &&
         dom::visitAll(kept.node_, xpath, [&visit](Node* node) { visit(Node::handle(node)); });
}

IXMLDOMNode IXMLDOMNode::getNamedItem(std::string_view name) const {
  return Node::handle(node_ != nullptr ? dom::findAttribute(node_, name) : nullptr);
}

IXMLDOMNodeList IXMLDOMNode::attributes() const {
  IXMLDOMNodeList list;
  if (node_ == nullptr) return list;
  for (Node* a = dom::firstAttribute(node_); a != nullptr; a = a->next) list.append(Node::handle(a));
  return list;
}

bool IXMLDOMNode::getAttribute(std::string_view name, std::string_view& value) const {
  const Node* const attribute = node_ != nullptr ? dom::findAttribute(node_, name) : nullptr;
  if (attribute == nullptr) return false;
  value = attribute->ownText();
  return true;
}

bool IXMLDOMNode::setAttributeNode(const IXMLDOMNode& attribute) const {
  Node* const node = attribute.node_;
  if (node_ == nullptr || !node_->isElement() || node == nullptr || node->type != NODE_ATTRIBUTE)
    return false;
  if (node->parent == node_) return true;
  if (node->parent != nullptr) return false;
  if (dom::findAttribute(node_, node->name) == nullptr && !takesAttribute(node_)) return false;
  dom::putAttribute(node_, node);
  return true;
}

bool IXMLDOMNode::setAttribute(std::string_view name, std::string_view value) const {
  if (node_ == nullptr || !node_->isElement() || !dom::validText(value)) return false;
  if (Node* const present = dom::findAttribute(node_, name)) {
    dom::changeValue(present, value);
    return true;
  }
  if (!dom::validName(name) || !takesAttribute(node_)) return false;
  Node* const attribute = dom::newNode(NODE_ATTRIBUTE, dom::internName(name));
  dom::setOwnText(attribute, value);
  dom::putAttribute(node_, dom::adopt(attribute, dom::documentOf(node_)));
  return true;
}

bool IXMLDOMNode::removeAttribute(std::string_view name) const {
  Node* const attribute = node_ != nullptr ? dom::findAttribute(node_, name) : nullptr;
  if (attribute == nullptr) return false;
  dom::detach(attribute);
  return true;
}

bool IXMLDOMNode::isEqualNode(const IXMLDOMNode& other) const noexcept {
  return node_ == other.node_ ||
         (node_ != nullptr && other.node_ != nullptr && dom::equalTrees(node_, other.node_));
}

std::string IXMLDOMNode::xml() const { return node_ != nullptr ? dom::xmlOf(node_) : std::string(); }

unsigned IXMLDOMNode::line() const noexcept { return node_ != nullptr ? node_->line() : 0; }

std::uint64_t IXMLDOMNode::changeStamp() const noexcept { return node_ != nullptr ? dom::stampOf(node_) : 0; }

IXMLDOMName::IXMLDOMName(std::string_view text) : id_(dom::internName(text)) {}

bool IXMLDOMNode::childText(const IXMLDOMName& name, std::string& buffer, std::string_view& text) const {
  const Node* child = node_ != nullptr ? dom::firstElement(node_) : nullptr;
  while (child != nullptr && child->name != name.id_) child = dom::nextElement(child);
  if (child == nullptr) return false;
  text = dom::textOf(child, buffer);
  return true;
}

bool IXMLDOMNode::findChild(std::string_view name, std::string_view text, IXMLDOMNode& found,
                            long& index) const {
  const dom::NameId id = dom::findName(name);
  Node* const child =
      node_ != nullptr && id != dom::anyName ? dom::lists().find(node_, id, text, index) : nullptr;
  if (child == nullptr) return false;
  found = IXMLDOMNode(child);
  return true;
}

bool IXMLDOMNode::childAt(std::string_view name, long index, IXMLDOMNode& found) const {
  const dom::NameId id = dom::findName(name);
  Node* const child = node_ != nullptr && id != dom::anyName ? dom::lists().at(node_, id, index) : nullptr;
  if (child == nullptr) return false;
  found = IXMLDOMNode(child);
  return true;
}
