#pragma once

#include <cstdint>
#include <string_view>

// A name that is looked up once and then compared as a number, for fields that are read all the time. Make it
// static. Any text may be given; one that is no name of XML is that of no element.
class IXMLDOMName {
 public:
  explicit IXMLDOMName(std::string_view text);

 private:
  friend class IXMLDOMNode;
  std::uint32_t id_;
};
