#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "StudyGenerator.h"
#include "dom/IXMLDOMDocument.h"

namespace zelgen {

/// What an external document holds. The shares are per cent of the members of the study, that is of the
/// objects below its placed compounds; a share above 0 is one object at least.
struct ExternalOptions {
  std::uint64_t seed = 1;
  std::uint32_t added = 5;
  std::uint32_t changed = 10;
  std::uint32_t unchanged = 20;
  std::uint32_t classChanges = 0;  ///< a number of objects, not a share
};

/// Nothing when the options can be met; otherwise why not, as a sentence for the user.
std::optional<std::string> whyRefused(const ExternalOptions& options);

/// Writes an external document to import into the study. The document of the study is changed on the way and
/// of no further use. False when nothing can be made of the study, with the why in `reason`, and when the
/// sink said so, with `reason` as it was. The options must not be refused.
bool generateExternal(const ExternalOptions& options, const IXMLDOMDocument& study, const ChunkSink& sink,
                      std::string& reason);

}  // namespace zelgen
