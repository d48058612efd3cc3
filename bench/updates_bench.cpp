// What takes in or walks the whole study. The documents are read before the clock starts.

#include <cstdlib>

#include "Bench.h"
#include "Studies.h"
#include "api/ApiPmSessionManager.h"
#include "merge/ZelXmlUpdateFromExternalDocument.h"
#include "zelstudy/StudyCheck.h"
#include "zelstudy/StudyDiff.h"

namespace {

using namespace bench;

IXMLDOMDocument read(const std::string& file) {
  IXMLDOMDocument document = IXMLDOMDocument::create();
  if (!document.load(file)) std::exit(2);
  return document;
}

// An update that holds every object of the study.
void replaceAll(benchmark::State& state, long objects) {
  for ([[maybe_unused]] auto _ : state) {
    Study study(studyFile(objects));
    const IXMLDOMDocument update = read(studyFile(objects));
    ApiPmIdList deleted;
    ApiPmIdList updated;
    provideMemory(objects);
    cool();
    const Watch watch;
    study.wrapper().setUpdateDocument(update);
    if (!study.wrapper().update(deleted, updated, false)) std::exit(2);
    spend(state, watch.seconds());
  }
  count(state, static_cast<std::size_t>(objects));
}

// An update of as many objects, all of them new to an empty study.
void addAll(benchmark::State& state, long objects) {
  for ([[maybe_unused]] auto _ : state) {
    Study study(studyFile(objects));
    const IXMLDOMDocument update = read(studyFile(objects));
    IXMLDOMNode section;
    study.document().selectSingleNode("Data/Objects", section);
    for (IXMLDOMElement object = section.firstElementChild(); object;) {
      const IXMLDOMElement next = object.nextElementSibling();
      section.removeChild(object);
      object = next;
    }
    study.wrapper().cachedDOMDocument().reCacheAllChildrenNodes(study.document(), section);
    study.wrapper().build(false);
    ApiPmIdList updated;
    provideMemory(objects);
    cool();
    const Watch watch;
    study.wrapper().setUpdateDocument(update);
    if (!study.wrapper().incrementalUpdate(updated, false)) std::exit(2);
    spend(state, watch.seconds());
    if (updated.isEmpty()) std::exit(2);
  }
  count(state, static_cast<std::size_t>(objects));
}

// An import of every object of a document with the same objects.
void importAll(benchmark::State& state, long objects) {
  for ([[maybe_unused]] auto _ : state) {
    Study study(studyFile(objects));
    const IXMLDOMDocument external = read(studyFile(objects));
    ApiPmSessionManager::the().rootNodeId = study.wrapper().studyId();
    const ApiPmAddToStudyFromFileData settings(false, false);
    provideMemory(objects);
    cool();
    const Watch watch;
    ZelXmlUpdateFromExternalDocument import(external, settings, study.wrapper(),
                                            ApiPmAddToStudyFromFileData::importAll);
    if (!import.execute()) std::exit(2);
    spend(state, watch.seconds());
    ApiPmSessionManager::the().rootNodeId.clear();
  }
  count(state, static_cast<std::size_t>(objects));
}

void unshare(benchmark::State& state, long objects) {
  for ([[maybe_unused]] auto _ : state) {
    Study study(studyFile(objects));
    cool();
    const Watch watch;
    study.wrapper().removeSharing();
    spend(state, watch.seconds());
  }
  count(state, static_cast<std::size_t>(objects));
}

// An update of nothing: the roots are gathered anew.
void refresh(benchmark::State& state, long objects) {
  Study& study = readStudy(objects);
  const IXMLDOMDocument nothing = IXMLDOMDocument::create();
  nothing.loadXML("<Data><Objects/></Data>");
  study.wrapper().setUpdateDocument(nothing);
  for ([[maybe_unused]] auto _ : state) {
    cool();
    const Watch watch;
    study.wrapper().update(false);
    spend(state, watch.seconds());
  }
  count(state, static_cast<std::size_t>(objects));
}

void check(benchmark::State& state, long objects) {
  const IXMLDOMDocument document = read(studyFile(objects));
  for ([[maybe_unused]] auto _ : state) {
    cool();
    const Watch watch;
    benchmark::DoNotOptimize(zelstudy::checkStudy(document));
    spend(state, watch.seconds());
  }
  count(state, static_cast<std::size_t>(objects));
}

// Of a study and one in which every hundredth object has another name.
void compare(benchmark::State& state, long objects) {
  const IXMLDOMDocument before = read(studyFile(objects));
  const IXMLDOMDocument after = read(studyFile(objects));
  IXMLDOMNodeList names;
  after.selectNodes("Data/Objects/*/name", names);
  for (long i = 0; i < names.length(); i += 100) names.item(i).putText("another");
  for ([[maybe_unused]] auto _ : state) {
    cool();
    const Watch watch;
    if (zelstudy::diffStudies(before, after).equal()) std::exit(2);
    spend(state, watch.seconds());
  }
  count(state, static_cast<std::size_t>(objects));
}

const int added = add({"full update", {{OURS, replaceAll}}, "open", 3}) +
                  add({"incremental update", {{OURS, addAll}}, "open", 3}) +
                  add({"import", {{OURS, importAll}}, "open", 4}) +
                  add({"removeSharing", {{OURS, unshare}}, "open", 1}) +
                  add({"refreshRoots", {{OURS, refresh}}, "open", 1}) +
                  add({"check", {{OURS, check}}, "open", 1}) + add({"diff", {{OURS, compare}}, "open", 1});

}  // namespace
