#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "Geometry.h"
#include "StudyGenerator.h"

namespace zelgen {

/// An id of the document: the text of a GUID without braces.
struct IdText {
  char text[36];
  // NOLINTNEXTLINE(google-explicit-constructor): a text, taken wherever a text is, as std::string is
  operator std::string_view() const { return {text, sizeof text}; }
};

/// The id that a number stands for: a random GUID whose 122 free bits are scattered from it.
IdText guid(std::uint64_t start);

/// The number with its six decimals.
std::string decimal(Millionths value);

/// Appends XML to a buffer and hands it to a sink from time to time. Names are written as given; texts are
/// escaped. After the sink has refused a stretch everything further is dropped.
class XmlWriter {
 public:
  XmlWriter(const ChunkSink& sink, bool pretty);

  /// Text that goes out as it is: the declaration, comments, the frame around the objects.
  void raw(std::string_view text) { buffer_ += text; }

  /// An object element with its id; these are the only elements with an attribute.
  void beginObject(std::string_view name, const IdText& id);
  void endObject(std::string_view name);
  /// An object element that is text already.
  void object(std::string_view text);

  void begin(std::string_view name);
  void beginWithAttribute(std::string_view name, std::string_view attribute, std::string_view value);
  void end(std::string_view name);

  void empty(std::string_view name);
  void text(std::string_view name, std::string_view value);
  void number(std::string_view name, std::uint64_t value);
  void millionths(std::string_view name, Millionths value);
  /// `NodeInfo`, of a layout with its placement in the study.
  void nodeInfo(std::string_view family, std::uint64_t number, const Placement* absolute = nullptr);
  /// `location` and `rotation` of a layout.
  void vectors(const Placement& placement);

  /// The last stretch goes out. False when the sink refused this one or an earlier one.
  bool finish();

  bool refused() const { return refused_; }

 private:
  void newLine();
  void openTag(std::string_view name);
  void closeTag(std::string_view name);
  void escaped(std::string_view value);
  void flush();

  const ChunkSink& sink_;
  std::string buffer_;
  bool pretty_;
  bool refused_ = false;
  std::uint32_t level_ = 0;
};

}  // namespace zelgen
