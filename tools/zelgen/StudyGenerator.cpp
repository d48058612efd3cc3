#include "StudyGenerator.h"

#include "Plan.h"
#include "StudyWriter.h"
#include "XmlWriter.h"

namespace zelgen {

std::optional<std::string> whyRefused(const StudyOptions& options) {
  const auto range = [](std::string_view what, std::uint32_t low, std::uint32_t high) {
    return "the " + std::string(what) + " must be between " + std::to_string(low) + " and " +
           std::to_string(high);
  };
  if (options.objects < kMinObjects || options.objects > kMaxObjects) {
    return range("number of objects", kMinObjects, kMaxObjects);
  }
  if (options.depth < kMinDepth || options.depth > kMaxDepth) return range("depth", kMinDepth, kMaxDepth);
  if (options.shared > 100) return range("share of shared parts", 0, 100);
  if (options.studyClass != "MarvekStudy" && options.studyClass != "LineSimulationStudy") {
    return "the study class must be MarvekStudy or LineSimulationStudy";
  }
  return std::nullopt;
}

bool generateStudy(const StudyOptions& options, const ChunkSink& sink) {
  const Plan plan(options);
  XmlWriter xml(sink, options.pretty);
  StudyWriter(plan, xml).write();
  return xml.finish();
}

std::string generateStudy(const StudyOptions& options) {
  std::string study;
  generateStudy(options, [&](std::string_view chunk) {
    study += chunk;
    return true;
  });
  return study;
}

}  // namespace zelgen
