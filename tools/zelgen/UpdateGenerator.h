#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "StudyGenerator.h"
#include "dom/IXMLDOMDocument.h"

namespace zelgen {

/// What an update holds. The shares are per cent of the members of the study, that is of the objects below
/// its placed compounds; a share above 0 is one object at least.
struct UpdateOptions {
  std::uint64_t seed = 1;
  std::uint32_t added = 5;
  std::uint32_t changed = 10;
  std::uint32_t moved = 3;
  std::uint32_t vanished = 2;
};

/// Nothing when the options can be met; otherwise why not, as a sentence for the user.
std::optional<std::string> whyRefused(const UpdateOptions& options);

/// Writes an update document for the study. The document of the study is changed on the way into what the
/// data store would then hold, but for the new objects. False when the study has nothing to update, with
/// the why in `reason`, and when the sink said so, with `reason` as it was. The options must not be refused.
bool generateUpdate(const UpdateOptions& options, const IXMLDOMDocument& study, const ChunkSink& sink,
                    std::string& reason);

}  // namespace zelgen
