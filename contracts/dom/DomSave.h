#pragma once

#include <memory>
#include <string>
#include <vector>

#include "dom/IXMLDOMDocument.h"

// A save of a document to a file in two steps: `prepare` writes all of it into a temporary file beside the
// target, with the attributes of the target, and flushes it to the disk; `commit` lets it take the place.
// So several files can be saved together: what can fail is done when the first takes its place.
//
// Until `commit` has answered true the target is what it was; the temporary file goes with this object. The
// document may change in between: what was prepared is saved.
class DomSave {
 public:
  DomSave();
  ~DomSave();
  DomSave(DomSave&&) noexcept;
  DomSave& operator=(DomSave&&) noexcept;

  // As IXMLDOMDocument::save.
  bool prepare(const IXMLDOMDocument& document, const std::string& fileName,
               DomOverwrite overwrite = DomOverwrite::known);
  bool commit();

  // Of the last false.
  const DomError& error() const;
  // What of the former file is not as it was, in words: an owner, a group or extended attributes that could
  // not be kept, other hard links that keep the former content.
  const std::vector<std::string>& warnings() const;
  // After a `commit` that failed: leaves what was prepared beside the target and answers under which name.
  std::string keep();

 private:
  struct Work;
  std::unique_ptr<Work> work_;
};
