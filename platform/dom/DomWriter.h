#pragma once

#include <string>
#include <string_view>

#include "DomNode.h"

namespace dom {

// Where a writer's pieces of text go.
class TextSink {
 public:
  virtual ~TextSink() = default;
  virtual bool write(std::string_view piece) = 0;
};

inline constexpr const char* noElement = "the document has no element, which would not be XML";

std::string xmlOf(const Node* node);
// Writes the node and all below it, in pieces of about 64 KiB. False as soon as the sink refuses one.
bool writeXml(const Node* node, TextSink& sink);

}  // namespace dom
