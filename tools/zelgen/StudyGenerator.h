#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zelgen {

/// What a generated study is made of. Two equal sets of options give the same bytes on every machine.
struct StudyOptions {
  std::uint32_t objects = 1000;  ///< object elements, that is children of Data/Objects; met exactly
  std::uint64_t seed = 1;
  std::uint32_t depth = 6;                 ///< levels of the deepest tree, its root and its leaves counted
  std::uint32_t shared = 5;                ///< per cent of the leaves of part trees that get a second parent
  bool pretty = false;                     ///< indented, a line per element; otherwise a line per object
  std::string studyClass = "MarvekStudy";  ///< or "LineSimulationStudy"; the study infos follow it
};

inline constexpr std::uint32_t kMinObjects = 100;
inline constexpr std::uint32_t kMaxObjects = 100'000'000;
inline constexpr std::uint32_t kMinDepth = 2;
inline constexpr std::uint32_t kMaxDepth = 200;

/// Nothing when a study can be made from the options; otherwise why not, as a sentence for the user.
std::optional<std::string> whyRefused(const StudyOptions& options);

/// Takes the next stretch of the document; false stops the generation.
using ChunkSink = std::function<bool(std::string_view)>;

/// Writes the study in stretches of about a megabyte, so that memory stays small at every size. False when
/// the sink said so, and then the rest was not produced. The options must not be refused.
bool generateStudy(const StudyOptions& options, const ChunkSink& sink);

/// The whole study as one text.
std::string generateStudy(const StudyOptions& options);

}  // namespace zelgen
