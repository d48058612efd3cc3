#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "XmlWriter.h"

namespace zelgen {

// Objects that studies and external documents write alike. `number` goes into NodeInfo/Id.

/// Of a part or of a tool.
void writePrototype(XmlWriter& xml, bool isPart, const IdText& id, std::string_view name,
                    std::string_view threeDRep, Millionths weight, std::uint64_t number);
void writeThreeDRep(XmlWriter& xml, const IdText& id, std::string_view file, std::uint64_t number);
void writeReferenceFile(XmlWriter& xml, const IdText& id, std::string_view fileName, std::uint64_t number);

void writeShortcut(XmlWriter& xml, const IdText& id, std::string_view name, std::string_view study,
                   std::string_view target, std::uint64_t number);
/// Without a number it has no NodeInfo, and so no family.
void writeStudyInfo(XmlWriter& xml, std::string_view className, const IdText& id, std::string_view layout,
                    std::optional<std::uint64_t> number);
void writeStudyLayout(XmlWriter& xml, const IdText& id, const Placement& placement, std::uint64_t number);

}  // namespace zelgen
