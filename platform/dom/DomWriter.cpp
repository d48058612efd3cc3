#include "DomWriter.h"

#include "DomNames.h"
#include "DomText.h"
#include "DomTree.h"

namespace dom {

namespace {

constexpr std::size_t pieceSize = std::size_t{64} << 10;

void putTextEscaped(std::string& out, std::string_view text, bool behindText) {
  std::size_t from = 0;
  const auto replace = [&](std::size_t at, const char* by) {
    out.append(text, from, at - from).append(by);
    from = at + 1;
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    switch (text[i]) {
      case '&':
        replace(i, "&amp;");
        break;
      case '<':
        replace(i, "&lt;");
        break;
      case '\r':
        replace(i, "&#13;");
        break;
      case '>':
        // Only the end of "]]>" has to be written so. Its start may stand in the text node before this one.
        if (i >= 2 ? text[i - 1] == ']' && text[i - 2] == ']' : behindText) replace(i, "&gt;");
        break;
      default:
        break;
    }
  }
  out.append(text, from);
}

void putAttribute(std::string& out, const Node* attribute) {
  out.append(nameOf(attribute->name)).append("=\"");
  const std::string_view text = attribute->ownText();
  std::size_t from = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char* by = nullptr;
    switch (text[i]) {
      case '&':
        by = "&amp;";
        break;
      case '<':
        by = "&lt;";
        break;
      case '"':
        by = "&quot;";
        break;
      case '\t':
        by = "&#9;";
        break;
      case '\n':
        by = "&#10;";
        break;
      case '\r':
        by = "&#13;";
        break;
      default:
        continue;
    }
    out.append(text, from, i - from).append(by);
    from = i + 1;
  }
  out.append(text, from).push_back('"');
}

bool hasContent(const Node* element) {
  for (const Node* child = element->first(); child != nullptr; child = child->next) {
    if (child->type != NODE_TEXT || child->length != 0) return true;
  }
  return false;
}

// What stands before the children of a node, or all of a node that has none. True when children follow.
bool putStart(std::string& out, const Node* node) {
  switch (node->type) {
    case NODE_ELEMENT: {
      const std::string_view name = nameOf(node->name);
      out.append(1, '<').append(name);
      for (const Node* a = firstAttribute(node); a != nullptr; a = a->next) {
        out.push_back(' ');
        putAttribute(out, a);
      }
      if (node->length != 0) {
        out.push_back('>');
        putTextEscaped(out, node->ownText(), false);
        out.append("</").append(name).append(1, '>');
        return false;
      }
      const bool content = hasContent(node);
      out.append(content ? ">" : "/>");
      return content;
    }
    case NODE_ATTRIBUTE:
      putAttribute(out, node);
      return false;
    case NODE_TEXT: {
      const Node* const previous = previousOf(node);
      putTextEscaped(out, node->ownText(), previous != nullptr && previous->type == NODE_TEXT);
      return false;
    }
    case NODE_CDATA_SECTION:
      out.append("<![CDATA[").append(node->ownText()).append("]]>");
      return false;
    case NODE_COMMENT:
      out.append("<!--").append(node->ownText()).append("-->");
      return false;
    case NODE_PROCESSING_INSTRUCTION:
      out.append("<?").append(nameOf(node->name));
      if (node->length != 0) out.append(1, ' ').append(node->ownText());
      out.append("?>");
      return false;
    default:
      return node->first() != nullptr;
  }
}

// Calls `full` whenever enough text has gathered, false from it ends the walk.
template <class Full>
bool walk(const Node* top, std::string& out, Full full) {
  for (const Node* node = top;;) {
    if (out.size() >= pieceSize && !full()) return false;
    if (putStart(out, node)) {
      node = node->first();
      continue;
    }
    while (node != top && node->next == nullptr) {
      node = node->parent;
      if (node->isElement()) out.append("</").append(nameOf(node->name)).append(1, '>');
    }
    if (node == top) break;
    if (node->parent->type == NODE_DOCUMENT) out.push_back('\n');
    node = node->next;
  }
  if (top->type == NODE_DOCUMENT && static_cast<const DocumentNode*>(top)->endsWithNewline)
    out.push_back('\n');
  return true;
}

}  // namespace

std::string xmlOf(const Node* node) {
  std::string out;
  walk(node, out, [] { return true; });
  return out;
}

bool writeXml(const Node* node, TextSink& sink) {
  std::string out;
  out.reserve(2 * pieceSize);
  const auto flush = [&] {
    const bool good = sink.write(out);
    out.clear();
    return good;
  };
  return walk(node, out, flush) && flush();
}

}  // namespace dom
