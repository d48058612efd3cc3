#include "XmlWriter.h"

#include <charconv>

#include "Random.h"

namespace zelgen {
namespace {

constexpr std::size_t kStretch = std::size_t{1} << 20;

// Data and Objects, which the caller writes as raw text, stand around every object.
constexpr std::uint32_t kObjectLevel = 2;

}  // namespace

IdText guid(std::uint64_t start) {
  // Version 4 and its variant, as a random GUID has them; the other 122 bits are scattered.
  const std::uint64_t high = (start & ~std::uint64_t{0xF000}) | 0x4000;
  const std::uint64_t low = (scatter(start) >> 2) | (std::uint64_t{1} << 63);
  IdText id;
  char* out = id.text;
  for (int digit = 0; digit < 32; ++digit) {
    if (digit == 8 || digit == 12 || digit == 16 || digit == 20) *out++ = '-';
    const std::uint64_t half = digit < 16 ? high : low;
    *out++ = "0123456789ABCDEF"[(half >> (60 - 4 * (digit % 16))) & 15];
  }
  return id;
}

std::string decimal(Millionths value) {
  // The sign apart, so that -0.5 does not lose it with its zero whole part.
  const auto size = static_cast<std::uint64_t>(value < 0 ? -value : value);
  char digits[28];
  char* out = digits;
  if (value < 0) *out++ = '-';
  char* last = std::to_chars(out, out + 20, size / 1'000'000).ptr;
  *last++ = '.';
  std::uint64_t rest = size % 1'000'000;
  for (int place = 5; place >= 0; --place, rest /= 10) last[place] = static_cast<char>('0' + rest % 10);
  return {digits, last + 6};
}

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

void XmlWriter::object(std::string_view text) {
  buffer_.append(std::size_t{2} * (pretty_ ? level_ : 0), ' ');
  buffer_ += text;
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
  openTag(name);
  buffer_ += decimal(value);
  closeTag(name);
}

void XmlWriter::nodeInfo(std::string_view family, std::uint64_t ownNumber, const Placement* absolute) {
  begin("NodeInfo");
  text("family", family);
  number("Id", ownNumber);
  if (absolute) {
    begin("absoluteLocation");
    millionths("x", absolute->x);
    millionths("y", absolute->y);
    millionths("z", absolute->z);
    millionths("rx", absolute->roll);
    millionths("ry", absolute->pitch);
    millionths("rz", absolute->yaw);
    end("absoluteLocation");
  }
  end("NodeInfo");
}

void XmlWriter::vectors(const Placement& placement) {
  begin("location");
  millionths("item", placement.x);
  millionths("item", placement.y);
  millionths("item", placement.z);
  end("location");
  begin("rotation");
  millionths("item", placement.roll);
  millionths("item", placement.pitch);
  millionths("item", placement.yaw);
  end("rotation");
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
