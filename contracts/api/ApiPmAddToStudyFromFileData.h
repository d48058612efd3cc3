#pragma once

#include <cstdint>

// What to take into a study from an external document.
class ApiPmAddToStudyFromFileData {
 public:
  // How the objects of the external document are chosen. `dryRun` is a bit beside the others:
  // static_cast<ImportType>(importSelected | dryRun).
  enum ImportType : std::uint32_t {
    importAll = 0,                // every object
    importPartsAndResources = 1,  // what belongs to parts, to resources, or to both, as told below
    importSelected = 2,           // all objects of the kinds that a selection can hold
    dryRun = 65536,               // lists are filled; no object of the study is added or replaced
  };

  ApiPmAddToStudyFromFileData(bool addParts, bool addResources)
      : addParts_(addParts), addResources_(addResources) {}

  bool addParts() const noexcept { return addParts_; }
  bool addResources() const noexcept { return addResources_; }

 private:
  bool addParts_;
  bool addResources_;
};
