#include "dom/DomView.h"

#include "DomNames.h"
#include "DomTree.h"

int DomView::nodeType() const noexcept {
  return node_ != nullptr ? static_cast<int>(node_->type) : NODE_INVALID;
}

std::string_view DomView::nodeName() const noexcept {
  return node_ != nullptr ? dom::nameOf(node_->name) : std::string_view();
}

std::string DomView::text() const { return node_ != nullptr ? dom::textOf(node_) : std::string(); }

std::string_view DomView::textView(std::string& buffer) const {
  return node_ != nullptr ? dom::textOf(node_, buffer) : std::string_view();
}

bool DomView::getAttribute(std::string_view name, std::string_view& value) const noexcept {
  const dom::Node* const attribute = node_ != nullptr ? dom::findAttribute(node_, name) : nullptr;
  if (attribute != nullptr) value = attribute->ownText();
  return attribute != nullptr;
}

unsigned DomView::line() const noexcept { return node_ != nullptr ? node_->line() : 0; }

bool DomView::isEqualNode(DomView other) const noexcept {
  if (node_ == nullptr || other.node_ == nullptr) return node_ == other.node_;
  return dom::equalTrees(node_, other.node_);
}

DomView DomView::firstChild() const noexcept {
  return DomView(node_ != nullptr && node_->takesChildren() ? node_->first() : nullptr);
}

DomView DomView::nextSibling() const noexcept {
  return DomView(node_ != nullptr ? dom::nextOf(node_) : nullptr);
}

DomView DomView::firstElementChild() const noexcept {
  return DomView(node_ != nullptr ? dom::firstElement(node_) : nullptr);
}

DomView DomView::nextElementSibling() const noexcept {
  return DomView(node_ != nullptr ? dom::nextElement(node_) : nullptr);
}

DomView DomView::firstAttribute() const noexcept {
  return DomView(node_ != nullptr ? dom::firstAttribute(node_) : nullptr);
}
