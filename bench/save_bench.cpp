// Writing a study to a file, without the flush to disk and the renaming that make a save all or nothing.

#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "Bench.h"
#include "Studies.h"

namespace {

using namespace bench;

std::string target(long objects) { return studyFile(objects) + ".saved"; }

void ours(benchmark::State& state, long objects) {
  const IXMLDOMDocument document = IXMLDOMDocument::create();
  if (!document.load(studyFile(objects))) std::exit(2);
  for ([[maybe_unused]] auto _ : state) {
    const Watch watch;
    std::ofstream stream(target(objects), std::ios::binary);
    if (!document.save(stream)) std::exit(2);
    stream.close();
    spend(state, watch.seconds());
  }
  std::remove(target(objects).c_str());
  count(state, static_cast<std::size_t>(objects));
}

void byPugixml(benchmark::State& state, long objects) {
  pugi::xml_document document;
  if (!document.load_file(studyFile(objects).c_str())) std::exit(2);
  for ([[maybe_unused]] auto _ : state) {
    const Watch watch;
    if (!document.save_file(target(objects).c_str(), "", pugi::format_raw)) std::exit(2);
    spend(state, watch.seconds());
  }
  std::remove(target(objects).c_str());
  count(state, static_cast<std::size_t>(objects));
}

const int added = add({"save", {{OURS, ours}, {PUGIXML, byPugixml}}, "pugixml", 1.5, true, true});

}  // namespace
