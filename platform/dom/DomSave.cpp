#include "dom/DomSave.h"

#include <algorithm>
#include <utility>

#include "DomTree.h"
#include "DomWriter.h"
#include "api/ApiSysFileReplacement.h"

using dom::Node;

namespace {

class ReplacementSink : public dom::TextSink {
 public:
  explicit ReplacementSink(ApiSysFileReplacement& file) : file_(file) {}
  bool write(std::string_view piece) override { return file_.write(piece); }

 private:
  ApiSysFileReplacement& file_;
};

}  // namespace

struct DomSave::Work {
  bool refuse(std::string reason) {
    error.reason = std::move(reason);
    error.outdated = file.isOutdated();
    return false;
  }

  IXMLDOMDocument document;
  ApiSysFileReplacement file;
  DomError error;
};

DomSave::DomSave() : work_(std::make_unique<Work>()) {}
DomSave::~DomSave() = default;
DomSave::DomSave(DomSave&&) noexcept = default;
DomSave& DomSave::operator=(DomSave&&) noexcept = default;

bool DomSave::prepare(const IXMLDOMDocument& document, const std::string& fileName, DomOverwrite overwrite) {
  work_ = std::make_unique<Work>();
  Work& work = *work_;
  work.error.file = fileName;
  Node* const node = Node::of(document);
  if (node == nullptr) return work.refuse("there is no document");
  if (dom::firstElement(node) == nullptr) return work.refuse(dom::noElement);
  const ApiSysFileStates* known = overwrite == DomOverwrite::known ? &dom::asDocument(node)->files : nullptr;
  if (!work.file.begin(fileName, known)) return work.refuse(work.file.reason());
  ReplacementSink sink(work.file);
  if (!dom::writeXml(node, sink) || !work.file.prepare()) return work.refuse(work.file.reason());
  work.document = document;
  return true;
}

bool DomSave::commit() {
  Work& work = *work_;
  if (!work.document) return work.refuse("nothing has been prepared");
  if (!work.file.commit()) return work.refuse(work.file.reason());
  ApiSysFileStates& files = dom::asDocument(Node::of(work.document))->files;
  const ApiSysFileState& state = work.file.state();
  std::erase_if(files, [&](const ApiSysFileState& each) { return each.place == state.place; });
  files.push_back(state);
  work.document = {};
  return true;
}

const DomError& DomSave::error() const { return work_->error; }
const std::vector<std::string>& DomSave::warnings() const { return work_->file.warnings(); }
std::string DomSave::keep() { return work_->file.keep(); }
