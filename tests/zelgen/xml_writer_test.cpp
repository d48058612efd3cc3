#include "XmlWriter.h"

#include <gtest/gtest.h>

namespace zelgen {
namespace {

template <typename Write>
std::string written(bool pretty, Write write) {
  std::string result;
  const ChunkSink sink = [&](std::string_view chunk) {
    result += chunk;
    return true;
  };
  XmlWriter xml(sink, pretty);
  write(xml);
  EXPECT_TRUE(xml.finish());
  return result;
}

TEST(GeneratorXmlWriter, EscapesTextAndIndentsOnlyWhenPretty) {
  IdText id;
  std::fill(std::begin(id.text), std::end(id.text), 'A');
  const auto write = [&](XmlWriter& xml) {
    xml.beginObject("O", id);
    xml.text("t", "a<b & \"c\">d");
    xml.begin("g");
    xml.empty("e");
    xml.end("g");
    xml.endObject("O");
  };
  const std::string head = "<O ExternalId=\"" + std::string(36, 'A') + "\">";
  const std::string text = "<t>a&lt;b &amp; &quot;c&quot;&gt;d</t>";
  EXPECT_EQ(written(false, write), head + text + "<g><e/></g></O>\n");
  EXPECT_EQ(written(true, write),
            "    " + head + "\n      " + text + "\n      <g>\n        <e/>\n      </g>\n    </O>\n");
}

}  // namespace
}  // namespace zelgen
