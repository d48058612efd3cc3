#include "XmlWriter.h"

#include <charconv>

namespace zelgen {
namespace {

constexpr std::size_t kStretch = std::size_t{1} << 20;

// Data and Objects, which the caller writes as raw text, stand around every object.
constexpr std::uint32_t kObjectLevel = 2;

}  // namespace

XmlWriter::XmlWriter(const ChunkSink& sink, bool pretty)
    : sink_(sink), pretty_(pretty), level_(kObjectLevel) {
  buffer_.reserve(kStretch + kStretch / 4);
}

void XmlWriter::newLine() {
  if (!pretty_) return;
  buffer_ += '\n';
  buffer_.append(std::size_t{2} * level_, ' ');
}

void XmlWriter::openTag(std::string_view name) {
  newLine();
  buffer_ += '<';
  buffer_ += name;
  buffer_ += '>';
}

void XmlWriter::closeTag(std::string_view name) {
  buffer_ += "</";
  buffer_ += name;
  buffer_ += '>';
}

void XmlWriter::escaped(std::string_view value) {
  for (const char c : value) {
    switch (c) {
      case '&':
        buffer_ += "&amp;";
        break;
      case '<':
        buffer_ += "&lt;";
        break;
      case '>':
        buffer_ += "&gt;";
        break;
      case '"':
        buffer_ += "&quot;";
        break;
      default:
        buffer_ += c;
    }
  }
}

void XmlWriter::beginObject(std::string_view name, const IdText& id) {
  buffer_.append(std::size_t{2} * (pretty_ ? level_ : 0), ' ');
  buffer_ += '<';
  buffer_ += name;
  buffer_ += " ExternalId=\"";
  buffer_ += std::string_view(id);
  buffer_ += "\">";
  ++level_;
}

void XmlWriter::endObject(std::string_view name) {
  --level_;
  newLine();
  closeTag(name);
  buffer_ += '\n';
  if (buffer_.size() >= kStretch) flush();
}

void XmlWriter::begin(std::string_view name) {
  openTag(name);
  ++level_;
}

void XmlWriter::beginWithAttribute(std::string_view name, std::string_view attribute,
                                   std::string_view value) {
  newLine();
  buffer_ += '<';
  buffer_ += name;
  buffer_ += ' ';
  buffer_ += attribute;
  buffer_ += "=\"";
  escaped(value);
  buffer_ += "\">";
  ++level_;
}

void XmlWriter::end(std::string_view name) {
  --level_;
  newLine();
  closeTag(name);
}

void XmlWriter::empty(std::string_view name) {
  newLine();
  buffer_ += '<';
  buffer_ += name;
  buffer_ += "/>";
}

void XmlWriter::text(std::string_view name, std::string_view value) {
  openTag(name);
  escaped(value);
  closeTag(name);
}

void XmlWriter::number(std::string_view name, std::uint64_t value) {
  char digits[20];
  const auto last = std::to_chars(digits, digits + sizeof digits, value).ptr;
  openTag(name);
  buffer_.append(digits, last);
  closeTag(name);
}

void XmlWriter::millionths(std::string_view name, Millionths value) {
  // The sign apart, so that -0.5 does not lose it with its zero whole part.
  const auto size = static_cast<std::uint64_t>(value < 0 ? -value : value);
  char digits[28];
  char* last = std::to_chars(digits, digits + 20, size / 1'000'000).ptr;
  *last++ = '.';
  std::uint64_t rest = size % 1'000'000;
  for (int place = 5; place >= 0; --place, rest /= 10) last[place] = static_cast<char>('0' + rest % 10);
  openTag(name);
  if (value < 0) buffer_ += '-';
  buffer_.append(digits, last + 6);
  closeTag(name);
}

void XmlWriter::flush() {
  if (!refused_ && !buffer_.empty()) refused_ = !sink_(buffer_);
  buffer_.clear();
}

bool XmlWriter::finish() {
  flush();
  return !refused_;
}

}  // namespace zelgen
